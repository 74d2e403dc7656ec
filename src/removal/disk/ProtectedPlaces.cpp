#include "removal/disk/ProtectedPlaces.h"

#include "core/Result.h"
#include "volume/FoldedName.h"
#include "volume/VolumeFileSystem.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <tuple>

namespace pryvane {

namespace {

constexpr std::size_t kMostRemembered = 4'000'000;

/// Calls `told` with each name in the folder until that is true.
template <typename Told>
void eachName(int folder, const Told& told)
{
    FolderHandle handle = FolderHandle::openIn(folder, ".");
    FolderBatch batch;
    FolderBatch::Entry entry;
    while (handle && batch.fill(handle)) {
        while (batch.next(entry))
            if (told(entry.name))
                return;
        if (batch.atEnd())
            return;
    }
}

} // namespace

std::string OtherSpellings::of(int folder, const std::string& removed)
{
    const FolderHandle handle = FolderHandle::openIn(folder, ".");
    const FolderId id = handle.id();
    const auto known = m_known.find({id.device, id.inode});
    if (known == m_known.end()) {
        Hashes hashes = hashesIn(folder);
        if (m_remembered + hashes.size() > kMostRemembered) {
            m_known.clear();
            m_remembered = 0;
        }
        m_remembered += hashes.size();
        m_known.emplace(std::pair(id.device, id.inode), std::move(hashes));
        return find(folder, removed);
    }
    // The removed one was read with the others, so that only a second one tells something.
    const auto [first, last] =
        std::equal_range(known->second.begin(), known->second.end(), foldedHash(removed, m_key));
    return last - first > 1 ? find(folder, removed) : std::string();
}

std::string OtherSpellings::find(int folder, const std::string& removed)
{
    std::string found;
    eachName(folder, [&](std::string_view name) {
        if (name == removed || !sameFoldedName(name, removed))
            return false;
        found = name;
        return true;
    });
    return found;
}

OtherSpellings::Hashes OtherSpellings::hashesIn(int folder) const
{
    Hashes hashes;
    eachName(folder, [&](std::string_view name) {
        hashes.push_back(foldedHash(name, m_key));
        return false;
    });
    std::ranges::sort(hashes);
    return hashes;
}

namespace {

bool before(const FolderId& a, const FolderId& b)
{
    return std::tie(a.device, a.inode) < std::tie(b.device, b.inode);
}

bool isAnyOf(std::string_view name, std::span<const std::string_view> names)
{
    return std::ranges::any_of(names, [&](auto other) { return sameFoldedName(name, other); });
}

/// Where accounts have their homes: on a Mac, and on a Linux host whose root is looked at.
constexpr std::array<std::string_view, 2> kHomesIn = {"Users", "home"};

/// What systems keep as links in the root.
constexpr std::array<std::string_view, 5> kSystemsLinks = {"etc", "tmp", "var", "Users", "home"};

/// A handle to look from, which asks for no right to read.
UniqueFd openToSearch(int folder, const char* path)
{
    return UniqueFd(openat(folder, path, kToSearch));
}

} // namespace

ProtectedPlaces::ProtectedPlaces(const VolumeFileSystem& disk,
                                 const std::vector<std::string>& ownFolders)
{
    m_root = add(disk.rootHandle());
    addWithAllAbove(openToSearch(disk.rootHandle(), "."));
    addEntriesOf(disk, {}, openToSearch(disk.rootHandle(), "."));
    for (const std::string_view name : ImpliedLinks::kNames) {
        const std::string inside = "/" + std::string(name) + "/.";
        if (const auto behind = disk.openParent(FileURL::fileURLWithPath(inside)); behind.parent)
            add(behind.parent.get());
        else
            cannotTell(behind.error);
    }
    for (const std::string& path : ownFolders) {
        if (UniqueFd folder = openToSearch(AT_FDCWD, path.c_str())) {
            m_own.push_back(add(folder.get()));
            addWithAllAbove(std::move(folder));
        } else {
            cannotTell(errno);
        }
    }
    std::ranges::sort(m_places, before);
}

/// The folders in the root, behind the system's own links too, and those where homes are.
void ProtectedPlaces::addEntriesOf(const VolumeFileSystem& disk, const std::string& path,
                                   UniqueFd folder)
{
    FolderHandle reading = FolderHandle::openIn(folder.get(), ".");
    if (!reading)
        cannotTell(errno);
    FolderBatch batch;
    FolderBatch::Entry entry;
    while (reading && !batch.atEnd()) {
        if (!batch.fill(reading))
            return cannotTell(errno);
        while (batch.next(entry))
            addEntry(disk, path, folder, entry);
    }
}

void ProtectedPlaces::addEntry(const VolumeFileSystem& disk, const std::string& path,
                               const UniqueFd& folder, const FolderBatch::Entry& entry)
{
    const std::string name(entry.name);
    const bool isLink = entry.kind == FileKind::SymbolicLink;
    const bool mayLead =
        isLink || entry.kind == FileKind::Folder || entry.kind == FileKind::Unknown;
    if (!mayLead || (isLink && path.empty() && !isAnyOf(name, kSystemsLinks)))
        return;
    UniqueFd child;
    if (isLink) {
        std::string behind = path;
        behind.append("/").append(name).append("/.");
        auto found = disk.openParent(FileURL::fileURLWithPath(behind));
        child = std::move(found.parent);
        errno = found.error;
    } else {
        child = UniqueFd(openat(folder.get(), name.c_str(), kToSearch | O_NOFOLLOW));
    }
    if (!child)
        return cannotTell(errno);
    const FolderId id = add(child.get());
    if (path.empty() && isAnyOf(name, kHomesIn)) {
        m_homesIn.push_back(id);
        addEntriesOf(disk, "/" + name, std::move(child));
    }
}

void ProtectedPlaces::addWithAllAbove(UniqueFd folder)
{
    FolderId below;
    while (folder) {
        const FolderId id = add(folder.get());
        if (id == below)
            return; // the host's root is above itself
        below = id;
        folder = openToSearch(folder.get(), "..");
    }
    cannotTell(errno);
}

FolderId ProtectedPlaces::add(int folder)
{
    const auto facts = factsOf(folder, {});
    if (!facts) {
        cannotTell(errno);
        return {};
    }
    m_places.push_back(facts->id);
    return facts->id;
}

/// What is not there needs no protection. What may not be read is known by the folder that it lies
/// in, and what may not even be searched cannot be reached by whoever removes. Any other failure
/// may hide a home.
void ProtectedPlaces::cannotTell(int error)
{
    if (m_failure || meansAbsent(error) || error == EACCES || error == EPERM)
        return;
    m_failure = {RemovalObstacle::DeviceError,
                 "which folders must stay cannot be told: " + errorText(error)};
}

bool ProtectedPlaces::contains(const FolderId& folder) const
{
    return std::ranges::binary_search(m_places, folder, before);
}

bool ProtectedPlaces::keepsIn(const FolderId& folder, const std::string& name, FileKind kind) const
{
    const bool leadsOn = kind == FileKind::Folder || kind == FileKind::SymbolicLink;
    if (std::ranges::find(m_own, folder) != m_own.end())
        return true;
    if (std::ranges::find(m_homesIn, folder) != m_homesIn.end())
        return leadsOn;
    return folder == m_root &&
           (kind == FileKind::Folder || (leadsOn && isAnyOf(name, kSystemsLinks)));
}

} // namespace pryvane
