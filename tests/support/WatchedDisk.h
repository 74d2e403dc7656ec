#pragma once

#include "support/ForwardingDisk.h"

#include <map>
#include <set>
#include <string>

namespace pryvane::test {

/// Notes what a disk is asked, and refuses what the test says. Places are absolute paths.
class WatchedDisk final : public ForwardingDisk {
public:
    using ForwardingDisk::ForwardingDisk;

    std::set<std::string> untestable, unlistable; ///< what cannot be told, and listed
    std::map<std::string, int> read, listed;      ///< how often

    Presence presence(const FileURL& url) override
    {
        const Presence told = m_disk.presence(url);
        return untestable.contains(url.absolutePath()) ? Presence::Unknown : told;
    }
    FolderListing list(const FileURL& folder) override
    {
        ++listed[folder.absolutePath()];
        if (unlistable.contains(folder.absolutePath()))
            return {ListStatus::Refused, {}, "permission denied"};
        return m_disk.list(folder);
    }
    Result<std::string> readSmallFile(const FileURL& url, std::size_t limit) override
    {
        ++read[url.absolutePath()];
        return m_disk.readSmallFile(url, limit);
    }
};

} // namespace pryvane::test
