#pragma once

#include "core/Files.h"
#include "core/Result.h"
#include "platform/FileSystem.h"
#include "volume/ImpliedLinks.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

/// What hosts do in ways of their own; CMake chooses the file that does it.
namespace pryvane {

/// What an opened folder is for: as the start of further calls, or to read its entries too.
enum class FolderUse : std::uint8_t { Search, Read };

struct OpenedFolder {
    UniqueFd fd;
    int error = 0; ///< errno, where there is no descriptor
};

/// Resolves paths inside one folder as a process would whose root that folder is: absolute paths
/// and link targets start there, ".." stops there. Whatever the paths or the links on the disk say,
/// nothing outside is reached. Implied links are followed like those on the disk. Callable from any
/// thread.
class ConfinedRoot {
public:
    virtual ~ConfinedRoot() = default;

    /// 0 when something stands at the path, links followed, else the errno. Opens nothing that
    /// could block or act.
    [[nodiscard]] virtual int probe(const std::string& path) const = 0;

    /// Opens the folder at the path, links followed. An empty path is the root itself.
    [[nodiscard]] virtual OpenedFolder openFolder(const std::string& path, FolderUse use) const = 0;
};

/// What a probe's errno says of the place.
[[nodiscard]] inline Presence presenceOf(int error)
{
    if (error == 0)
        return Presence::Present;
    return meansAbsent(error) ? Presence::Absent : Presence::Unknown;
}

/// Confinement by a component walk of our own, which every POSIX system can do. The descriptor must
/// outlive it.
[[nodiscard]] std::unique_ptr<ConfinedRoot> componentWalk(int rootFd, ImpliedLinks implied);

/// Confinement by the kernel, or nothing where the host has none. The descriptor must outlive it.
[[nodiscard]] std::unique_ptr<ConfinedRoot> kernelConfinement(int rootFd, ImpliedLinks implied);

/// The moments of the entry itself in that open folder.
[[nodiscard]] FileTimes timesOfEntry(int folder, const char* name);

/// Whether the file system of that open file or folder leaves out how many blocks a file has, as
/// those do that are run by a program in user space.
[[nodiscard]] bool leavesOutBlocks(int fd);

} // namespace pryvane
