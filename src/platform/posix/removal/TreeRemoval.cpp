#include "platform/posix/removal/TreeRemoval.h"

#include "platform/posix/removal/HostRemoval.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace pryvane {

namespace {

constexpr std::size_t kMostHandles = 32;

// A folder is read again when it turns out not to be empty. Whoever fills it faster than this many
// readings empty it could go on for ever.
constexpr int kMostReadings = 64;

} // namespace

void TreeRemoval::empty(FolderHandle folder)
{
    enter(std::move(folder), {});
    while (!m_levels.empty()) {
        if (m_stop.requested()) {
            failed({RemovalObstacle::Stopped, {}});
            m_levels.clear();
        } else if (m_levels.back().subfolders.empty()) {
            leave();
        } else {
            descend(m_levels.back());
        }
    }
}

void TreeRemoval::failed(RemovalFailure failure)
{
    if (!m_failure)
        m_failure = std::move(failure);
}

void TreeRemoval::enter(FolderHandle folder, std::string name)
{
    Level level;
    level.id = folder.id();
    level.folder = std::move(folder);
    level.name = std::move(name);
    read(level);
    m_levels.push_back(std::move(level));
    // The topmost stays open, as the one to fall back to.
    if (m_levels.size() > kMostHandles)
        m_levels[m_levels.size() - kMostHandles].folder.close();
}

/// Removes what is no folder, and notes what is.
void TreeRemoval::read(Level& level)
{
    ++level.readings;
    if (level.readings > 1) {
        // Reading starts over at a handle of its own.
        FolderHandle again = level.folder.openChild(".");
        if (!again) {
            level.holdsRest = true;
            return failed(failureOf(errno, level.folder.fd(), "."));
        }
        level.folder = std::move(again);
    }
    FolderBatch::Entry entry;
    do {
        if (!m_batch.fill(level.folder)) {
            level.holdsRest = true;
            return failed(
                {RemovalObstacle::Unreadable, failureOf(errno, level.folder.fd(), ".").detail});
        }
        while (m_batch.next(entry) && !m_stop.requested()) {
            std::string name(entry.name);
            if (entry.kind == FileKind::Folder || !removeFile(level.folder.fd(), name))
                level.subfolders.push_back(std::move(name));
        }
    } while (!m_batch.atEnd() && !m_stop.requested());
}

bool TreeRemoval::removeFile(int folder, const std::string& name)
{
    struct stat data {};
    if (fstatat(folder, name.c_str(), &data, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno != ENOENT)
            failed(failureOf(errno, folder, name));
        return true;
    }
    if (S_ISDIR(data.st_mode))
        return false;
    if (unlinkat(folder, name.c_str(), 0) == 0) {
        ++m_entries;
        m_bytes += std::int64_t{data.st_blocks} * 512;
        return true;
    }
    if (errno == EISDIR || (errno == EPERM && kindAt(folder, name.c_str()) == FileKind::Folder))
        return false; // it has been exchanged
    if (errno != ENOENT)
        failed(failureOf(errno, folder, name));
    return true;
}

void TreeRemoval::descend(Level& level)
{
    std::string name = std::move(level.subfolders.back());
    level.subfolders.pop_back();
    FolderHandle child = openBelow(level.folder.fd(), name);
    if (!child) {
        const int error = errno;
        if (error == ENOENT)
            return;
        if (error == ENOTDIR || error == ELOOP) { // exchanged meanwhile: a link goes, unfollowed
            if (!removeFile(level.folder.fd(), name))
                level.subfolders.push_back(std::move(name));
            return;
        }
        level.holdsRest = true;
        // An empty folder can be removed without being read.
        if (error == EACCES && unlinkat(level.folder.fd(), name.c_str(), AT_REMOVEDIR) == 0) {
            level.holdsRest = false;
            ++m_entries;
            return;
        }
        return failed(error == EACCES ? RemovalFailure{RemovalObstacle::Unreadable, {}}
                                      : failureOf(error, level.folder.fd(), name));
    }
    if (m_places.contains(child.id())) {
        level.holdsRest = true;
        return failed({RemovalObstacle::ProtectedPlace, {}});
    }
    enter(std::move(child), std::move(name));
}

/// Removes the emptied folder from the one above it, or reads it once more.
void TreeRemoval::leave()
{
    Level level = std::move(m_levels.back());
    m_levels.pop_back();
    if (m_levels.empty())
        return; // the caller's own folder
    if (!reopenAbove(level.folder))
        return;
    Level& above = m_levels.back();
    if (level.holdsRest) {
        above.holdsRest = true;
        return;
    }
    if (unlinkat(above.folder.fd(), level.name.c_str(), AT_REMOVEDIR) == 0) {
        ++m_entries;
        return;
    }
    const int error = errno;
    const bool filled = error == ENOTEMPTY || error == EEXIST;
    if (error == ENOENT)
        return;
    if ((filled || error == ENOTDIR) && level.readings < kMostReadings) {
        // Filled again, or exchanged for something else: looked at anew from above.
        const FolderHandle same =
            filled ? openBelow(above.folder.fd(), level.name) : FolderHandle();
        if (same && same.id() == level.id) {
            read(level);
            m_levels.push_back(std::move(level));
        } else if (++above.readings < kMostReadings) {
            above.subfolders.push_back(std::move(level.name));
        } else {
            above.holdsRest = true;
            failed({RemovalObstacle::KeepsRefilling, {}});
        }
        return;
    }
    above.holdsRest = true;
    failed(failureOf(error, above.folder.fd(), level.name));
}

/// A folder whose handle was closed is opened again through its child. Where the child was moved
/// away meanwhile, everything up to the next open handle is given up.
bool TreeRemoval::reopenAbove(const FolderHandle& child)
{
    if (m_levels.back().folder)
        return true;
    FolderHandle above = child.openChild("..");
    if (above && above.id() == m_levels.back().id) {
        m_levels.back().folder = std::move(above);
        return true;
    }
    failed({RemovalObstacle::DeviceError, "its folders were moved meanwhile"});
    while (!m_levels.back().folder)
        m_levels.pop_back();
    m_levels.back().holdsRest = true;
    return false;
}

} // namespace pryvane
