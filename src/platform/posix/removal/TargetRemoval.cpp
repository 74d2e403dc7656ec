#include "platform/posix/removal/TargetRemoval.h"

#include <cerrno>
#include <exception>
#include <unistd.h>

namespace pryvane {

RemovalResult TargetRemoval::run()
{
    const bool contentsOnly = m_item.scope == RemovalScope::ContentsOf;
    try {
        while (!act())
            if (!m_tree.mayRetry())
                m_tree.failed({RemovalObstacle::KeepsRefilling, {}});
        if (!m_tree.failure() && m_tree.entriesRemoved() > 0)
            sync();
    } catch (const std::exception& error) {
        m_tree.failed({RemovalObstacle::DeviceError, error.what()});
    }
    RemovalResult result;
    result.entriesRemoved = m_tree.entriesRemoved();
    result.bytesRemoved = m_tree.bytesRemoved();
    result.obstacle = m_tree.failure().obstacle;
    result.detail = m_tree.failure().detail;
    if (!m_tree.failure())
        result.outcome = result.entriesRemoved > 0 || contentsOnly ? RemovalOutcome::Removed
                                                                   : RemovalOutcome::AlreadyGone;
    return result;
}

/// What stands there may be exchanged at any moment, so each try looks again and is held to what it
/// saw by the calls themselves: no file is opened as a folder, no folder unlinked as a file.
bool TargetRemoval::act()
{
    const int parent = m_target.parent.get();
    const auto standing = factsOf(parent, m_target.name);
    if (m_stop.requested())
        m_tree.failed({RemovalObstacle::Stopped, {}});
    else if (!standing && errno != ENOENT)
        m_tree.failed(errno, parent, m_target.name);
    else if (standing)
        m_tree.failed(refusalOf(m_item, m_target, *standing, m_places));
    if (m_tree.failure() || !standing || isOtherThanAsked(m_item, *standing))
        return true;
    return standing->kind == FileKind::Folder ? actOnFolder()
                                              : m_tree.removeFile(parent, m_target.name);
}

bool TargetRemoval::actOnFolder()
{
    const int parent = m_target.parent.get();
    const bool contentsOnly = m_item.scope == RemovalScope::ContentsOf;
    m_emptied = openBelow(parent, m_target.name);
    int error = m_emptied ? 0 : errno;
    if (m_places.contains(m_emptied.id())) {
        m_tree.failed({RemovalObstacle::ProtectedPlace, {}});
        return true;
    }
    const bool heldAny = m_emptied && m_tree.empty(m_emptied.duplicate());
    if (m_tree.failure())
        return true;
    if (contentsOnly && m_emptied)
        return !heldAny;
    if (!contentsOnly && (error == 0 || error == EACCES)) // an empty one goes without being read
        error = m_tree.removeFolder(parent, m_target.name);
    if (error == ENOENT || error == ENOTEMPTY || error == EEXIST || error == ENOTDIR ||
        error == ELOOP)
        return false; // filled or exchanged meanwhile
    if (error == EACCES && !m_emptied)
        m_tree.failed(unreadable(error));
    else if (error)
        m_tree.failed(error, parent, m_target.name);
    return true;
}

/// Only what is on the device counts as removed.
void TargetRemoval::sync()
{
    const bool contentsOnly = m_item.scope == RemovalScope::ContentsOf;
    const FolderHandle changed =
        contentsOnly ? m_emptied.duplicate() : FolderHandle::openIn(m_target.parent.get(), ".");
    if (!changed)
        ::sync(); // a folder that may be changed but not read cannot be synced by itself
    else if (fsync(changed.fd()) != 0 && errno != EINVAL) // some file systems have nothing to sync
        m_tree.failed(unreadable(errno));
}

} // namespace pryvane
