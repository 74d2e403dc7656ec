#include "volume/VolumeFileSystem.h"

#include "core/Escape.h"
#include "core/Result.h"
#include "core/tasks/WorkCrew.h"
#include "volume/FolderStream.h"
#include "volume/HostVolume.h"
#include "volume/PathParts.h"
#include "volume/VolumeIdentity.h"
#include "volume/folders/FolderHandle.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

namespace pryvane {

namespace {

bool isHostRoot(int rootFd)
{
    struct stat volume {};
    struct stat host {};
    return fstat(rootFd, &volume) == 0 && stat("/", &host) == 0 && volume.st_dev == host.st_dev &&
           volume.st_ino == host.st_ino;
}

/// Drivers that leave out the file system's number or the birth time, as many in user space do,
/// give all their disks the same rest: such a disk has no identity.
std::string volumeIdentity(int rootFd)
{
    const auto identity = folderIdentity(rootFd);
    return identity && identity->isComplete ? identity->text : std::string();
}

DiskSource sourceOf(const std::string& hostFolder, bool isHostRoot)
{
    if (isHostRoot)
        return {DiskSource::Kind::ThisMac, {}};
    std::error_code ignored;
    const auto whole = std::filesystem::canonical(hostFolder, ignored);
    return {DiskSource::Kind::Folder, whole.filename().string()};
}

Error cannotOpen(std::string_view hostFolder, int error)
{
    constexpr std::string_view kAdvice = "give the folder at which the Mac disk is mounted";
    if (hostFolder.empty())
        return {"no volume was named; " + std::string(kAdvice)};
    std::string shown = "\"";
    shown.append(forScreen(hostFolder)).append("\"");
    if (error == ENOTDIR)
        return {shown + " is not a folder; " + std::string(kAdvice)};
    if (meansAbsent(error))
        return {"there is no folder " + shown + "; mount the Mac disk, then " +
                std::string(kAdvice)};
    if (error == EACCES || error == EPERM)
        return {shown + " cannot be read (" + errorText(error) +
                "); ask its owner for access, or run this with the rights to read it"};
    return {shown + " cannot be opened (" + errorText(error) +
            "); check that the disk is connected and mounted"};
}

} // namespace

/// Where something stands: a name in an open folder, with what stands there.
struct VolumeFileSystem::Place {
    UniqueFd parent;
    std::string name;
    struct stat data {};
    int error = 0; // errno, when nothing could be found
};

Result<std::unique_ptr<VolumeFileSystem>> VolumeFileSystem::open(std::string_view hostFolder,
                                                                 Options options)
{
    const std::string folder(hostFolder);
    UniqueFd rootFd(::open(folder.c_str(), O_RDONLY | O_NONBLOCK | O_DIRECTORY | O_CLOEXEC));
    if (!rootFd)
        return cannotOpen(hostFolder, errno);
    const ImpliedLinks implied =
        pryvane::isHostRoot(rootFd.get()) ? ImpliedLinks() : ImpliedLinks::ofRoot(rootFd.get());
    std::unique_ptr<ConfinedRoot> root;
    if (options.confinement == Confinement::BestAvailable)
        root = kernelConfinement(rootFd.get(), implied);
    if (!root)
        root = componentWalk(rootFd.get(), implied);
    if (const int error = root->probe("."))
        return cannotOpen(hostFolder, error);
    return std::unique_ptr<VolumeFileSystem>(new VolumeFileSystem(
        folder, std::move(rootFd), std::move(root), implied, options.nameMatching));
}

VolumeFileSystem::VolumeFileSystem(const std::string& hostFolder, UniqueFd rootFd,
                                   std::unique_ptr<ConfinedRoot> root, ImpliedLinks implied,
                                   NameMatching matching)
    : m_rootFd(std::move(rootFd)), m_root(std::move(root)), m_implied(implied),
      m_isHostRoot(pryvane::isHostRoot(m_rootFd.get())),
      m_matching(m_isHostRoot ? NameMatching::Exact : matching),
      m_identity(volumeIdentity(m_rootFd.get())), m_source(sourceOf(hostFolder, m_isHostRoot)),
      m_spellings(*m_root, m_implied)
{
}

bool VolumeFileSystem::isRoot(int folder) const
{
    struct stat root {};
    struct stat data {};
    return fstat(m_rootFd.get(), &root) == 0 && fstat(folder, &data) == 0 &&
           root.st_dev == data.st_dev && root.st_ino == data.st_ino;
}

Presence VolumeFileSystem::presence(const FileURL& url)
{
    const std::string& path = url.relativePath();
    const Presence exact = presenceOf(m_root->probe(path));
    if (exact != Presence::Absent || m_matching == NameMatching::Exact)
        return exact;
    const auto spelled = m_spellings.resolve(path, LeafLink::Follow);
    if (spelled.presence != Presence::Present)
        return spelled.presence;
    // What is remembered may be out of date.
    return presenceOf(m_root->probe("/" + spelled.path + (url.mustBeFolder() ? "/" : "")));
}

VolumeFileSystem::Place VolumeFileSystem::placeOf(const std::string& path, bool mustBeFolder) const
{
    Place place;
    if (path.empty()) {
        place.error = ENOENT;
        return place;
    }
    auto [parent, name] = parentAndName(path);
    auto opened = m_root->openFolder(parent, FolderUse::Search);
    place.parent = std::move(opened.fd);
    place.name = std::move(name);
    place.error = opened.error;
    if (place.error == 0 &&
        fstatat(place.parent.get(), place.name.c_str(), &place.data, AT_SYMLINK_NOFOLLOW) != 0)
        place.error = errno;
    if (place.error == ENOENT && place.parent) {
        // An implied link has no entry of its own: it is the folder behind it.
        if (const auto target = m_implied.targetOf(place.name);
            target && isRoot(place.parent.get()))
            return placeOf("/" + *target, mustBeFolder);
    }
    if (place.error == 0 && mustBeFolder && !S_ISDIR(place.data.st_mode) &&
        !S_ISLNK(place.data.st_mode))
        place.error = ENOTDIR;
    return place;
}

VolumeFileSystem::Place VolumeFileSystem::locate(const FileURL& url)
{
    Place exact = placeOf(url.relativePath(), url.mustBeFolder());
    if (m_matching == NameMatching::Exact || !meansAbsent(exact.error))
        return exact;
    const auto spelled = m_spellings.resolve(url.identity(), LeafLink::Keep);
    if (spelled.presence == Presence::Unknown)
        exact.error = EACCES;
    return spelled.presence == Presence::Present ? placeOf("/" + spelled.path, url.mustBeFolder())
                                                 : std::move(exact);
}

FileKind VolumeFileSystem::kind(const FileURL& url)
{
    const Place place = locate(url);
    if (place.error)
        return meansAbsent(place.error) ? FileKind::Missing : FileKind::Unknown;
    return kindOfMode(place.data.st_mode);
}

std::optional<Sighting> VolumeFileSystem::sighting(const FileURL& url)
{
    const Place place = locate(url);
    struct stat parent {};
    if (place.error || fstat(place.parent.get(), &parent) != 0)
        return std::nullopt;
    const FolderId folder = folderIdOf(parent);
    return Sighting{folder.device, folder.inode, kindOfMode(place.data.st_mode)};
}

std::optional<FileIdentity> VolumeFileSystem::fileIdentity(const FileURL& url)
{
    const Place place = locate(url);
    if (place.error)
        return std::nullopt;
    const FolderId id = folderIdOf(place.data);
    return FileIdentity{id.device, id.inode};
}

FolderListing VolumeFileSystem::list(const FileURL& folder)
{
    const std::string& path = folder.relativePath();
    if (path.empty())
        return {};
    if (m_matching == NameMatching::Exact)
        return readListing(m_root->openFolder(path, FolderUse::Read));

    const std::uint64_t generation = m_spellings.generation();
    const auto spelled = m_spellings.resolve(path, LeafLink::Follow);
    if (spelled.presence == Presence::Present) {
        auto listing = readListing(m_root->openFolder(spelled.path, FolderUse::Read));
        m_spellings.remember(spelled.path, listing, generation);
        return listing;
    }
    // Not there when last looked, or above it stands a folder that may be searched but not read.
    auto listing = readListing(m_root->openFolder(path, FolderUse::Read));
    if (listing.status == ListStatus::Missing && spelled.presence == Presence::Unknown) {
        listing.status = ListStatus::Refused;
        listing.reason = "a folder above it cannot be read";
    }
    return listing;
}

Measurable VolumeFileSystem::measurable(const FileURL& url)
{
    const Place place = locate(url);
    if (place.error)
        return {};
    if (!S_ISDIR(place.data.st_mode))
        return {{}, FileSizes().bytes(place.data, place.parent.get())};
    return {UniqueFd(openat(place.parent.get(), place.name.c_str(),
                            O_RDONLY | O_NONBLOCK | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)),
            0};
}

std::int64_t VolumeFileSystem::allocatedSize(const FileURL& url)
{
    Measurable place = measurable(url);
    return place.folder ? allocatedSizeBelow(std::move(place.folder)) : place.bytes;
}

int VolumeFileSystem::openFolder(const FileURL& folder)
{
    auto opened = m_root->openFolder(folder.relativePath(), FolderUse::Read);
    if (meansAbsent(opened.error) && m_matching == NameMatching::AsOnMac) {
        const auto spelled = m_spellings.resolve(folder.relativePath(), LeafLink::Follow);
        if (spelled.presence == Presence::Present)
            opened = m_root->openFolder("/" + spelled.path, FolderUse::Read);
    }
    errno = opened.error;
    return opened.fd.release();
}

bool VolumeFileSystem::writable(const FileURL& url)
{
    std::string path = url.relativePath();
    if (m_root->probe(path) != 0) {
        if (m_matching == NameMatching::Exact)
            return false;
        const auto spelled = m_spellings.resolve(path, LeafLink::Follow);
        if (spelled.presence != Presence::Present)
            return false;
        path = "/" + spelled.path;
    }
    if (const auto folder = m_root->openFolder(path, FolderUse::Search); folder.fd)
        return faccessat(folder.fd.get(), ".", W_OK, AT_EACCESS) == 0;
    for (int links = 0; links <= kMaxLinks; ++links) {
        const Place place = placeOf(path, false);
        if (place.error)
            return false;
        const auto target = linkTarget(place.parent.get(), place.name);
        if (!target)
            return faccessat(place.parent.get(), place.name.c_str(), W_OK,
                             AT_EACCESS | AT_SYMLINK_NOFOLLOW) == 0;
        path = target->starts_with('/') ? *target : joinedPath(parentAndName(path).parent, *target);
    }
    return false;
}

FileTimes VolumeFileSystem::times(const FileURL& url)
{
    const Place place = locate(url);
    return place.error ? FileTimes() : timesOfEntry(place.parent.get(), place.name.c_str());
}

Result<UniqueFd> VolumeFileSystem::openRegularFile(const FileURL& url)
{
    const Place place = locate(url);
    if (place.error)
        return Error{errorText(place.error)};
    // Looked at before it is opened, since opening a device can act on it; and again afterwards.
    struct stat data = place.data;
    UniqueFd fd;
    if (S_ISREG(data.st_mode)) {
        fd = UniqueFd(openat(place.parent.get(), place.name.c_str(),
                             O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC));
        if (!fd || fstat(fd.get(), &data) != 0)
            return Error{errorText(errno)};
    }
    if (!S_ISREG(data.st_mode))
        return Error{"not a regular file"};
    return fd;
}

std::optional<std::string> VolumeFileSystem::spelledPath(const FileURL& url)
{
    const Place exact = placeOf(url.relativePath(), url.mustBeFolder());
    if (exact.error == 0)
        return url.absolutePath();
    if (m_matching == NameMatching::Exact || !meansAbsent(exact.error))
        return std::nullopt;
    const auto spelled = m_spellings.resolve(url.identity(), LeafLink::Keep);
    if (spelled.presence != Presence::Present ||
        placeOf("/" + spelled.path, url.mustBeFolder()).error != 0)
        return std::nullopt;
    return "/" + spelled.path;
}

VolumeFileSystem::Parent VolumeFileSystem::openParent(const FileURL& url) const
{
    Place place = placeOf(url.relativePath(), url.mustBeFolder());
    if (m_matching == NameMatching::AsOnMac && meansAbsent(place.error)) {
        SpellingResolver fresh(*m_root, m_implied);
        const auto spelled = fresh.resolve(url.identity(), LeafLink::Keep);
        if (spelled.presence == Presence::Present)
            place = placeOf("/" + spelled.path, url.mustBeFolder());
    }
    return {std::move(place.parent), std::move(place.name), place.error};
}

std::string VolumeFileSystem::placeBehindLinks(const FileURL& url) const
{
    auto resolved = SpellingResolver(*m_root, m_implied).resolve(url.identity(), LeafLink::Keep);
    return resolved.presence == Presence::Present ? "/" + resolved.path : std::string();
}

VolumeSizeMeter::VolumeSizeMeter(VolumeFileSystem& volume)
    : VolumeSizeMeter(volume, CrewSize::usualThreads())
{
}

void VolumeSizeMeter::measure(std::span<const FileURL> locations, const StopFlag& stop,
                              SizeProgress& progress, const Told& told)
{
    allocatedSizes(
        locations.size(), m_threads,
        [&](std::size_t location) { return m_volume.measurable(locations[location]); }, stop,
        progress, told);
}

} // namespace pryvane
