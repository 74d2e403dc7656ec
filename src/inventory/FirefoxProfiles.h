#pragma once

#include "inventory/ExtensionFiles.h"

#include <string>
#include <string_view>

namespace pryvane {

/// The folders of the profiles in a "profiles.ini", which lie in "Profiles" beside it: one path
/// component each, in the file's order, each once. `whole` is false where it names more than any
/// browser makes, or one that lies elsewhere: whoever writes the file could make any folder one.
[[nodiscard]] BoundedList<std::string> firefoxProfileFolders(std::string_view profilesIni);

} // namespace pryvane
