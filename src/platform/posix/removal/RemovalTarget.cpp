#include "platform/posix/removal/RemovalTarget.h"

#include "platform/posix/ErrorText.h"
#include "platform/posix/FoldedName.h"
#include "platform/posix/PathParts.h"
#include "platform/posix/VolumeFileSystem.h"
#include "platform/posix/folders/FolderHandle.h"
#include "platform/posix/removal/RemovalErrors.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <string_view>
#include <vector>

namespace pryvane {

namespace {

/// The name under which the disk keeps `wanted`, where letter case and normal form do not matter.
std::optional<std::string> spelledIn(int folder, std::string_view wanted)
{
    FolderHandle handle = FolderHandle::openIn(folder, ".");
    FolderBatch batch;
    FolderBatch::Entry entry;
    while (handle && batch.fill(handle)) {
        while (batch.next(entry))
            if (sameFoldedName(entry.name, wanted))
                return std::string(entry.name);
        if (batch.atEnd())
            break;
    }
    return std::nullopt;
}

/// The names of a path with "." and ".." taken out, ".." stopping at the root. Only right where no
/// link is on the way, which the walk makes sure of.
std::vector<std::string> namesOf(std::string_view path)
{
    std::vector<std::string> names;
    std::size_t at = 0;
    while (const auto name = nextName(path, at)) {
        if (*name == "..") {
            if (!names.empty())
                names.pop_back();
        } else if (*name != ".") {
            names.emplace_back(*name);
        }
    }
    return names;
}

class TargetWalk {
public:
    TargetWalk(const VolumeFileSystem& disk, const RemovalItem& item) : m_disk(disk), m_item(item)
    {
    }

    RemovalTarget target()
    {
        RemovalTarget target;
        const std::string path(m_item.url.identity());
        std::vector<std::string> names = namesOf(path);
        // "a/.." and the like name a folder other than they seem to; nothing of ours does that.
        if (names.empty() || path.ends_with("/..") || path.ends_with("/.") || path == "..")
            return refused(RemovalObstacle::ProtectedPlace);
        if (m_item.linkTrust() == LinkTrust::SystemsOwn)
            followSystemsLink(names);
        std::string leaf = std::move(names.back());
        names.pop_back();
        const Step parent = openWithoutLinks(names);
        if (parent.isLink)
            return behindLink();
        if (parent.error)
            return failed(parent.error);
        target.parent = UniqueFd(fcntl(parent.fd.get(), F_DUPFD_CLOEXEC, 0));
        target.name = std::move(leaf);
        return looked(std::move(target));
    }

private:
    struct Step {
        UniqueFd fd;
        int error = 0;
        bool isLink = false;
    };

    [[nodiscard]] static RemovalTarget refused(RemovalObstacle obstacle)
    {
        RemovalTarget target;
        target.obstacle = obstacle;
        return target;
    }

    [[nodiscard]] static RemovalTarget failed(int error)
    {
        RemovalTarget target;
        target.isGone = meansAbsent(error);
        if (!target.isGone) {
            target.obstacle =
                error == EACCES ? RemovalObstacle::Unreadable : RemovalObstacle::DeviceError;
            target.detail = errorText(error);
        }
        return target;
    }

    /// One name further down, in the disk's spelling; `name` is set to it.
    [[nodiscard]] Step enter(int folder, std::string& name) const
    {
        constexpr int kFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
        Step step;
        step.fd = UniqueFd(openat(folder, name.c_str(), kFlags));
        step.error = step.fd ? 0 : errno;
        if (step.error == ENOENT && m_disk.nameMatching() == NameMatching::AsOnMac) {
            if (auto spelled = spelledIn(folder, name)) {
                name = std::move(*spelled);
                step.fd = UniqueFd(openat(folder, name.c_str(), kFlags));
                step.error = step.fd ? 0 : errno;
            }
        }
        struct stat data {};
        step.isLink = (step.error == ENOTDIR || step.error == ELOOP) &&
                      fstatat(folder, name.c_str(), &data, AT_SYMLINK_NOFOLLOW) == 0 &&
                      S_ISLNK(data.st_mode);
        return step;
    }

    [[nodiscard]] Step openWithoutLinks(std::vector<std::string>& names) const
    {
        Step at;
        at.fd = UniqueFd(openat(m_disk.rootHandle(), ".", O_PATH | O_DIRECTORY | O_CLOEXEC));
        at.error = at.fd ? 0 : errno;
        for (std::string& name : names) {
            if (at.error)
                break;
            at = enter(at.fd.get(), name);
        }
        return at;
    }

    /// The system's own links from the root into /private: what a stored report may pass.
    void followSystemsLink(std::vector<std::string>& names) const
    {
        static constexpr std::array<std::string_view, 3> kLinks = {"etc", "tmp", "var"};
        if (names.size() < 2)
            return; // the link itself is the item
        std::string first = names.front();
        if (!enter(m_disk.rootHandle(), first).isLink)
            return;
        const auto target = linkTarget(m_disk.rootHandle(), first);
        for (const std::string_view link : kLinks) {
            const std::string own = "private/" + std::string(link);
            if (sameFoldedName(first, link) && target && (*target == own || *target == "/" + own)) {
                names.front() = std::string(link);
                names.insert(names.begin(), "private");
                return;
            }
        }
    }

    /// A link is on the way: the folder behind it must be the one in which the item was seen.
    [[nodiscard]] RemovalTarget behindLink() const
    {
        if (m_item.linkTrust() != LinkTrust::AsSeen)
            return refused(RemovalObstacle::LinkOnTheWay);
        auto place = m_disk.openParent(m_item.url);
        if (place.error)
            return failed(place.error);
        struct stat folder {};
        if (fstat(place.parent.get(), &folder) != 0)
            return failed(errno);
        if (folder.st_dev != m_item.seen->device || folder.st_ino != m_item.seen->inode)
            return refused(RemovalObstacle::LinkOnTheWay);
        RemovalTarget target;
        target.parent = std::move(place.parent);
        target.name = std::move(place.name);
        return looked(std::move(target));
    }

    /// Looks at the leaf itself, links not followed.
    [[nodiscard]] RemovalTarget looked(RemovalTarget target) const
    {
        const int parent = target.parent.get();
        const auto look = [&] {
            return fstatat(parent, target.name.c_str(), &target.leaf, AT_SYMLINK_NOFOLLOW) == 0;
        };
        bool found = look();
        if (!found && errno == ENOENT && m_disk.nameMatching() == NameMatching::AsOnMac) {
            if (auto spelled = spelledIn(parent, target.name)) {
                target.name = std::move(*spelled);
                found = look();
            }
        }
        if (!found)
            return failed(errno);
        // "must be a folder" never follows: a link is removed itself, a file is not what was meant.
        if (m_item.url.mustBeFolder() && !target.isFolder() && !S_ISLNK(target.leaf.st_mode))
            target.isGone = true;
        return target;
    }

    const VolumeFileSystem& m_disk;
    const RemovalItem& m_item;
};

} // namespace

RemovalTarget findTarget(const VolumeFileSystem& disk, const RemovalItem& item)
{
    return TargetWalk(disk, item).target();
}

} // namespace pryvane
