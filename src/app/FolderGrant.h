#pragma once

#include "platform/FileURL.h"
#include "platform/PlatformServices.h"

#include <span>
#include <string_view>

namespace pryvane {

struct FolderQuestion;
class GrantTokens;

enum class GrantOutcome : std::uint8_t { Cancelled, Granted, Failed };

/// Lets the user pick a folder and keeps a grant for it under each of the keys. A grant that cannot
/// be made clears the keys, is logged, and is told with an alert; a cancelled panel changes
/// nothing.
[[nodiscard]] GrantOutcome askForGrant(const PlatformServices& services, GrantTokens& tokens,
                                       const FolderQuestion& question,
                                       std::span<const std::string_view> keys);

} // namespace pryvane
