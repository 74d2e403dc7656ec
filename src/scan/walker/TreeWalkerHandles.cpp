// How a walker keeps few folders open, and how it gives work away.
#include "scan/walker/TreeWalker.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <limits>
#include <thread>

namespace pryvane {

namespace {

constexpr int kTriesForHandle = 100;
constexpr std::chrono::milliseconds kBetweenTries{1};
constexpr std::size_t kLevelsLookedAt = 64; // for work to give away

} // namespace

/// Opens a folder in the one the walk is at. When the process has no handles left, gives back what
/// this thread can do without and waits a little for others to do so.
FolderHandle TreeWalker::openFolder(const char* name)
{
    FolderHandle folder = top().folder.openChild(name);
    for (int tries = 0; !folder && tries < kTriesForHandle; ++tries) {
        const int error = errno;
        if ((error != EMFILE && error != ENFILE) || m_shared.stop.requested()) {
            errno = error;
            break;
        }
        if (tries == 0)
            keepWithin(2);
        else
            std::this_thread::sleep_for(kBetweenTries);
        folder = top().folder.openChild(name);
    }
    return folder;
}

/// Closes folders, those nearest to the root first, but neither the task's own nor the last.
void TreeWalker::keepWithin(std::size_t handles)
{
    while (m_open > handles) {
        while (m_lowestOpen + 1 < m_depth && !m_levels[m_lowestOpen].folder)
            ++m_lowestOpen;
        if (m_lowestOpen + 1 >= m_depth)
            return;
        setAside(m_levels[m_lowestOpen]);
    }
}

void TreeWalker::setAside(Level& level)
{
    if (level.unread)
        read(level, std::numeric_limits<std::size_t>::max());
    if (level.entries.folders() > 0) {
        level.setAside = true;
        ++m_setAside;
    }
    close(level);
}

void TreeWalker::close(Level& level)
{
    m_open -= level.folder ? 1 : 0;
    level.folder.close();
}

/// Opens a folder again that was closed on the way down, through ".." of the one just left. Without
/// work of its own it may still be the way to one above it that has some.
void TreeWalker::returnTo(std::size_t index, FolderHandle child)
{
    Level& level = m_levels[index];
    const bool hasWork = level.setAside;
    if (hasWork) {
        level.setAside = false;
        --m_setAside;
    }
    FolderHandle folder = child ? child.openParent(m_ancestry[m_above + index]) : FolderHandle();
    child.close();
    if (!folder && hasWork)
        folder = openedFromAbove(index);
    if (folder) {
        level.folder = std::move(folder);
        ++m_open;
        m_lowestOpen = std::max<std::size_t>(std::min(m_lowestOpen, index), 1);
    } else if (hasWork) {
        refuse(level.pathLength, "it was moved during the walk");
    }
}

/// Opens the folder by the names that lead to it from the nearest one that is open.
FolderHandle TreeWalker::openedFromAbove(std::size_t index) const
{
    std::size_t from = index;
    while (from > 0 && !m_levels[from].folder)
        --from;
    FolderHandle folder = m_levels[from].folder.duplicate();
    for (std::size_t i = from + 1; folder && i <= index; ++i) {
        const std::size_t begin = m_levels[i - 1].pathLength;
        folder = folder.openChild(m_path.substr(begin, m_levels[i].pathLength - begin - 1).c_str());
        if (folder && folder.id() != m_ancestry[m_above + i])
            folder.close();
    }
    return folder;
}

void TreeWalker::giveWork()
{
    m_shared.crew.give([this] { return splitOff(); });
}

/// Takes the later half of the folders that wait nearest to the root: the most work for the least
/// talk.
std::optional<WalkTask> TreeWalker::splitOff()
{
    const auto last = [this] { return m_depth - 1; };
    while (m_depth > 0 && m_lowestWork < last() && !m_levels[m_lowestWork].unread &&
           m_levels[m_lowestWork].entries.folders() == 0)
        ++m_lowestWork;
    const std::size_t end = std::min(m_depth, m_lowestWork + kLevelsLookedAt);
    for (std::size_t index = m_lowestWork; index < end; ++index) {
        Level& level = m_levels[index];
        const std::size_t folders = level.entries.folders();
        const std::size_t kept = index == last() ? (folders + 1) / 2 : folders / 2;
        if (!level.folder || kept == folders)
            continue;
        WalkTask task;
        task.folder = level.folder.duplicate();
        if (!task.folder)
            return std::nullopt;
        task.path = m_path.substr(0, level.pathLength);
        task.state = level.state;
        task.matched = level.matched;
        task.entries = level.entries.splitAtFolder(kept);
        task.above = m_ancestry.downTo(m_above + index + 1);
        task.place = m_shared.report.insertAfter(placeAtEndOf(index));
        if (!level.after)
            level.after = m_shared.report.insertAfter(task.place);
        return task;
    }
    return std::nullopt;
}

/// The stretch that this walker fills just before it comes to the end of a level's entries.
WalkReport::Place TreeWalker::placeAtEndOf(std::size_t index) const
{
    for (std::size_t i = index + 1; i < m_depth; ++i) {
        if (m_levels[i].after)
            return *m_levels[i].after;
    }
    return m_place;
}

} // namespace pryvane
