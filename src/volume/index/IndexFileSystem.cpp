#include "volume/index/IndexFileSystem.h"

#include "core/Texts.h"
#include "volume/PathParts.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <vector>

namespace pryvane {

namespace {

constexpr std::size_t kLongestPath = std::size_t{1} << 20; // with what links put into it

std::int64_t inBlocks(std::int64_t bytes)
{
    constexpr std::int64_t kBlock = 512;
    return bytes <= 0 ? 0 : (bytes + kBlock - 1) / kBlock * kBlock;
}

/// The links that a Mac's system volume has at its root. A disk or a list that is read without that
/// volume, or tells no targets, has them all the same.
std::string_view systemLink(std::string_view name)
{
    struct Row {
        std::string_view name, target;
    };
    constexpr std::array<Row, 3> kRows = {
        {{"tmp", "private/tmp"}, {"var", "private/var"}, {"etc", "private/etc"}}};
    for (const Row& row : kRows) {
        if (row.name == name)
            return row.target;
    }
    return {};
}

} // namespace

/// One resolution of a path, name by name, links followed.
class IndexFileSystem::Walk {
public:
    explicit Walk(const IndexFileSystem& disk) : m_disk(disk), m_index(disk.index()) {}

    Found along(std::string_view path, LastLink last)
    {
        m_pending = path;
        while (const auto name = nextName(m_pending, m_at)) {
            if (*name == ".")
                continue;
            if (*name == "..") {
                m_node = m_node == NameIndex::kRoot ? m_node : m_index.parent(m_node);
                continue;
            }
            if (const auto end = step(*name, last))
                return *end;
        }
        return {Presence::Present, m_node};
    }

private:
    /// Goes on into the entry, or ends the walk.
    std::optional<Found> step(std::string_view name, LastLink last)
    {
        if (const auto end = mustBeFolder())
            return end;
        const bool isLast = m_at == m_pending.size();
        const Node found = m_index.find(m_node, name);
        if (m_node == NameIndex::kRoot && followsSystemLink(name, found) &&
            !(isLast && last == LastLink::Keep && found != NameIndex::kNone))
            return follow(systemLink(name));
        if (found == NameIndex::kNone)
            return Found{m_disk.whereMissing(m_node, name)};
        const NameIndex::Facts facts = m_index.facts(found);
        if (facts.isDeleted)
            return Found{Presence::Absent};
        if (facts.kind == FileKind::SymbolicLink && !(isLast && last == LastLink::Keep)) {
            const std::string* target = m_index.target(found);
            if (target == nullptr)
                return Found{Presence::Unknown};
            return follow(*target);
        }
        m_node = found;
        return std::nullopt;
    }

    [[nodiscard]] std::optional<Found> mustBeFolder() const
    {
        switch (m_index.kind(m_node)) {
        case FileKind::Folder:
            return std::nullopt;
        case FileKind::Unknown: // a file or an empty folder, where all was listed
            return Found{m_disk.isWhole(m_node) ? Presence::Absent : Presence::Unknown};
        default:
            return Found{Presence::Absent};
        }
    }

    [[nodiscard]] bool followsSystemLink(std::string_view name, Node found) const
    {
        const std::string_view target = systemLink(name);
        if (target.empty())
            return false;
        if (found != NameIndex::kNone) {
            const FileKind kind = m_index.kind(found);
            const bool hasNoTarget =
                kind == FileKind::SymbolicLink && m_index.target(found) == nullptr;
            if (kind != FileKind::Unknown && !hasNoTarget)
                return false;
        }
        const Node place = m_index.find(NameIndex::kRoot, "private");
        return place != NameIndex::kNone && m_index.find(place, name) != NameIndex::kNone;
    }

    std::optional<Found> follow(std::string_view target)
    {
        if (target.empty() || ++m_links > kMaxLinks)
            return Found{Presence::Absent};
        std::string expanded(target);
        if (expanded.front() == '/')
            m_node = NameIndex::kRoot;
        expanded.append(m_pending.substr(m_at));
        if (expanded.size() > kLongestPath)
            return Found{Presence::Unknown};
        m_expanded = std::move(expanded);
        m_pending = m_expanded;
        m_at = 0;
        return std::nullopt;
    }

    const IndexFileSystem& m_disk;
    const NameIndex& m_index;
    Node m_node = NameIndex::kRoot;
    std::string m_expanded; // owns m_pending from the first link on
    std::string_view m_pending;
    std::size_t m_at = 0;
    int m_links = 0;
};

IndexFileSystem::IndexFileSystem(Parts parts) : m_parts(std::move(parts)) {}

bool IndexFileSystem::isWhole(Node folder) const
{
    const NameIndex& names = index();
    if (names.refused(folder) != nullptr)
        return false;
    if (m_parts.cover == NameCover::WholeDisk)
        return true;
    if (!names.facts(folder).isListed)
        return false;
    if (!names.isEmpty(folder) || names.unnamed(folder).entries > 0)
        return true;
    // A list that goes down to some depth names the folders there without what is in them.
    std::size_t depth = 0;
    for (Node node = folder; node != NameIndex::kRoot; node = names.parent(node))
        ++depth;
    return depth < m_parts.deepest;
}

/// What it means that a folder's names do not have this one.
Presence IndexFileSystem::whereMissing(Node folder, std::string_view name) const
{
    if (!isWhole(folder))
        return Presence::Unknown;
    EntryChoice::Folder state = m_parts.choice->root();
    std::vector<Node> above;
    for (Node node = folder; node != NameIndex::kRoot; node = index().parent(node))
        above.push_back(node);
    for (auto next = above.rbegin(); next != above.rend(); ++next)
        state = m_parts.choice->below(state, index().name(*next));
    return m_parts.choice->isPlace(state, name) ? Presence::Absent : Presence::Unknown;
}

IndexFileSystem::Found IndexFileSystem::resolve(const FileURL& url, LastLink last) const
{
    if (url.relativePath().empty())
        return {};
    const std::string_view path = url.identity();
    Found found =
        path.size() > kLongestPath ? Found{Presence::Unknown} : Walk(*this).along(path, last);
    if (found.presence != Presence::Present || !url.mustBeFolder())
        return found;
    switch (index().kind(found.node)) {
    case FileKind::Folder:
    case FileKind::SymbolicLink: // kept only where links are not followed
        return found;
    case FileKind::Unknown:
        return {Presence::Unknown};
    default:
        return {Presence::Absent};
    }
}

Presence IndexFileSystem::presence(const FileURL& url)
{
    return resolve(url, LastLink::Follow).presence;
}

FileKind IndexFileSystem::kind(const FileURL& url)
{
    const Found found = resolve(url, LastLink::Keep);
    if (found.presence == Presence::Present)
        return index().kind(found.node);
    return found.presence == Presence::Absent ? FileKind::Missing : FileKind::Unknown;
}

std::optional<Sighting> IndexFileSystem::sighting(const FileURL& url)
{
    const Found found = resolve(url, LastLink::Keep);
    if (found.presence != Presence::Present)
        return std::nullopt;
    return Sighting{0, 0, index().kind(found.node)};
}

std::optional<FileIdentity> IndexFileSystem::fileIdentity(const FileURL& url)
{
    const Found found = resolve(url, LastLink::Keep);
    if (found.presence != Presence::Present)
        return std::nullopt;
    return FileIdentity{0, std::uint64_t{found.node} + 1};
}

FolderListing IndexFileSystem::list(const FileURL& folder)
{
    const Found found = resolve(folder, LastLink::Follow);
    FolderListing listing;
    if (found.presence == Presence::Unknown) {
        listing.status = ListStatus::Refused;
        listing.reason = "it is not among the names that were read";
    }
    if (found.presence != Presence::Present)
        return listing;
    const NameIndex& names = index();
    const FileKind kind = names.kind(found.node);
    if (kind != FileKind::Folder && kind != FileKind::Unknown)
        return listing;
    for (Node node = names.nextIn(found.node, NameIndex::kNone); node != NameIndex::kNone;
         node = names.nextIn(found.node, node)) {
        const NameIndex::Facts facts = names.facts(node);
        if (!facts.isDeleted)
            listing.entries.push_back({std::string(names.name(node)), facts.kind});
    }
    listing.status = isWhole(found.node) ? ListStatus::Listed : ListStatus::Refused;
    if (listing.status == ListStatus::Refused) {
        const std::string* reason = names.refused(found.node);
        listing.reason = reason != nullptr ? *reason : "not all its names are known";
    }
    return listing;
}

std::int64_t IndexFileSystem::bytesBelow(Node top) const
{
    const NameIndex& names = index();
    if (names.kind(top) != FileKind::Folder)
        return inBlocks(names.facts(top).size);
    std::int64_t bytes = 0;
    Node folder = top;
    Node node = NameIndex::kNone;
    bytes += names.unnamed(top).bytes;
    for (;;) {
        node = names.nextIn(folder, node);
        if (node == NameIndex::kNone) {
            if (folder == top)
                return bytes;
            node = folder;
            folder = names.parent(folder);
            continue;
        }
        const NameIndex::Facts facts = names.facts(node);
        if (facts.isDeleted)
            continue;
        if (facts.kind == FileKind::Folder) {
            bytes += names.unnamed(node).bytes;
            folder = node;
            node = NameIndex::kNone;
        } else {
            bytes += inBlocks(facts.size);
        }
    }
}

std::int64_t IndexFileSystem::allocatedSize(const FileURL& url)
{
    const Found found = resolve(url, LastLink::Keep);
    return found.presence == Presence::Present ? bytesBelow(found.node) : 0;
}

FileTimes IndexFileSystem::times(const FileURL& url)
{
    const Found found = resolve(url, LastLink::Keep);
    if (found.presence != Presence::Present)
        return {};
    const std::int64_t modified = index().facts(found.node).modified;
    return {{}, modified > 0 ? DiskMoment::of(modified) : DiskMoment(), {}};
}

int IndexFileSystem::openFolder(const FileURL&)
{
    errno = ENOTSUP;
    return -1;
}

Result<std::string> IndexFileSystem::readSmallFile(const FileURL& url, std::size_t limit)
{
    if (!m_parts.content)
        return Error{"a list of names holds no contents"};
    const Found found = resolve(url, LastLink::Keep);
    if (found.presence != Presence::Present)
        return Error{found.presence == Presence::Absent ? errorText(ENOENT)
                                                        : "it could not be read on this disk"};
    if (index().kind(found.node) != FileKind::RegularFile)
        return Error{"not a regular file"};
    if (index().facts(found.node).size > static_cast<std::int64_t>(limit))
        return Error{"the file is longer than " + std::to_string(limit) + " bytes"};
    const MutexLock lock(m_contentMutex);
    return m_parts.content(found.node, limit);
}

bool IndexFileSystem::visit(const FileURL& url, const StopFlag& stop, NameVisitor& visitor) const
{
    const Found found = resolve(url, LastLink::Follow);
    if (found.presence != Presence::Present || index().kind(found.node) != FileKind::Folder)
        return false;
    const NameIndex& names = index();
    const auto atFolder = [&](Node folder) {
        if (const auto unnamed = names.unnamed(folder); unnamed.entries > 0)
            visitor.unnamed(unnamed.entries);
        if (const std::string* reason = names.refused(folder))
            visitor.refused(*reason);
    };
    Node folder = found.node;
    Node node = NameIndex::kNone;
    atFolder(folder);
    while (!stop.requested()) {
        node = names.nextIn(folder, node);
        if (node == NameIndex::kNone) {
            if (folder == found.node)
                break;
            visitor.leaveFolder();
            node = folder;
            folder = names.parent(folder);
            continue;
        }
        const NameIndex::Facts facts = names.facts(node);
        if (facts.isDeleted)
            continue; // nothing below it is there either
        if (facts.kind == FileKind::Folder) {
            visitor.enterFolder(names.name(node));
            atFolder(node);
            folder = node;
            node = NameIndex::kNone;
        } else {
            visitor.entry(names.name(node), facts.kind);
        }
    }
    return true;
}

std::vector<std::string> IndexFileSystem::deletedPaths(std::size_t most) const
{
    std::vector<std::string> paths;
    const NameIndex& names = index();
    for (std::size_t i = 1; i < names.size() && paths.size() < most; ++i) {
        const auto node = static_cast<Node>(i);
        const NameIndex::Facts facts = names.facts(node);
        if (facts.isDeleted && facts.isListed)
            paths.push_back(names.path(node));
    }
    return paths;
}

void IndexSizeMeter::measure(std::span<const FileURL> locations, const StopFlag& stop,
                             SizeProgress& progress, const Told& told)
{
    for (std::size_t location = 0; location < locations.size() && !stop.requested(); ++location) {
        told(location, m_disk.allocatedSize(locations[location]));
        progress.entries.fetch_add(1, std::memory_order_relaxed);
    }
}

} // namespace pryvane
