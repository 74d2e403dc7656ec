#include "removal/disk/TreeCensus.h"

#include "removal/disk/NameList.h"
#include "removal/disk/ProtectedPlaces.h"
#include "removal/disk/RemovalErrors.h"

#include <cerrno>
#include <utility>
#include <vector>

namespace pryvane {

namespace {

constexpr std::size_t kMostHandles = 32;

class Census {
public:
    Census(const ProtectedPlaces& places, const StopFlag& stop, RemovalForecast& forecast)
        : m_places(places), m_stop(stop), m_forecast(forecast)
    {
    }

    void count(int parent, const std::string& name)
    {
        visit(parent, name);
        while (!m_levels.empty() && !m_stop.requested()) {
            if (m_levels.back().subfolders.empty())
                leave();
            else
                visit(m_levels.back().folder.fd(), m_levels.back().subfolders.take());
        }
        if (m_stop.requested())
            m_forecast.countedWhole = false;
    }

private:
    struct Level {
        FolderHandle folder;
        FolderId id;
        NameList subfolders; ///< still to be visited
    };

    void foresee(RemovalFailure failure)
    {
        if (m_forecast.obstacle != RemovalObstacle::None)
            return;
        m_forecast.obstacle = failure.obstacle;
        m_forecast.detail = std::move(failure.detail);
    }

    void visit(int parent, const std::string& name)
    {
        FolderHandle folder = openBelow(parent, name);
        if (!folder) {
            if (errno == ENOENT || errno == ENOTDIR || errno == ELOOP)
                return; // gone or exchanged meanwhile
            m_forecast.countedWhole = false;
            return foresee(unreadable(errno));
        }
        if (m_places.contains(folder.id())) {
            m_forecast.countedWhole = false;
            return foresee({RemovalObstacle::ProtectedPlace, {}});
        }
        Level level;
        level.id = folder.id();
        level.folder = std::move(folder);
        read(level);
        m_levels.push_back(std::move(level));
        // The topmost stays open, as the one to fall back to.
        if (m_levels.size() > kMostHandles)
            m_levels[m_levels.size() - kMostHandles].folder.close();
    }

    void read(Level& level)
    {
        const FolderRules rules(level.folder.fd());
        FolderBatch::Entry entry;
        do {
            if (!m_batch.fill(level.folder)) {
                m_forecast.countedWhole = false;
                return foresee(unreadable(errno));
            }
            while (m_batch.next(entry) && !m_stop.requested()) {
                const auto facts = factsOf(level.folder.fd(), std::string(entry.name));
                if (!facts)
                    continue; // gone meanwhile
                foresee(rules.foreseen(*facts));
                ++m_forecast.entries;
                m_forecast.bytes += facts->bytes;
                if (facts->kind == FileKind::Folder)
                    level.subfolders.add(entry.name);
            }
        } while (!m_batch.atEnd() && !m_stop.requested());
    }

    void leave()
    {
        const FolderHandle child = std::move(m_levels.back().folder);
        m_levels.pop_back();
        if (m_levels.empty() || m_levels.back().folder)
            return;
        FolderHandle above = child.openChild("..");
        if (above && above.id() == m_levels.back().id) {
            m_levels.back().folder = std::move(above);
            return;
        }
        m_forecast.countedWhole = false; // moved away meanwhile
        while (!m_levels.back().folder)
            m_levels.pop_back();
    }

    const ProtectedPlaces& m_places;
    const StopFlag& m_stop;
    RemovalForecast& m_forecast;
    FolderBatch m_batch;
    std::vector<Level> m_levels;
};

} // namespace

void countBelow(int parent, const std::string& name, const ProtectedPlaces& places,
                const StopFlag& stop, RemovalForecast& forecast)
{
    Census(places, stop, forecast).count(parent, name);
}

} // namespace pryvane
