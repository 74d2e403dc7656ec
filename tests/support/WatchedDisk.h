#pragma once

#include "support/ForwardingDisk.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace pryvane::test {

/// Notes what a disk is asked, and answers otherwise where the test says so. Places are absolute
/// paths.
class WatchedDisk final : public ForwardingDisk {
public:
    using ForwardingDisk::ForwardingDisk;
    std::set<std::string> untestable, unlistable; ///< what cannot be told, and listed
    std::string shut;                             ///< nor anything below that one; empty: none
    std::map<std::string, Presence> answers;
    std::optional<std::string> name;         ///< its identity
    std::map<std::string, int> read, listed; ///< how often
    std::function<void(const std::string& place)> onPresence = [](const auto&) {};

    Presence presence(const FileURL& url) override
    {
        const Presence told = m_disk.presence(url);
        const std::string place = url.absolutePath();
        onPresence(place);
        if (untestable.contains(place) || isShut(place))
            return Presence::Unknown;
        return answers.contains(place) ? answers.at(place) : told;
    }
    FolderListing list(const FileURL& folder) override
    {
        const std::string place = folder.absolutePath();
        ++listed[place];
        if (unlistable.contains(place) || isShut(place))
            return {ListStatus::Refused, {}, "permission denied"};
        return m_disk.list(folder);
    }
    Result<std::string> readSmallFile(const FileURL& url, std::size_t limit) override
    {
        ++read[url.absolutePath()];
        return m_disk.readSmallFile(url, limit);
    }
    std::string identity() const override { return name.value_or(m_disk.identity()); }

private:
    [[nodiscard]] bool isShut(const std::string& place) const
    {
        return !shut.empty() && place.starts_with(shut + "/");
    }
};

} // namespace pryvane::test
