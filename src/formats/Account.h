#pragma once

#include "core/Result.h"

#include <cstdint>
#include <optional>
#include <string>

namespace pryvane {

/// What a Mac's directory of accounts keeps of one. Empty: the file does not say.
struct Account {
    std::string name; ///< short name
    std::string home; ///< path, as the file has it
    std::string realName;
    std::string generatedUid; ///< as other files of the Mac refer to the account
    std::optional<std::int64_t> uid;

    /// Whether it is that of a person, and not one that the system keeps for itself.
    [[nodiscard]] bool isPersons() const
    {
        return !name.empty() && !name.starts_with('_') && uid && *uid > 1 && name != "nobody";
    }
};

/// Reads a file of /private/var/db/dslocal/nodes/Default/users. Pure function of the bytes, bounded
/// as PropertyList is; callable from any thread.
[[nodiscard]] Result<Account> readAccount(std::string bytes);

} // namespace pryvane
