#include "volume/AllocatedSize.h"

#include "core/ThreadSafety.h"
#include "core/tasks/WorkCrew.h"
#include "volume/HostVolume.h"
#include "volume/folders/Ancestry.h"
#include "volume/folders/FolderHandle.h"

#include <algorithm>
#include <fcntl.h>
#include <iterator>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace pryvane {

namespace {

constexpr std::size_t kLevelsLookedAt = 64; // for work to give away

/// A location that was not begun, or some of the subfolders of a folder below it.
struct SizeTask {
    std::size_t location = 0;
    FolderHandle folder; ///< closed where the location was not begun
    std::vector<std::string> subfolders;
    Ancestry above; ///< the folder and those above it
};

using SizeCrew = WorkCrew<SizeTask>;

/// The sum of each location, put together from the parts that threads hand in.
class Sums {
public:
    Sums(std::size_t locations, const StopFlag& stop, const SizeMeter::Told& told)
        : m_sums(locations), m_stop(stop), m_told(told)
    {
    }

    void partGiven(std::size_t location) { m_sums[location].parts.fetch_add(1); }

    void partDone(std::size_t location, std::int64_t bytes)
    {
        Sum& sum = m_sums[location];
        sum.bytes.fetch_add(bytes);
        if (sum.parts.fetch_sub(1) > 1)
            return;
        const MutexLock lock(m_mutex);
        // Asked for here, as the telling waited for may have been what stopped it.
        if (!m_stop.requested())
            m_told(location, sum.bytes.load());
    }

private:
    struct Sum {
        std::atomic<std::int64_t> bytes{0};
        std::atomic<int> parts{1}; ///< at work or waiting
    };
    std::vector<Sum> m_sums;
    const StopFlag& m_stop;
    Mutex m_mutex;
    const SizeMeter::Told& m_told GUARDED_BY(m_mutex); // one telling at a time
};

/// One thread's part of a measurement: depth first, with an own stack, holding few folders open.
/// Gives parts of its part away while other threads have none.
class SizeWalker {
public:
    struct Shared {
        SizeCrew& crew;
        Sums& sums;
        const OpenMeasurable& open;
        const StopFlag& stop;
        SizeProgress& progress;
        std::size_t mostHandles; ///< of one thread
    };

    explicit SizeWalker(const Shared& shared) : m_shared(shared) {}

    void run()
    {
        while (std::optional<SizeTask> task = m_shared.crew.take()) {
            m_location = task->location;
            m_bytes = 0;
            if (!m_shared.stop.requested())
                walk(std::move(*task));
            m_shared.sums.partDone(m_location, m_bytes);
            m_shared.crew.finished();
        }
    }

private:
    /// A folder on the way down: read whole when entered, so that its handle may be closed and
    /// opened again while its subfolders are visited.
    struct Level {
        FolderHandle folder;
        std::vector<std::string> subfolders; ///< still to be visited, the last first
    };

    void walk(SizeTask task)
    {
        begin(std::move(task));
        while (!m_levels.empty() && !m_shared.stop.requested()) {
            Level& level = m_levels.back();
            if (level.subfolders.empty()) {
                leave();
                continue;
            }
            const std::string name = std::move(level.subfolders.back());
            level.subfolders.pop_back();
            enter(level.folder.openChild(name.c_str()));
            if (m_shared.crew.wantsWork())
                m_shared.crew.give([this] { return splitOff(); });
        }
        m_levels.clear(); // stopped
    }

    void begin(SizeTask task)
    {
        m_lowestWork = 0;
        m_above = 0;
        m_ancestry = std::move(task.above);
        if (task.folder) {
            m_above = m_ancestry.size() - 1;
            m_levels.push_back({std::move(task.folder), std::move(task.subfolders)});
            return;
        }
        Measurable place = m_shared.open(m_location);
        m_bytes = place.bytes;
        m_shared.progress.entries.fetch_add(1, std::memory_order_relaxed);
        enter(FolderHandle(place.folder.release()));
    }

    void enter(FolderHandle folder)
    {
        const FolderId id = folder ? folder.id() : FolderId();
        // A damaged or hostile disk may hold a folder inside itself.
        if (id == FolderId() || m_ancestry.contains(id))
            return;
        m_ancestry.push(id);
        m_levels.push_back({std::move(folder), {}});
        read(m_levels.back());
        // The topmost stays open, as the one to fall back to.
        if (m_levels.size() > m_shared.mostHandles)
            m_levels[m_levels.size() - m_shared.mostHandles].folder.close();
    }

    void read(Level& level)
    {
        std::uint64_t entries = 0;
        FolderBatch::Entry entry;
        do {
            if (!m_batch.fill(level.folder))
                break;
            while (m_batch.next(entry) && !m_shared.stop.requested()) {
                struct stat data {};
                ++entries;
                if (entry.kind == FileKind::Folder)
                    level.subfolders.emplace_back(entry.name);
                else if (fstatat(level.folder.fd(), entry.name.data(), &data,
                                 AT_SYMLINK_NOFOLLOW) == 0 &&
                         !S_ISDIR(data.st_mode))
                    m_bytes += m_sizes.bytes(data, level.folder.fd());
            }
        } while (!m_batch.atEnd() && !m_shared.stop.requested());
        m_shared.progress.entries.fetch_add(entries, std::memory_order_relaxed);
    }

    /// Goes up one level. A parent whose handle was closed is opened again through "..", unless
    /// the folder was moved meanwhile: then the rest up to the next open handle is given up.
    void leave()
    {
        const FolderHandle child = std::move(m_levels.back().folder);
        drop();
        if (m_levels.empty() || m_levels.back().folder)
            return;
        m_levels.back().folder = child.openParent(m_ancestry[m_above + m_levels.size() - 1]);
        while (!m_levels.back().folder)
            drop();
    }

    void drop()
    {
        m_ancestry.pop();
        m_levels.pop_back();
        m_lowestWork = std::min(m_lowestWork, m_levels.size());
    }

    /// Takes half of the subfolders that wait nearest to the root: the most work for the least
    /// talk.
    std::optional<SizeTask> splitOff()
    {
        while (m_lowestWork + 1 < m_levels.size() && m_levels[m_lowestWork].subfolders.empty())
            ++m_lowestWork;
        const std::size_t end = std::min(m_levels.size(), m_lowestWork + kLevelsLookedAt);
        for (std::size_t index = m_lowestWork; index < end; ++index) {
            Level& level = m_levels[index];
            const std::size_t all = level.subfolders.size();
            const std::size_t kept = index + 1 == m_levels.size() ? (all + 1) / 2 : all / 2;
            if (!level.folder || kept == all)
                continue;
            SizeTask task;
            task.folder = level.folder.duplicate();
            if (!task.folder)
                return std::nullopt;
            const auto from = level.subfolders.begin();
            const auto to = from + static_cast<std::ptrdiff_t>(all - kept);
            task.location = m_location;
            task.subfolders.assign(std::make_move_iterator(from), std::make_move_iterator(to));
            level.subfolders.erase(from, to);
            task.above = m_ancestry.downTo(m_above + index + 1);
            m_shared.sums.partGiven(m_location);
            return task;
        }
        return std::nullopt;
    }

    const Shared m_shared;
    FolderBatch m_batch;
    FileSizes m_sizes;
    Ancestry m_ancestry;
    std::vector<Level> m_levels;
    std::size_t m_above = 0;      ///< folders in m_ancestry above the task's own
    std::size_t m_lowestWork = 0; ///< no level below this one has subfolders left
    std::size_t m_location = 0;
    std::int64_t m_bytes = 0;
};

} // namespace

std::int64_t FileSizes::withoutBlocks(const struct stat& data, int folder)
{
    if (m_device != data.st_dev) {
        m_device = data.st_dev;
        m_byLength = leavesOutBlocks(folder);
    }
    constexpr std::int64_t kBlock = 512;
    const std::int64_t length = data.st_size;
    return m_byLength ? (length / kBlock + (length % kBlock ? 1 : 0)) * kBlock : 0;
}

void allocatedSizes(std::size_t locations, unsigned threads, const OpenMeasurable& open,
                    const StopFlag& stop, SizeProgress& progress, const SizeMeter::Told& told)
{
    SizeCrew crew;
    for (std::size_t location = 0; location < locations; ++location) {
        SizeTask task;
        task.location = location;
        crew.begin(std::move(task));
    }
    Sums sums(locations, stop, told);
    const CrewSize size = CrewSize::forThreads(threads);
    onThreads(size.threads, [&] {
        crew.share([&] { SizeWalker({crew, sums, open, stop, progress, size.handles}).run(); });
    });
    crew.throwOn();
}

std::int64_t allocatedSizeBelow(UniqueFd folder)
{
    std::int64_t sum = 0;
    const StopFlag never;
    SizeProgress progress;
    allocatedSizes(
        1, 1,
        [&](std::size_t) {
            return Measurable{std::move(folder), 0};
        },
        never, progress, [&](std::size_t, std::int64_t bytes) { sum = bytes; });
    return sum;
}

} // namespace pryvane
