#include "volume/HostVolume.h"
#include "volume/PathParts.h"

#include <climits>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace pryvane {

namespace {

/// Opens in the kernel's confinement, or returns -1 with errno set. The kernel gives up with EAGAIN
/// when anything on the machine was renamed while it climbed a "..": mostly the next try succeeds.
int openInRoot(int rootFd, const char* path, int flags, std::uint64_t resolve = 0)
{
    constexpr int kTries = 16;
    open_how how{};
    how.flags = static_cast<std::uint64_t>(flags | O_CLOEXEC);
    how.resolve = RESOLVE_IN_ROOT | RESOLVE_NO_MAGICLINKS | resolve;
    long fd = -1;
    for (int i = 0; i < kTries; ++i) {
        fd = syscall(SYS_openat2, rootFd, path, &how, sizeof how);
        if (fd >= 0 || (errno != EAGAIN && errno != EINTR))
            break;
    }
    return static_cast<int>(fd);
}

class KernelRoot final : public ConfinedRoot {
public:
    KernelRoot(int rootFd, ImpliedLinks implied)
        : m_rootFd(rootFd), m_implied(implied), m_walk(componentWalk(rootFd, implied))
    {
    }

    [[nodiscard]] int probe(const std::string& path) const override
    {
        if (tooLong(path))
            return m_walk->probe(path);
        const int error = UniqueFd(openInRoot(m_rootFd, path.c_str(), O_PATH)) ? 0 : errno;
        return mayLeadOn(error, path) ? m_walk->probe(path) : error;
    }

    [[nodiscard]] OpenedFolder openFolder(const std::string& path, FolderUse use) const override
    {
        if (tooLong(path))
            return m_walk->openFolder(path, use);
        const int flags = O_DIRECTORY | (use == FolderUse::Read ? O_RDONLY | O_NONBLOCK : O_PATH);
        UniqueFd fd(openInRoot(m_rootFd, path.empty() ? "." : path.c_str(), flags));
        const int error = fd ? 0 : errno;
        if (mayLeadOn(error, path))
            return m_walk->openFolder(path, use);
        return {std::move(fd), error};
    }

private:
    /// Whether the kernel's error is not the last word on a path: where it gave up because of what
    /// others rename, or found nothing where an implied link, which it does not know, may be on
    /// the way, at the path's beginning or behind a link of the disk.
    [[nodiscard]] bool mayLeadOn(int error, const std::string& path) const
    {
        if (error == EAGAIN)
            return true;
        if (error != ENOENT || !m_implied.any())
            return false;
        std::size_t at = 0;
        const auto first = nextName(path, at);
        if (!first || m_implied.targetOf(*first) || path.find("..") != std::string::npos)
            return first.has_value();
        return !UniqueFd(openInRoot(m_rootFd, path.c_str(), O_PATH, RESOLVE_NO_SYMLINKS)) &&
               errno == ELOOP;
    }

    [[nodiscard]] static bool tooLong(const std::string& path) { return path.size() >= PATH_MAX; }

    int m_rootFd;
    ImpliedLinks m_implied;
    std::unique_ptr<ConfinedRoot> m_walk; // for what one system call cannot do
};

} // namespace

std::unique_ptr<ConfinedRoot> kernelConfinement(int rootFd, ImpliedLinks implied)
{
    // Kernels before 5.6 do not know the call, and some containers forbid it with EPERM.
    if (const UniqueFd self(openInRoot(rootFd, ".", O_PATH)); !self && errno != EACCES)
        return nullptr;
    return std::make_unique<KernelRoot>(rootFd, implied);
}

} // namespace pryvane
