#pragma once

#include "findings/ScanCoverage.h"
#include "platform/FileSystem.h"
#include "platform/Users.h"

#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// The homes of a Mac's disk, as they were when somebody asked.
struct Homes {
    std::vector<std::string>
        users; ///< whose homes are to be looked at, sorted, as Users.h names them
    std::vector<std::string> leftOut; ///< the other users there are
    std::vector<std::string> missing; ///< homes that were asked for and are not there, by path
    std::vector<Refusal> refused;     ///< what would tell of more homes, and could not be read

    /// Notes in the coverage what of the homes is not looked at.
    void note(ScanCoverage& coverage) const;
};

/// Settles whose homes are to be looked at. Homes are the folders of /Users but "Shared" and hidden
/// ones, and those that the Mac's own accounts name elsewhere. Reads at most 64 MiB of accounts.
/// Any thread.
[[nodiscard]] Homes settledHomes(FileSystem& disk, const UserChoice& whose);

/// The user among those, which are sorted, in whose home the path lies; empty where it lies in
/// none.
[[nodiscard]] std::string_view userOf(std::string_view path, const std::vector<std::string>& users);

} // namespace pryvane
