#include "platform/posix/removal/ProtectedPlaces.h"

#include "platform/posix/FoldedName.h"
#include "platform/posix/VolumeFileSystem.h"

#include <algorithm>
#include <fcntl.h>
#include <tuple>

namespace pryvane {

namespace {

bool before(const FolderId& a, const FolderId& b)
{
    return std::tie(a.device, a.inode) < std::tie(b.device, b.inode);
}

/// Where accounts have their homes: on a Mac, and on a Linux host whose root is looked at.
bool holdsHomes(std::string_view name)
{
    return sameFoldedName(name, "Users") || name == "home";
}

} // namespace

ProtectedPlaces::ProtectedPlaces(const VolumeFileSystem& disk,
                                 const std::vector<std::string>& ownFolders)
{
    FolderHandle root = FolderHandle::openIn(disk.rootHandle(), ".");
    m_root = root.id();
    addWithAllAbove(root.duplicate()); // of a volume that is a folder of the host, those too
    addChildren(root);
    for (const std::string& folder : ownFolders)
        addWithAllAbove(FolderHandle::openIn(AT_FDCWD, folder.c_str()));
    std::ranges::sort(m_places, before);
}

void ProtectedPlaces::add(const FolderHandle& folder)
{
    if (const FolderId id = folder.id(); folder && id != FolderId())
        m_places.push_back(id);
}

/// The top-level folders, and the homes in those that hold homes.
void ProtectedPlaces::addChildren(const FolderHandle& folder)
{
    FolderHandle reading = folder.openChild(".");
    FolderBatch batch;
    FolderBatch::Entry entry;
    while (reading && batch.fill(reading)) {
        while (batch.next(entry)) {
            const FolderHandle child = reading.openChild(entry.name.data());
            add(child);
            if (child && folder.id() == m_root && holdsHomes(entry.name))
                addChildren(child);
        }
        if (batch.atEnd())
            break;
    }
}

void ProtectedPlaces::addWithAllAbove(FolderHandle folder)
{
    while (folder) {
        add(folder);
        FolderHandle above = folder.openChild("..");
        if (above.id() == folder.id())
            break;
        folder = std::move(above);
    }
}

bool ProtectedPlaces::contains(const FolderId& folder) const
{
    return std::ranges::binary_search(m_places, folder, before);
}

bool ProtectedPlaces::isRoot(const FolderId& folder) const
{
    return folder == m_root;
}

} // namespace pryvane
