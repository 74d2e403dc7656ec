#pragma once

#include "platform/Removal.h"
#include "removal/disk/HostRemoval.h"

#include <string>
#include <string_view>

namespace pryvane {

struct RemovalFailure {
    RemovalObstacle obstacle = RemovalObstacle::None;
    std::string detail;

    explicit operator bool() const { return obstacle != RemovalObstacle::None; }
};

/// Why removing that name from the open folder failed with that errno.
[[nodiscard]] RemovalFailure failureOf(int error, int folder, const std::string& name);

/// Why a folder could not be opened or read, with that errno.
[[nodiscard]] RemovalFailure unreadable(int error);

/// What an open folder forbids, asked once for all of its entries.
class FolderRules {
public:
    explicit FolderRules(int folder);

    /// Why removing that entry would fail, as far as can be told beforehand.
    [[nodiscard]] RemovalFailure foreseen(const EntryFacts& entry) const;

private:
    RemovalFailure m_forAll;
    EntryFacts m_folder;
};

} // namespace pryvane
