#include "privacy/PrivacyScan.h"

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

/// The groups that are being measured. Those that are done wait for the ones before them.
class Waiting {
public:
    Waiting(std::vector<ToolGroup> groups, FileSystem& disk, PrivacyProgress& progress,
            const ToolGroupSink& sink)
        : m_groups(std::move(groups)), m_left(m_groups.size(), 0), m_disk(disk),
          m_progress(progress), m_sink(sink)
    {
        for (std::size_t group = 0; group < m_groups.size(); ++group) {
            for (ToolItem& item : m_groups[group].List) {
                for (ToolLocation& location : item.AllList) {
                    m_places.push_back({group, &location});
                    m_urls.push_back(location.url);
                    ++m_left[group];
                }
            }
        }
    }

    [[nodiscard]] const std::vector<FileURL>& urls() const { return m_urls; }

    void measured(std::size_t place, std::int64_t bytes)
    {
        m_places[place].location->bytes = bytes;
        --m_left[m_places[place].group];
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
    std::vector<std::size_t> m_left; ///< locations of each group, still to be measured
    std::vector<Place> m_places;
    std::vector<FileURL> m_urls;
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
                           [&](std::size_t place, std::int64_t bytes) {
                               ++progress.measured;
                               waiting.measured(place, bytes);
                           });
}

} // namespace pryvane
