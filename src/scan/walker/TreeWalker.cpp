#include "scan/walker/TreeWalker.h"

#include "core/Result.h"
#include "volume/HostVolume.h"

#include <cerrno>
#include <limits>

namespace pryvane {

namespace {

constexpr std::size_t kBytesAtOnce =
    std::size_t{256} * 1024; // of one folder's entries that are kept

/// Where a Mac mounts the volumes of its own system; what a user has of them stands elsewhere, too.
constexpr std::string_view kSystemsVolumes = "/System/Volumes/";

/// Whether the entry is simply no folder any more.
bool meansGone(int error)
{
    return error == ENOENT || error == ENOTDIR || error == ELOOP;
}

} // namespace

void TreeWalker::run()
{
    while (std::optional<WalkTask> task = m_shared.crew.take()) {
        walk(std::move(*task));
        m_shared.crew.finished();
    }
}

void TreeWalker::walk(WalkTask task)
{
    m_waits.begin();
    m_path = std::move(task.path);
    m_ancestry = std::move(task.above);
    m_above = m_ancestry.size() - 1;
    m_place = task.place;
    m_depth = m_open = m_lowestOpen = 1;
    m_lowestWork = m_setAside = 0;
    if (m_levels.empty())
        m_levels.emplace_back();
    Level& level = top();
    level.folder = std::move(task.folder);
    level.pathLength = m_path.size();
    level.state = task.state;
    level.matched = task.matched;
    level.unread = task.unread;
    level.hasAny = !task.unread;
    level.entries = std::move(task.entries);

    while (m_depth > 0 && !m_shared.stop.requested()) {
        step();
        if (m_shared.crew.wantsWork())
            giveWork();
    }
    for (; m_depth > 0; --m_depth) { // stopped
        close(top());
        top().entries.clear();
        top().after.reset();
        top().setAside = false;
    }
    m_shared.report.complete(m_place);
}

void TreeWalker::step()
{
    Level& level = top();
    EntryList::Entry entry;
    if (level.entries.next(entry)) {
        entry.kind == EntryList::Kind::Folder ? enter(entry.name) : addMatch(entry.name);
    } else if (level.after) {
        m_shared.report.complete(m_place);
        m_place = *level.after;
        level.after.reset();
    } else if (level.unread) {
        level.entries.clear();
        read(level, kBytesAtOnce);
    } else {
        leave();
    }
}

void TreeWalker::enter(std::string_view name)
{
    Level& parent = top();
    if (!parent.folder)
        return; // lost, and told so
    FolderHandle folder = openFolder(name.data());
    const int error = folder ? 0 : errno;
    const FolderId id = folder ? folder.id() : FolderId();
    m_path.append(name).push_back('/');
    const bool loop = folder && m_ancestry.contains(id);
    const bool leftOut = folder && !loop && m_rules.ownDiskOnly && isLeftOut(folder, id);
    if (!folder || loop || leftOut) {
        if (loop)
            refuse(m_path.size(), "it is one of the folders it lies in");
        else if (!leftOut && !meansGone(error))
            refuse(m_path.size(), error);
        m_path.resize(parent.pathLength);
        if (m_rules.emptyFoldersCount)
            m_shared.tally.add(1);
        return;
    }

    PatternAutomaton::State state = 0;
    bool matched = parent.matched;
    if (!m_rules.onlyCount() && !matched)
        state = m_rules.texts->advance(parent.state,
                                       std::string_view(m_path).substr(parent.pathLength), matched);
    if (parent.entries.folders() == 0 && !parent.unread && m_depth > 1)
        close(parent);

    m_ancestry.push(id);
    if (m_levels.size() == m_depth)
        m_levels.emplace_back();
    Level& level = m_levels[m_depth++];
    level.folder = std::move(folder);
    level.pathLength = m_path.size();
    level.state = state;
    level.matched = matched;
    level.unread = true;
    level.hasAny = false;
    ++m_open;
    keepWithin(m_shared.mostHandles);
    read(level, kBytesAtOnce);
}

/// At the end of m_path; says so of another disk.
bool TreeWalker::isLeftOut(const FolderHandle& folder, const FolderId& id)
{
    if (m_path == kSystemsVolumes || isMountRoot(folder.fd())) {
        if (!m_rules.onlyCount())
            m_shared.report.add(m_place, {m_path.substr(0, m_path.size() - 1), 0, {}, {}, true});
        return true;
    }
    return !m_shared.seen.isFirst(id);
}

void TreeWalker::leave()
{
    FolderHandle child = std::move(top().folder);
    top().entries.clear();
    m_open -= child ? 1 : 0;
    m_ancestry.pop();
    --m_depth;
    m_lowestOpen = std::min(m_lowestOpen, std::max<std::size_t>(m_depth, 1));
    m_lowestWork = std::min(m_lowestWork, m_depth);
    if (m_depth == 0)
        return;
    m_path.resize(top().pathLength);
    if (!top().folder && m_setAside > 0)
        returnTo(m_depth - 1, std::move(child));
}

/// Reads on in the level's folder, at least until so many bytes of entries are kept or it ends.
void TreeWalker::read(Level& level, std::size_t mostBytes)
{
    do {
        if (!m_batch.fill(level.folder)) {
            if (!meansGone(errno))
                refuse(level.pathLength, errno);
            level.unread = false;
            break;
        }
        if (const std::int64_t entries = takeIn(level))
            m_shared.tally.add(entries);
        level.unread = !m_batch.atEnd();
    } while (level.unread && level.entries.bytes() < mostBytes && !m_shared.stop.requested());
    if (level.unread)
        return;
    if (!level.hasAny && m_rules.emptyFoldersCount && !m_shared.stop.requested())
        m_shared.tally.add(1);
    m_shared.tally.folderRead(std::string_view(m_path).substr(0, level.pathLength));
    if (m_waits.often())
        m_shared.walkers.addOne();
}

/// Sorts the entries that were just read; returns how many of them count.
std::int64_t TreeWalker::takeIn(Level& level)
{
    std::int64_t counted = 0;
    const auto count = [&] {
        level.hasAny = true;
        ++counted;
    };
    FolderBatch::Entry entry;
    while (!m_shared.stop.requested() && m_batch.next(entry)) {
        switch (entry.kind) {
        case FileKind::Folder:
            count();
            level.entries.append(EntryList::Kind::Folder, entry.name);
            break;
        case FileKind::RegularFile:
            if (entry.name.front() == '.' && !m_rules.allEntries)
                break;
            count();
            if (isMatch(level, entry.name))
                level.entries.append(EntryList::Kind::Match, entry.name);
            break;
        case FileKind::SymbolicLink:
        case FileKind::Other:
            if (m_rules.allEntries)
                count();
            break;
        case FileKind::Missing:
        case FileKind::Unknown:
            break;
        }
    }
    return counted;
}

bool TreeWalker::isMatch(const Level& level, std::string_view name) const
{
    if (m_rules.onlyCount() || level.matched)
        return level.matched;
    bool ends = false;
    static_cast<void>(m_rules.texts->advance(level.state, name, ends));
    return ends;
}

void TreeWalker::addMatch(std::string_view name)
{
    const FolderId& id = m_ancestry[m_ancestry.size() - 1];
    SeenEntry seen{{id.device, id.inode, FileKind::RegularFile}, {}};
    if (const FolderHandle& folder = top().folder)
        seen.times = timesOfEntry(folder.fd(), name.data());
    m_shared.report.add(m_place, {m_path + std::string(name), m_path.size(), {}, seen});
}

void TreeWalker::refuse(std::size_t pathLength, int error)
{
    refuse(pathLength, errorText(error));
}

void TreeWalker::refuse(std::size_t pathLength, std::string reason)
{
    // Both passes meet the same folders; telling once is enough.
    if (m_rules.onlyCount())
        return;
    const std::size_t withoutSlash = pathLength > 1 ? pathLength - 1 : pathLength;
    m_shared.report.add(m_place, {m_path.substr(0, withoutSlash), 0, std::move(reason)});
}

} // namespace pryvane
