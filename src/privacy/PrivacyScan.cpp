#include "privacy/PrivacyScan.h"

#include <functional>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>

namespace pryvane {

namespace {

constexpr std::size_t kMostFoldersLookedAt = 1000;

/// Why not all below a location that measured nothing could be looked at; empty where all was. What
/// measures counts 0 for what it cannot read.
std::string notSeenBelow(FileSystem& disk, const ToolLocation& location)
{
    if (location.kind != FileKind::Folder)
        return {};
    std::vector<std::string> waiting{location.url.absolutePath()};
    for (std::size_t looked = 0; !waiting.empty(); ++looked) {
        if (looked == kMostFoldersLookedAt)
            return "it holds too many empty folders";
        const std::string folder = std::move(waiting.back());
        waiting.pop_back();
        const FolderListing listing = disk.list(FileURL::fileURLWithPath(folder));
        if (listing.status == ListStatus::Refused)
            return listing.reason;
        for (const FolderEntry& entry : listing.entries) {
            const std::string path = joinedPath(folder, entry.name);
            if (&entry == &listing.entries.front() &&
                disk.kind(FileURL::fileURLWithPath(path)) == FileKind::Unknown)
                return "a folder on the way cannot be searched";
            if (entry.kind == FileKind::Folder)
                waiting.push_back(path);
        }
    }
    return {};
}

/// What is to be measured, so that nothing is measured twice: a folder below which another location
/// lies is the sum of what it holds, and that location is one of its parts.
class Parts {
public:
    Parts(FileSystem& disk, const std::vector<const ToolLocation*>& locations) : m_disk(disk)
    {
        for (const ToolLocation* location : locations)
            m_paths.insert(pathOf(*location));
        for (std::size_t location = 0; location < locations.size(); ++location)
            add(locations[location]->kind, pathOf(*locations[location]), location);
    }

    [[nodiscard]] const std::vector<FileURL>& urls() const { return m_urls; }
    /// The locations of which that one is a part, by their place among those given.
    [[nodiscard]] const std::vector<std::vector<std::size_t>>& owners() const { return m_owners; }

private:
    static constexpr std::size_t kMostEntries = 20'000; ///< of a folder that is taken apart

    [[nodiscard]] static std::string pathOf(const ToolLocation& location)
    {
        std::string path = location.url.absolutePath();
        while (path.size() > 1 && path.ends_with('/'))
            path.pop_back();
        return path;
    }

    [[nodiscard]] bool holdsAnother(const std::string& folder) const
    {
        const auto below = m_paths.upper_bound(folder + "/");
        return below != m_paths.end() && below->starts_with(folder + "/");
    }

    void add(FileKind kind, const std::string& path, std::size_t location)
    {
        if (kind == FileKind::Folder && holdsAnother(path) && addEntriesOf(path, location))
            return;
        const auto [known, isNew] = m_partOf.emplace(path, m_urls.size());
        if (isNew) {
            m_urls.push_back(FileURL::fileURLWithPath(path));
            m_owners.emplace_back();
        }
        m_owners[known->second].push_back(location);
    }

    /// False where the folder is better measured as a whole.
    bool addEntriesOf(const std::string& folder, std::size_t location)
    {
        const FolderListing listing = m_disk.list(FileURL::fileURLWithPath(folder));
        if (listing.status != ListStatus::Listed || listing.entries.size() > kMostEntries)
            return false;
        for (const FolderEntry& entry : listing.entries)
            add(entry.kind, joinedPath(folder, entry.name), location);
        return true;
    }

    FileSystem& m_disk;
    std::set<std::string, std::less<>> m_paths;
    std::unordered_map<std::string, std::size_t> m_partOf;
    std::vector<FileURL> m_urls;
    std::vector<std::vector<std::size_t>> m_owners;
};

/// The groups that are being measured. Those that are done wait for the ones before them.
class Waiting {
public:
    Waiting(std::vector<ToolGroup> groups, FileSystem& disk, PrivacyProgress& progress,
            const ToolGroupSink& sink)
        : m_groups(std::move(groups)), m_left(m_groups.size(), 0), m_disk(disk),
          m_progress(progress), m_sink(sink)
    {
        std::vector<const ToolLocation*> locations;
        for (std::size_t group = 0; group < m_groups.size(); ++group) {
            for (ToolItem& item : m_groups[group].List) {
                for (ToolLocation& location : item.AllList) {
                    m_places.push_back({group, &location});
                    locations.push_back(&location);
                }
            }
        }
        m_parts.emplace(disk, locations);
        for (const auto& owners : m_parts->owners())
            for (const std::size_t place : owners)
                ++m_left[m_places[place].group];
    }

    [[nodiscard]] const std::vector<FileURL>& urls() const { return m_parts->urls(); }

    void measured(std::size_t part, std::int64_t bytes)
    {
        for (const std::size_t place : m_parts->owners()[part]) {
            m_places[place].location->bytes += bytes;
            --m_left[m_places[place].group];
        }
        tellFinished();
    }

    void tellFinished()
    {
        for (; m_next < m_groups.size() && m_left[m_next] == 0; ++m_next) {
            countSize(m_groups[m_next]);
            lookAtEmpty(m_groups[m_next]);
            m_sink(std::move(m_groups[m_next]));
        }
    }

private:
    void lookAtEmpty(ToolGroup& group)
    {
        for (ToolItem& item : group.List) {
            for (const ToolLocation& location : item.AllList) {
                if (item.bytes == 0 && item.notSeen.empty())
                    item.notSeen = notSeenBelow(m_disk, location);
            }
            if (!item.notSeen.empty())
                m_progress.allSeen = false;
        }
    }

    struct Place {
        std::size_t group;
        ToolLocation* location;
    };
    std::vector<ToolGroup> m_groups;
    std::vector<std::size_t> m_left; ///< parts of each group's locations, still to be measured
    std::vector<Place> m_places;     ///< all locations
    std::optional<Parts> m_parts;
    std::size_t m_next = 0; ///< to be told
    FileSystem& m_disk;
    PrivacyProgress& m_progress;
    const ToolGroupSink& m_sink;
};

} // namespace

void scanPrivacy(const CleanerServices& services, const std::string& user, const StopFlag& stop,
                 PrivacyProgress& progress, const ToolGroupSink& sink)
{
    services.disk.forgetListings();
    PrivacyCatalogue catalogue(services, user, stop);
    Waiting waiting(catalogue.groups(), services.disk, progress, sink);
    // Another user's may have been looked at before.
    progress.whole = progress.whole && catalogue.whole();
    progress.allSeen = progress.allSeen && catalogue.allSeen();
    if (stop.requested())
        return;
    progress.locations += waiting.urls().size();
    waiting.tellFinished();
    services.sizes.measure(waiting.urls(), stop, progress.sizes,
                           [&](std::size_t part, std::int64_t bytes) {
                               ++progress.measured;
                               waiting.measured(part, bytes);
                           });
}

} // namespace pryvane
