#pragma once

#include "platform/Remover.h"
#include "removal/disk/VolumeRemover.h"
#include "support/Volumes.h"

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

/// What the tests of the removal share.
namespace pryvane::test {

/// A temporary folder that is opened as a volume and removed from.
struct RemovalDisk {
    explicit RemovalDisk(NameMatching matching = NameMatching::AsOnMac,
                         Confinement confinement = Confinement::BestAvailable)
        : volume(volumeAt(folder, matching, confinement))
    {
    }

    /// An item as a scan finds it, or one of a stored report.
    [[nodiscard]] RemovalItem seen(std::string_view path,
                                   RemovalScope scope = RemovalScope::Item) const
    {
        return {at(path), volume->sighting(at(path)), scope};
    }
    [[nodiscard]] static RemovalItem stored(std::string_view path,
                                            RemovalScope scope = RemovalScope::Item)
    {
        return {at(path), std::nullopt, scope};
    }

    std::vector<RemovalResult> remove(std::span<const RemovalItem> items) const;
    RemovalResult remove(const RemovalItem& item) const { return remove({&item, 1}).at(0); }
    RemovalForecast plan(const RemovalItem& item) const;

    TemporaryFolder folder;
    std::unique_ptr<VolumeFileSystem> volume;
    std::vector<std::string> ownFolders;
};

/// What the remover tells of each item.
[[nodiscard]] std::vector<RemovalResult> removed(VolumeRemover& remover,
                                                 std::span<const RemovalItem> items,
                                                 const StopFlag& stop = StopFlag());

/// All that lies below a folder of the host with kind and size, one line each, links not followed.
[[nodiscard]] std::string treeBelow(const std::string& hostFolder);

/// "removed 3" with the remark, "gone", or "failed after 2: " and the reason.
[[nodiscard]] std::string inWords(const RemovalResult& result);
[[nodiscard]] std::vector<std::string> inWords(const std::vector<RemovalResult>& results);

} // namespace pryvane::test
