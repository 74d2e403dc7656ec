#include "volume/HostVolume.h"
#include "volume/PathParts.h"
#include "volume/folders/FolderHandle.h"

#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace pryvane {

namespace {

constexpr int kStepFlags = kToSearch | O_NOFOLLOW;

/// The folders from the root down to where the walk stands. The latest few are held open; going up
/// to an older one opens it again from the root by its real names, so ".." never asks the disk.
class FolderStack {
public:
    explicit FolderStack(int rootFd) : m_rootFd(rootFd) {}

    [[nodiscard]] bool isAtRoot() const { return m_levels.empty(); }
    [[nodiscard]] int top() const { return m_levels.empty() ? m_rootFd : m_levels.back().fd.get(); }

    void toRoot() { m_levels.clear(); }

    void push(std::string_view name, UniqueFd fd)
    {
        m_levels.push_back({std::string(name), std::move(fd)});
        if (m_levels.size() > kHeld)
            m_levels[m_levels.size() - 1 - kHeld].fd.reset();
    }

    /// 0, or the errno of opening the parent again.
    [[nodiscard]] int pop()
    {
        if (!m_levels.empty())
            m_levels.pop_back();
        return m_levels.empty() || m_levels.back().fd ? 0 : reopen();
    }

private:
    static constexpr std::size_t kHeld = 32;
    struct Level {
        std::string name;
        UniqueFd fd;
    };

    [[nodiscard]] int reopen()
    {
        std::vector<Level> names = std::move(m_levels);
        m_levels.clear();
        for (const Level& level : names) {
            UniqueFd next(openat(top(), level.name.c_str(), kStepFlags));
            if (!next)
                return errno;
            push(level.name, std::move(next));
        }
        return 0;
    }

    int m_rootFd;
    std::vector<Level> m_levels;
};

/// One resolution. Stops before the last name, which the caller treats in its own way.
class Walk {
public:
    Walk(int rootFd, ImpliedLinks implied, const std::string& path)
        : m_folders(rootFd), m_implied(implied), m_pending(path)
    {
    }

    /// Follows the path to its end. 0, or the errno that ended it. Afterwards folder() and leaf()
    /// name what stands there; an empty leaf is the folder itself.
    [[nodiscard]] int run()
    {
        if (m_pending.empty())
            return 0;
        while (true) {
            const auto name = nextName(m_pending, m_at);
            if (!name)
                return 0;
            if (*name == "." || *name == "..") {
                if (const int error = step(*name))
                    return error;
                continue;
            }
            const bool last = isLastName(m_pending, m_at);
            const bool mustBeFolder = !last || m_pending.back() == '/';
            if (const int error = enter(std::string(*name), mustBeFolder))
                return error;
            if (!m_leaf.empty())
                return 0;
        }
    }

    [[nodiscard]] int folder() const { return m_folders.top(); }
    [[nodiscard]] const std::string& leaf() const { return m_leaf; }

private:
    /// "." and ".." need the right to search the folder they stand in.
    [[nodiscard]] int step(std::string_view dots)
    {
        if (const UniqueFd self(openat(m_folders.top(), ".", kStepFlags)); !self)
            return errno;
        return dots == ".." ? m_folders.pop() : 0;
    }

    [[nodiscard]] int enter(const std::string& name, bool mustBeFolder)
    {
        if (mustBeFolder) {
            UniqueFd next(openat(m_folders.top(), name.c_str(), kStepFlags));
            if (next) {
                m_folders.push(name, std::move(next));
                return 0;
            }
            if (errno == ENOENT)
                return missing(name);
            if (errno != ENOTDIR && errno != ELOOP)
                return errno;
        }
        if (auto target = linkTarget(m_folders.top(), name))
            return follow(std::move(*target));
        if (errno == ENOENT)
            return missing(name);
        if (errno != EINVAL)
            return errno;
        if (mustBeFolder)
            return ENOTDIR;
        m_leaf = name;
        return 0;
    }

    [[nodiscard]] int missing(const std::string& name)
    {
        auto target = m_folders.isAtRoot() ? m_implied.targetOf(name) : std::nullopt;
        return target ? follow(std::move(*target)) : ENOENT;
    }

    [[nodiscard]] int follow(std::string target)
    {
        if (++m_links > kMaxLinks)
            return ELOOP;
        if (target.empty())
            return ENOENT;
        if (target.front() == '/')
            m_folders.toRoot();
        m_pending = std::move(target.append(m_pending, m_at));
        m_at = 0;
        return 0;
    }

    FolderStack m_folders;
    const ImpliedLinks m_implied;
    std::string m_pending;
    std::size_t m_at = 0;
    std::string m_leaf;
    int m_links = 0;
};

class ComponentWalkRoot final : public ConfinedRoot {
public:
    ComponentWalkRoot(int rootFd, ImpliedLinks implied) : m_rootFd(rootFd), m_implied(implied) {}

    [[nodiscard]] int probe(const std::string& path) const override
    {
        if (path.empty())
            return ENOENT;
        Walk walk(m_rootFd, m_implied, path);
        if (const int error = walk.run())
            return error;
        if (walk.leaf().empty())
            return 0;
        struct stat data {};
        return fstatat(walk.folder(), walk.leaf().c_str(), &data, AT_SYMLINK_NOFOLLOW) ? errno : 0;
    }

    [[nodiscard]] OpenedFolder openFolder(const std::string& path, FolderUse use) const override
    {
        Walk walk(m_rootFd, m_implied, path);
        if (const int error = walk.run())
            return {UniqueFd(), error};
        const char* name = walk.leaf().empty() ? "." : walk.leaf().c_str();
        const int flags = use == FolderUse::Search
                              ? kStepFlags
                              : O_RDONLY | O_NONBLOCK | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
        UniqueFd fd(openat(walk.folder(), name, flags));
        const int error = fd ? 0 : errno;
        return {std::move(fd), error};
    }

private:
    int m_rootFd;
    ImpliedLinks m_implied;
};

} // namespace

std::unique_ptr<ConfinedRoot> componentWalk(int rootFd, ImpliedLinks implied)
{
    return std::make_unique<ComponentWalkRoot>(rootFd, implied);
}

} // namespace pryvane
