#pragma once

#include "core/Result.h"
#include "inventory/facts/Facts.h"

#include <string>

namespace pryvane {

/// The items of a background-items database, versions 2 to 18. `origin.user` holds the identifier
/// of the account that the file names (a UUID), if any; `programText` is what the system noted as
/// executable, or the item's own address. A layout that is not known is an error, "not understood",
/// never an empty list. Bounded in items, texts and references followed. Pure; any thread.
[[nodiscard]] Result<ReadFacts<StartUpItem>> readBackgroundItems(std::string bytes);

/// The identifier under which items of the whole system are kept.
inline constexpr std::string_view kSystemItems = "FFFFEEEE-DDDD-CCCC-BBBB-AAAAFFFFFFFE";

} // namespace pryvane
