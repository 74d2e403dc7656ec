#pragma once

#include "cli/Console.h"
#include "privacy/PrivacyCleaning.h"

#include <span>
#include <string>
#include <vector>

namespace pryvane::cli {

class CleanerHost;

struct ClearArguments {
    std::vector<std::string> items; ///< "GROUP/ITEM", or "ITEM" where only one group has it
    bool dryRun = false;
    bool yes = false;
    std::string format = "text";
    std::vector<std::string> groups = {}; ///< all of them but what is dear
    std::vector<std::string> except = {}; ///< left out of the items above, named as they are
};

/// Shows what clearing the named items would remove; removes it where that is wanted and agreed to.
/// `running` are the applications that run on the volume. Returns the exit code.
int clearItems(CleanerHost& cleaner, std::span<const std::string> running, Remover& remover,
               const ClearArguments& arguments, const Console& console);

} // namespace pryvane::cli
