#include "removal/disk/TargetRemoval.h"

#include <cerrno>
#include <exception>
#include <unistd.h>

namespace pryvane {

RemovalResult TargetRemoval::run()
{
    const bool contentsOnly = m_item.scope == RemovalScope::ContentsOf;
    try {
        for (auto seen = act(); seen && m_tree.mayRetry(*seen);)
            seen = act();
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
std::optional<TreeRemoval::Meddling> TargetRemoval::act()
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
        return std::nullopt;
    if (standing->kind == FileKind::Folder)
        return actOnFolder();
    if (m_tree.removeFile(parent, m_target.name))
        return std::nullopt;
    return TreeRemoval::Meddling::Exchanged;
}

std::optional<TreeRemoval::Meddling> TargetRemoval::actOnFolder()
{
    using enum TreeRemoval::Meddling;
    const int parent = m_target.parent.get();
    const bool contentsOnly = m_item.scope == RemovalScope::ContentsOf;
    m_emptied = openBelow(parent, m_target.name);
    int error = m_emptied ? 0 : errno;
    if (m_places.contains(m_emptied.id())) {
        m_tree.failed({RemovalObstacle::ProtectedPlace, {}});
        return std::nullopt;
    }
    const bool heldAny = m_emptied && m_tree.empty(m_emptied.duplicate());
    if (m_tree.failure())
        return std::nullopt;
    if (contentsOnly && m_emptied)
        return heldAny ? std::optional(Filled) : std::nullopt;
    if (!contentsOnly && (error == 0 || error == EACCES)) // an empty one goes without being read
        error = m_tree.removeFolder(parent, m_target.name);
    if (error == ENOTEMPTY || error == EEXIST)
        return Filled;
    if (error == ENOENT || error == ENOTDIR || error == ELOOP)
        return Exchanged;
    if (error == EACCES && !m_emptied)
        m_tree.failed(unreadable(error));
    else if (error)
        m_tree.failed(error, parent, m_target.name);
    return std::nullopt;
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
