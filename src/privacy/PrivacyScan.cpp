#include "privacy/PrivacyScan.h"

#include <utility>

namespace pryvane {

namespace {

/// The groups that are being measured. Those that are done wait for the ones before them.
class Waiting {
public:
    Waiting(std::vector<ToolGroup> groups, const ToolGroupSink& sink)
        : m_groups(std::move(groups)), m_left(m_groups.size(), 0), m_sink(sink)
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
            m_sink(std::move(m_groups[m_next]));
        }
    }

private:
    struct Place {
        std::size_t group;
        ToolLocation* location;
    };
    std::vector<ToolGroup> m_groups;
    std::vector<std::size_t> m_left; ///< locations of each group, still to be measured
    std::vector<Place> m_places;
    std::vector<FileURL> m_urls;
    std::size_t m_next = 0; ///< to be told
    const ToolGroupSink& m_sink;
};

} // namespace

void scanPrivacy(const CleanerServices& services, const std::string& user, const StopFlag& stop,
                 PrivacyProgress& progress, const ToolGroupSink& sink)
{
    services.disk.forgetListings();
    Waiting waiting(PrivacyCatalogue(services, user, stop).groups(), sink);
    if (stop.requested())
        return;
    progress.locations = waiting.urls().size();
    waiting.tellFinished();
    services.sizes.measure(waiting.urls(), stop, progress.sizes,
                           [&](std::size_t place, std::int64_t bytes) {
                               ++progress.measured;
                               waiting.measured(place, bytes);
                           });
}

} // namespace pryvane
