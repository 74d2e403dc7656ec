#pragma once

#include "platform/Remover.h"
#include "removal/disk/VolumeRemover.h"
#include "support/Volumes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// What the tests of the removal share.
namespace pryvane::test {

/// A number from the environment, for sizes that sanitizers and slow machines want smaller.
[[nodiscard]] int sizeAsked(const char* variable, int otherwise);

/// Lets temporary folders that are made during its life lie in memory, where the host has such a
/// place: there calls take microseconds, so that an attacker meets thousands of them.
class InMemory {
public:
    InMemory();
    ~InMemory();
    InMemory(const InMemory&) = delete;
    InMemory& operator=(const InMemory&) = delete;

private:
    std::optional<std::string> m_before;
};

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

    RemovalResult remove(const RemovalItem& item) const;
    RemovalForecast plan(const RemovalItem& item) const;

    TemporaryFolder folder;
    std::unique_ptr<VolumeFileSystem> volume;
    std::vector<std::string> ownFolders;
};

/// All that lies below a folder of the host with kind and size, one line each, links not followed.
[[nodiscard]] std::string treeBelow(const std::string& hostFolder);

/// "removed 3" with the remark, "gone", or "failed after 2: " and the reason.
[[nodiscard]] std::string inWords(const RemovalResult& result);

} // namespace pryvane::test
