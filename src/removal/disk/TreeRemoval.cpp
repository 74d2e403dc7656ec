#include "removal/disk/TreeRemoval.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace pryvane {

namespace {

// As much of a folder's names as is read at once; what stands behind comes with another reading.
constexpr std::size_t kMostNames = std::size_t{16} * 1024 * 1024;

// So many entries may turn up in folders that had already been emptied. Whoever makes more will
// hardly stop at that.
constexpr std::size_t kMostRefill = 20'000;

// No honest tree is deeper. Below that a confined thread gets ever slower, since the kernel climbs
// to the volume's root at each of its calls.
constexpr std::size_t kDeepest = 256;

} // namespace

bool TreeRemoval::empty(FolderHandle folder)
{
    const bool heldAny = enter(std::move(folder), {});
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
    return heldAny;
}

void TreeRemoval::failed(int error, int folder, const std::string& name)
{
    if (!m_failure)
        m_failure = failureOf(error, folder, name);
}

void TreeRemoval::failed(RemovalFailure failure)
{
    if (!m_failure)
        m_failure = std::move(failure);
}

bool TreeRemoval::enter(FolderHandle folder, std::string name)
{
    Level level;
    level.id = folder.id();
    level.refilled = level.id == m_lastEmptied || (!m_levels.empty() && m_levels.back().refilled);
    level.folder = std::move(folder);
    level.name = std::move(name);
    const bool heldAny = read(level);
    m_levels.push_back(std::move(level));
    // The topmost stays open, as the one to fall back to.
    if (m_levels.size() > kMostHandles)
        m_levels[m_levels.size() - kMostHandles].folder.close();
    return heldAny;
}

/// Notes the folders in a folder and removes the rest, but only when all is read: reading is
/// quicker than making, so that it comes to an end even where somebody fills the folder meanwhile.
bool TreeRemoval::read(Level& level)
{
    const std::size_t found = readNames(level);
    if (level.refilled)
        m_refill += found;
    if (level.refilled && m_refill > kMostRefill) {
        level.holdsRest = true;
        level.subfolders.clear();
        m_files.clear();
        failed({RemovalObstacle::KeepsRefilling, {}});
    }
    while (!m_files.empty() && !m_stop.requested()) {
        const std::string name = m_files.take();
        if (!removeFile(level.folder.fd(), name))
            level.subfolders.add(name);
    }
    m_files.clear();
    return found > 0;
}

std::size_t TreeRemoval::readNames(Level& level)
{
    std::size_t found = 0;
    FolderBatch::Entry entry;
    do {
        if (!m_batch.fill(level.folder)) {
            level.holdsRest = true;
            failed(unreadable(errno));
            return found;
        }
        for (; m_batch.next(entry); ++found)
            (entry.kind == FileKind::Folder ? level.subfolders : m_files).add(entry.name);
    } while (!m_batch.atEnd() && level.subfolders.bytes() + m_files.bytes() < kMostNames);
    level.readWhole = m_batch.atEnd();
    return found;
}

bool TreeRemoval::removeFile(int folder, const std::string& name)
{
    const auto facts = factsOf(folder, name);
    if (facts && facts->kind == FileKind::Folder)
        return false;
    if (facts && unlinkat(folder, name.c_str(), 0) == 0) {
        ++m_entries;
        m_bytes += facts->bytes;
        return true;
    }
    const int error = errno;
    // Exchanged for a folder since it was looked at; hosts tell that in two ways.
    if (error == EISDIR || (error == EPERM && kindAt(folder, name.c_str()) == FileKind::Folder))
        return false;
    if (error != ENOENT)
        failed(error, folder, name);
    return true;
}

int TreeRemoval::removeFolder(int folder, const std::string& name)
{
    if (unlinkat(folder, name.c_str(), AT_REMOVEDIR) == 0)
        ++m_entries;
    else if (errno != ENOENT)
        return errno;
    return 0;
}

void TreeRemoval::descend(Level& level)
{
    const std::string name = level.subfolders.take();
    const int above = level.folder.fd();
    FolderHandle child = openBelow(above, name);
    if (child && !m_places.contains(child.id())) {
        if (m_levels.size() < kDeepest || !hoist(name))
            enter(std::move(child), name);
        return;
    }
    const int error = child ? 0 : errno;
    if (error == ENOENT)
        return;
    if (error == ENOTDIR || error == ELOOP) { // exchanged meanwhile; a link goes unfollowed
        if (!removeFile(above, name))
            retry(level, name, Meddling::Exchanged);
        return;
    }
    if (error == EACCES && removeFolder(above, name) == 0)
        return; // an empty folder goes without being read
    level.holdsRest = true;
    if (error == 0)
        failed({RemovalObstacle::ProtectedPlace, {}});
    else if (error == EACCES)
        failed(unreadable(error));
    else
        failed(error, above, name);
}

/// Moves a folder that lies very deep to the top, where its turn comes later. Whatever stands there
/// by now, it belongs to what is being removed.
bool TreeRemoval::hoist(const std::string& name)
{
    Level& top = m_levels.front();
    const std::string free = "pryvane-removes-" + std::to_string(++m_hoisted);
    if (renameat(m_levels.back().folder.fd(), name.c_str(), top.folder.fd(), free.c_str()) != 0)
        return false;
    top.subfolders.add(free);
    return true;
}

/// Removes the emptied folder from the one above it.
void TreeRemoval::leave()
{
    const Level level = std::move(m_levels.back());
    m_levels.pop_back();
    m_lastEmptied = level.readWhole ? level.id : FolderId();
    if (m_levels.empty() || !reopen(level.folder))
        return; // the folder itself is the caller's
    Level& above = m_levels.back();
    if (level.holdsRest) {
        above.holdsRest = true;
        return;
    }
    const int error = removeFolder(above.folder.fd(), level.name);
    if (error == ENOTEMPTY || error == EEXIST || error == ENOTDIR) {
        retry(above, level.name, error == ENOTDIR ? Meddling::Exchanged : Meddling::Filled);
    } else if (error) {
        above.holdsRest = true;
        failed(error, above.folder.fd(), level.name);
    }
}

bool TreeRemoval::mayRetry(Meddling seen, std::string_view detail)
{
    m_exchanges += seen == Meddling::Exchanged ? 1 : 0;
    if (++m_retries <= kMostRetries)
        return true;
    const bool mostlyExchanged = m_exchanges > m_retries / 2;
    failed({mostlyExchanged ? RemovalObstacle::KeepsChanging : RemovalObstacle::KeepsRefilling,
            std::string(detail)});
    return false;
}

void TreeRemoval::retry(Level& level, const std::string& name, Meddling seen)
{
    if (mayRetry(seen))
        level.subfolders.add(name);
    else
        level.holdsRest = true;
}

/// A folder whose handle was closed is opened again through its child. Where the child was moved
/// away meanwhile, the next folder above that is still open is read anew; false then.
bool TreeRemoval::reopen(const FolderHandle& child)
{
    if (m_levels.back().folder)
        return true;
    m_levels.back().folder = child.openParent(m_levels.back().id);
    if (m_levels.back().folder)
        return true;
    while (!m_levels.back().folder)
        m_levels.pop_back();
    Level& level = m_levels.back();
    FolderHandle again;
    if (mayRetry(Meddling::Exchanged, "its folders are moved meanwhile"))
        again = level.folder.openChild(".");
    if (again) {
        level.folder = std::move(again);
        level.subfolders.clear();
        read(level);
    } else {
        level.holdsRest = true;
        failed(unreadable(errno)); // where it was tried once more
    }
    return false;
}

} // namespace pryvane
