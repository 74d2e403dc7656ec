#include "removal/disk/RemovalTarget.h"

#include "core/HostFiles.h"
#include "core/Result.h"
#include "removal/disk/ProtectedPlaces.h"
#include "volume/FoldedName.h"
#include "volume/PathParts.h"
#include "volume/VolumeFileSystem.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <exception>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <vector>

namespace pryvane {

namespace {

struct Spelling {
    std::string name;
    int error = ENOENT; ///< errno, where there is no such name in any spelling
};

/// The name under which the disk keeps `wanted`, where letter case and normal form do not matter.
Spelling spelledIn(int folder, std::string_view wanted)
{
    FolderHandle handle = FolderHandle::openIn(folder, ".");
    FolderBatch batch;
    FolderBatch::Entry entry;
    while (handle && batch.fill(handle)) {
        while (batch.next(entry))
            if (sameFoldedName(entry.name, wanted))
                return {std::string(entry.name), 0};
        if (batch.atEnd())
            return {};
    }
    return {{}, errno};
}

/// A handle that looks and leads on, and needs no right to read.
UniqueFd openStep(int folder, const std::string& name)
{
    return UniqueFd(openat(folder, name.c_str(), kToSearch | O_NOFOLLOW));
}

class TargetWalk {
public:
    TargetWalk(const VolumeFileSystem& disk, const RemovalItem& item) : m_disk(disk), m_item(item)
    {
    }

    RemovalTarget target()
    {
        const std::string_view path = m_item.url.identity();
        if (parentAndName(path).name == ".") // "", ".", "a/.." and the like name no entry
            return refused(RemovalObstacle::ProtectedPlace);
        std::vector<std::string> names;
        Step parent = parse(path, names);
        if (parent.error == 0) {
            takeSpelling(names);
            if (m_item.linkTrust() == LinkTrust::SystemsOwn)
                followSystemsLink(names);
            takeSpelling(names);
            std::string leaf = std::move(names.back());
            names.pop_back();
            parent = openWithoutLinks(names);
            if (parent.error == 0) {
                RemovalTarget target = looked(std::move(parent.fd), std::move(leaf));
                for (const std::string& name : names)
                    target.path.append("/").append(name);
                target.path.append("/").append(target.name);
                if (!m_isExact && !m_item.spelling.empty() && target.found() &&
                    target.path != m_item.spelling)
                    target.isGone = true; // what was found lay elsewhere, behind a link
                return target;
            }
        }
        return parent.isLink ? behindLink() : failed(parent.error);
    }

private:
    struct Step {
        UniqueFd fd;
        int error = 0;
        bool isLink = false; ///< the error is that a link stands there
    };

    [[nodiscard]] static RemovalTarget refused(RemovalObstacle obstacle)
    {
        RemovalTarget target;
        target.failure.obstacle = obstacle;
        return target;
    }

    [[nodiscard]] static RemovalTarget failed(int error)
    {
        RemovalTarget target;
        target.isGone = meansAbsent(error);
        if (!target.isGone)
            target.failure = unreadable(error);
        return target;
    }

    /// Takes the path apart. A ".." takes back the name before it, once it is sure that no link
    /// stands there, behind which ".." would lead elsewhere; above the root it stays there.
    [[nodiscard]] Step parse(std::string_view path, std::vector<std::string>& names) const
    {
        std::size_t at = 0;
        while (const auto name = nextName(path, at)) {
            if (*name == "..") {
                if (Step there = openWithoutLinks(names); there.error)
                    return there;
                if (!names.empty())
                    names.pop_back();
            } else if (*name != ".") {
                if (names.empty() && impliedLink(*name))
                    names.emplace_back("private");
                names.emplace_back(*name);
            }
        }
        return {};
    }

    /// Whether that name in the root is a link which the disk lacks and everything else follows.
    [[nodiscard]] bool impliedLink(std::string_view name) const
    {
        return m_disk.nameMatching() == NameMatching::AsOnMac
                   ? m_disk.impliedLinks().targetOfFolded(name).has_value()
                   : m_disk.impliedLinks().targetOf(name).has_value();
    }

    /// Where the spelling is known and leads the same way as the names: only its names will do.
    void takeSpelling(std::vector<std::string>& names)
    {
        std::vector<std::string> spelled = spelledNames();
        if (m_isExact || spelled.size() != names.size() ||
            !std::ranges::equal(spelled, names, sameFoldedName))
            return;
        names = std::move(spelled);
        m_isExact = true;
    }

    [[nodiscard]] std::vector<std::string> spelledNames() const
    {
        std::vector<std::string> names;
        std::size_t at = 0;
        while (const auto name = nextName(m_item.spelling, at)) {
            if (names.empty() && impliedLink(*name))
                names.emplace_back("private"); // as for the location, or they would never agree
            names.emplace_back(*name);
        }
        return names;
    }

    [[nodiscard]] bool mayFold() const
    {
        return !m_isExact && m_disk.nameMatching() == NameMatching::AsOnMac;
    }

    /// One name further down, in the disk's spelling; `name` is set to it.
    [[nodiscard]] Step enter(int folder, std::string& name) const
    {
        Step step;
        step.fd = openStep(folder, name);
        step.error = step.fd ? 0 : errno;
        if (step.error == ENOENT && mayFold()) {
            Spelling spelled = spelledIn(folder, name);
            step.error = spelled.error;
            if (spelled.error == 0) {
                name = std::move(spelled.name);
                step.fd = openStep(folder, name);
                step.error = step.fd ? 0 : errno;
            }
        }
        if (step.error == ENOTDIR || step.error == ELOOP) {
            // A folder by now: it was a link a moment ago.
            const auto facts = factsOf(folder, name);
            step.isLink =
                facts && (facts->kind == FileKind::SymbolicLink || facts->kind == FileKind::Folder);
        }
        return step;
    }

    [[nodiscard]] Step openWithoutLinks(std::vector<std::string>& names) const
    {
        Step at;
        at.fd = openStep(m_disk.rootHandle(), ".");
        at.error = at.fd ? 0 : errno;
        for (auto name = names.begin(); name != names.end() && at.error == 0; ++name)
            at = enter(at.fd.get(), *name);
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
                names.front() = link;
                names.insert(names.begin(), "private");
                return;
            }
        }
    }

    /// A link is on the way: the folder behind it must be the one in which the item was seen.
    [[nodiscard]] RemovalTarget behindLink()
    {
        if (m_item.linkTrust() != LinkTrust::AsSeen)
            return refused(RemovalObstacle::LinkOnTheWay);
        auto place = m_disk.openParent(m_item.url);
        const auto folder = place.parent ? factsOf(place.parent.get(), {}) : std::nullopt;
        if (!folder && !meansAbsent(place.error))
            return failed(place.error ? place.error : errno);
        // Also where it leads nowhere: what was seen may well be somewhere still.
        if (!folder || folder->id.device != m_item.seen->device ||
            folder->id.inode != m_item.seen->inode)
            return refused(RemovalObstacle::LinkOnTheWay);
        if (auto spelled = spelledNames(); !spelled.empty()) {
            m_isExact = true;
            return looked(std::move(place.parent), std::move(spelled.back()));
        }
        return looked(std::move(place.parent), std::move(place.name));
    }

    /// Looks at the leaf itself. Without a link on the way the parent is not compared with the one
    /// in which the item was seen: what a threat made anew at the place of its finding is still
    /// that finding, also where its folder was made anew.
    [[nodiscard]] RemovalTarget looked(UniqueFd parent, std::string name) const
    {
        auto facts = factsOf(parent.get(), name);
        int error = facts ? 0 : errno;
        if (error == ENOENT && mayFold()) {
            Spelling spelled = spelledIn(parent.get(), name);
            error = spelled.error;
            if (error == 0) {
                name = std::move(spelled.name);
                facts = factsOf(parent.get(), name);
                error = facts ? 0 : errno;
            }
        }
        if (error)
            return failed(error);
        RemovalTarget target;
        target.parent = std::move(parent);
        target.name = std::move(name);
        target.leaf = *facts;
        target.isGone = isOtherThanAsked(m_item, *facts);
        return target;
    }

    const VolumeFileSystem& m_disk;
    const RemovalItem& m_item;
    bool m_isExact = false; ///< the names are the disk's own, and no others will do
};

} // namespace

RemovalTarget findTarget(const VolumeFileSystem& disk, const RemovalItem& item)
{
    return TargetWalk(disk, item).target();
}

RemovalFailure refusalOf(const RemovalItem& item, const RemovalTarget& target,
                         const EntryFacts& standing, const ProtectedPlaces& places)
{
    if (places.failure())
        return places.failure();
    const auto parent = factsOf(target.parent.get(), {});
    if (!parent)
        return unreadable(errno);
    if (places.contains(standing.id) || places.keepsIn(parent->id, target.name, standing.kind))
        return {RemovalObstacle::ProtectedPlace, {}};
    if (standing.isMountRoot)
        return {RemovalObstacle::MountPoint, {}};
    const bool isFolder = standing.kind == FileKind::Folder;
    if (!isFolder && item.scope == RemovalScope::ContentsOf)
        return {RemovalObstacle::KindChanged, {}};
    // Whoever could only trick root into removing a file might have it remove a whole tree.
    FileKind kind = item.kind;
    if (kind == FileKind::Unknown && item.seen)
        kind = item.seen->kind;
    if (isFolder && geteuid() == 0 && kind != FileKind::Folder && kind != FileKind::Unknown)
        return {RemovalObstacle::KindChanged, {}};
    return {};
}

bool isOtherThanAsked(const RemovalItem& item, const EntryFacts& standing)
{
    return item.url.mustBeFolder() && standing.kind != FileKind::Folder &&
           standing.kind != FileKind::SymbolicLink;
}

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
    else if (syncToDevice(changed.fd()) != 0 &&
             errno != EINVAL) // some file systems have nothing to sync
        m_tree.failed(unreadable(errno));
}

} // namespace pryvane
