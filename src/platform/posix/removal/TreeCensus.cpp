#include "platform/posix/removal/TreeCensus.h"

#include "platform/posix/ErrorText.h"
#include "platform/posix/removal/HostRemoval.h"
#include "platform/posix/removal/RemovalErrors.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
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

    void count(FolderHandle folder)
    {
        enter(std::move(folder));
        while (!m_levels.empty() && !m_stop.requested()) {
            if (m_levels.back().subfolders.empty())
                leave();
            else
                descend(m_levels.back());
        }
        if (m_stop.requested())
            m_forecast.countedWhole = false;
    }

private:
    struct Level {
        FolderHandle folder;
        FolderId id;
        std::vector<std::string> subfolders;
    };

    void foresee(RemovalFailure failure)
    {
        if (m_forecast.obstacle != RemovalObstacle::None)
            return;
        m_forecast.obstacle = failure.obstacle;
        m_forecast.detail = std::move(failure.detail);
    }

    void enter(FolderHandle folder)
    {
        m_levels.push_back({std::move(folder), {}, {}});
        Level& level = m_levels.back();
        level.id = level.folder.id();
        FolderBatch::Entry entry;
        bool first = true;
        do {
            if (!m_batch.fill(level.folder)) {
                m_forecast.countedWhole = false;
                foresee({RemovalObstacle::Unreadable, errorText(errno)});
                break;
            }
            while (m_batch.next(entry) && !m_stop.requested()) {
                // What one entry's folder forbids it forbids for all, but marks are each one's own.
                const std::string name(entry.name);
                if (std::exchange(first, false))
                    foresee(foreseenFailure(level.folder.fd(), name));
                note(level, name);
            }
        } while (!m_batch.atEnd() && !m_stop.requested());
        if (m_levels.size() > kMostHandles)
            m_levels[m_levels.size() - kMostHandles].folder.close();
    }

    void note(Level& level, const std::string& name)
    {
        struct stat data {};
        if (fstatat(level.folder.fd(), name.c_str(), &data, AT_SYMLINK_NOFOLLOW) != 0)
            return;
        ++m_forecast.entries;
        if (S_ISDIR(data.st_mode))
            level.subfolders.push_back(name);
        else
            m_forecast.bytes += std::int64_t{data.st_blocks} * 512;
        if (isLocked(level.folder.fd(), name))
            foresee({RemovalObstacle::Locked, {}});
    }

    void descend(Level& level)
    {
        const std::string name = std::move(level.subfolders.back());
        level.subfolders.pop_back();
        FolderHandle child = openBelow(level.folder.fd(), name);
        if (!child) {
            m_forecast.countedWhole = false;
            return foresee(errno == EACCES ? RemovalFailure{RemovalObstacle::Unreadable, {}}
                                           : failureOf(errno, level.folder.fd(), name));
        }
        if (m_places.contains(child.id()))
            return foresee({RemovalObstacle::ProtectedPlace, {}});
        enter(std::move(child));
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
        m_forecast.countedWhole = false;
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

void countBelow(FolderHandle folder, const ProtectedPlaces& places, const StopFlag& stop,
                RemovalForecast& forecast)
{
    Census(places, stop, forecast).count(std::move(folder));
}

} // namespace pryvane
