#include "platform/posix/AllocatedSize.h"

#include "platform/posix/FolderStream.h"

#include <fcntl.h>
#include <optional>
#include <set>
#include <string>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace pryvane {

namespace {

using FileId = std::pair<dev_t, ino_t>;
constexpr int kFolderFlags = O_RDONLY | O_NONBLOCK | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
constexpr std::size_t kHeld = 30;

std::optional<FileId> idOf(int fd)
{
    struct stat data {};
    if (fstat(fd, &data) != 0)
        return std::nullopt;
    return FileId(data.st_dev, data.st_ino);
}

/// One folder on the way down: read whole when entered, so that its handle may be closed and
/// opened again while its subfolders are visited.
struct Level {
    FileId id;
    UniqueFd fd;
    std::vector<std::string> subfolders; // still to be visited, the last first
};

class Measure {
public:
    std::int64_t run(UniqueFd folder)
    {
        enter(std::move(folder));
        while (!m_levels.empty()) {
            Level& level = m_levels.back();
            if (level.subfolders.empty()) {
                leave();
                continue;
            }
            const std::string name = std::move(level.subfolders.back());
            level.subfolders.pop_back();
            enter(UniqueFd(openat(level.fd.get(), name.c_str(), kFolderFlags)));
        }
        return m_bytes;
    }

private:
    void enter(UniqueFd fd)
    {
        const auto id = fd ? idOf(fd.get()) : std::nullopt;
        // A damaged or hostile disk may hold a folder inside itself.
        if (!id || !m_above.insert(*id).second)
            return;
        m_levels.push_back({*id, std::move(fd), {}});
        read(m_levels.back());
        // The topmost stays open, as the one to fall back to.
        if (m_levels.size() > kHeld)
            m_levels[m_levels.size() - kHeld].fd.reset();
    }

    void read(Level& level)
    {
        FolderStream stream(UniqueFd(fcntl(level.fd.get(), F_DUPFD_CLOEXEC, 0)));
        FolderStream::Entry entry;
        while (stream.next(entry)) {
            struct stat data {};
            if (entry.kind == FileKind::Folder)
                level.subfolders.emplace_back(entry.name);
            else if (fstatat(level.fd.get(), entry.name, &data, AT_SYMLINK_NOFOLLOW) == 0 &&
                     !S_ISDIR(data.st_mode))
                m_bytes += std::int64_t{data.st_blocks} * 512;
        }
    }

    /// Goes up one level. A parent whose handle was closed is opened again through "..", unless
    /// the folder was moved meanwhile: then the rest up to the next open handle is given up.
    void leave()
    {
        const UniqueFd child = std::move(m_levels.back().fd);
        drop();
        if (m_levels.empty() || m_levels.back().fd)
            return;
        UniqueFd parent(openat(child.get(), "..", kFolderFlags));
        if (parent && idOf(parent.get()) == m_levels.back().id)
            m_levels.back().fd = std::move(parent);
        else
            while (!m_levels.back().fd)
                drop();
    }

    void drop()
    {
        m_above.erase(m_levels.back().id);
        m_levels.pop_back();
    }

    std::vector<Level> m_levels;
    std::set<FileId> m_above; // the levels' identities
    std::int64_t m_bytes = 0;
};

} // namespace

std::int64_t allocatedSizeBelow(UniqueFd folder)
{
    return Measure().run(std::move(folder));
}

} // namespace pryvane
