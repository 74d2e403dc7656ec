#include "volume/listing/ListingIndexer.h"

#include "volume/PathParts.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace pryvane {

namespace {

std::string_view withoutLastSlashes(std::string_view path)
{
    while (!path.empty() && path.back() == '/')
        path.remove_suffix(1);
    return path;
}

/// Whether something in the path needs a second look: an empty name, "." or "..".
bool isPlainly(std::string_view folder)
{
    for (std::size_t at = 0; at + 1 < folder.size(); ++at) {
        if (folder[at] == '/' && (folder[at + 1] == '/' || folder[at + 1] == '.'))
            return false;
    }
    return true;
}

constexpr std::string_view kNotAllNames = "not all its names are on the list";

bool countsAsEntry(std::string_view name, FileKind kind)
{
    switch (kind) {
    case FileKind::Folder:
        return true;
    case FileKind::RegularFile:
    case FileKind::Unknown:
        return name.front() != '.';
    default:
        return false;
    }
}

} // namespace

ListingIndexer::ListingIndexer(NameIndex& index, const EntryChoice& choice, std::string_view prefix)
    : m_index(index), m_builder(index), m_choice(choice), m_prefix(withoutLastSlashes(prefix))
{
    m_levels.push_back({0, m_choice.root(), NameIndex::kRoot});
}

bool ListingIndexer::add(const ListedEntry& entry)
{
    std::string_view path = entry.path;
    if (!m_prefix.empty()) {
        if (!path.starts_with(m_prefix) ||
            (path.size() > m_prefix.size() && path[m_prefix.size()] != '/'))
            return false;
        path.remove_prefix(m_prefix.size());
    }
    const std::string_view bare = withoutLastSlashes(path);
    const FileKind kind = bare.size() != path.size() && entry.kind == FileKind::Unknown
                              ? FileKind::Folder
                              : entry.kind;
    if (bare.empty() || bare == ".") {
        nameRoot(entry);
        return true;
    }
    m_isDeleted = entry.isDeleted;
    if (entry.isPartial)
        return addPartial(bare);
    const auto slash = bare.rfind('/');
    const std::size_t nameAt = slash == bare.npos ? 0 : slash + 1;
    const std::string_view name = bare.substr(nameAt);
    if (name == "." || name == ".." || name.size() > NameIndex::kLongestName)
        return false;
    const std::string_view rawFolder = bare.substr(0, nameAt);
    if (rawFolder != m_rawFolder || !m_isPlaced) {
        if (!moveTo(rawFolder))
            return false;
    }
    m_deepest = std::max(m_deepest, m_levels.size());
    if (m_choice.isKept(m_levels.back().state, name, kind)) {
        keep(name, entry, kind);
    } else if (!entry.isDeleted) {
        m_unnamedEntries += countsAsEntry(name, kind) ? 1 : 0;
        if (entry.size > 0)
            m_unnamedBytes += (entry.size + 511) / 512 * 512;
    }
    return true;
}

/// Keeps the folder, whether it is chosen or not: what it lacks is to be told.
bool ListingIndexer::addPartial(std::string_view folder)
{
    if (!moveTo(std::string(folder) + "/"))
        return false;
    m_index.setRefused(currentNode(), kNotAllNames);
    return true;
}

void ListingIndexer::nameRoot(const ListedEntry& entry)
{
    if (entry.isPartial)
        m_index.setRefused(NameIndex::kRoot, kNotAllNames);
    if (entry.isDeleted || entry.isPartial)
        return;
    auto facts = m_index.facts(NameIndex::kRoot);
    facts.isListed = true;
    m_index.setFacts(NameIndex::kRoot, facts);
}

bool ListingIndexer::moveTo(std::string_view rawFolder)
{
    flushUnnamed();
    m_isPlaced = false;
    std::string_view folder = rawFolder;
    while (folder.starts_with("./") || folder.starts_with('/'))
        folder.remove_prefix(folder.front() == '/' ? 1 : 2);
    std::string tidied;
    if (!isPlainly(folder)) {
        std::size_t at = 0;
        while (const auto name = nextName(folder, at)) {
            if (*name == "..")
                return false;
            if (*name != ".")
                tidied.append(*name).append("/");
        }
        folder = tidied;
    }
    if (folder.starts_with("../"))
        return false;
    // As much of the current folder as the new one has in common with it, in whole names.
    const auto differs =
        std::mismatch(folder.begin(), folder.end(), m_folder.begin(), m_folder.end());
    const auto common = static_cast<std::size_t>(differs.first - folder.begin());
    while (m_levels.size() > 1 && m_levels.back().pathLength > common)
        m_levels.pop_back();
    m_folder.resize(m_levels.back().pathLength);
    while (m_folder.size() < folder.size()) {
        const auto end = folder.find('/', m_folder.size());
        const std::string_view name = folder.substr(m_folder.size(), end - m_folder.size());
        if (name.size() > NameIndex::kLongestName)
            return false;
        enter(name);
    }
    m_rawFolder = rawFolder;
    m_isPlaced = true;
    noteLikelyPrefix();
    return true;
}

void ListingIndexer::enter(std::string_view name)
{
    const Level above = m_levels.back();
    Level level;
    level.state = m_choice.below(above.state, name);
    if (above.node != NameIndex::kNone) {
        level.node = m_choice.isKept(above.state, name, FileKind::Folder)
                         ? folderIn(above.node, name)
                         : m_builder.find(above.node, name);
    }
    if (level.node != NameIndex::kNone && m_index.kind(level.node) == FileKind::Unknown)
        m_index.setFolder(level.node);
    m_folder.append(name).append("/");
    level.pathLength = m_folder.size();
    m_levels.push_back(level);
}

/// Makes the nodes of the folders on the way.
ListingIndexer::Node ListingIndexer::currentNode()
{
    for (std::size_t i = 1; i < m_levels.size(); ++i) {
        Level& level = m_levels[i];
        if (level.node != NameIndex::kNone)
            continue;
        const std::size_t start = m_levels[i - 1].pathLength;
        const std::string_view name =
            std::string_view(m_folder).substr(start, level.pathLength - start - 1);
        level.node = folderIn(m_levels[i - 1].node, name);
        if (m_index.kind(level.node) == FileKind::Unknown)
            m_index.setFolder(level.node);
    }
    return m_levels.back().node;
}

/// The folder's entry. Where nothing but deleted entries names it, so is it.
ListingIndexer::Node ListingIndexer::folderIn(Node above, std::string_view name)
{
    const std::size_t before = m_index.size();
    const Node node = m_builder.findOrAdd(above, name);
    if (m_isDeleted && m_index.size() > before)
        m_index.setFacts(node, {.kind = FileKind::Folder, .isListed = false, .isDeleted = true});
    return node;
}

/// The current folder is there after all, as something in it is.
void ListingIndexer::revive()
{
    for (auto level = m_levels.rbegin(); level != m_levels.rend(); ++level) {
        if (level->node == NameIndex::kNone)
            continue;
        NameIndex::Facts facts = m_index.facts(level->node);
        if (!facts.isDeleted)
            return;
        facts.isDeleted = false;
        m_index.setFacts(level->node, facts);
    }
}

void ListingIndexer::keep(std::string_view name, const ListedEntry& entry, FileKind kind)
{
    const Node folder = currentNode();
    if (!entry.isDeleted)
        revive();
    const Node node = m_builder.findOrAdd(folder, name);
    const NameIndex::Facts before = m_index.facts(node);
    const bool wasThere = before.isListed && !before.isDeleted;
    if (entry.isDeleted && (before.isListed || (!before.isDeleted && !m_index.isEmpty(node))))
        return; // its place was taken
    if (wasThere && before.kind != FileKind::Unknown)
        return;
    NameIndex::Facts facts{.kind = kind,
                           .size = entry.size,
                           .modified = entry.modified,
                           .isListed = true,
                           .isDeleted = entry.isDeleted};
    if (before.kind == FileKind::Folder && (!before.isDeleted || !m_index.isEmpty(node)))
        facts.kind = FileKind::Folder; // something was listed in it
    m_index.setFacts(node, facts);
    if (facts.kind == FileKind::SymbolicLink && entry.target)
        m_index.setTarget(node, *entry.target);
}

/// Counts what was not kept at the nearest folder that is.
void ListingIndexer::flushUnnamed()
{
    if (m_unnamedEntries == 0 && m_unnamedBytes == 0)
        return;
    revive();
    auto level = m_levels.rbegin();
    while (level->node == NameIndex::kNone)
        ++level;
    m_index.addUnnamed(level->node, m_unnamedEntries, m_unnamedBytes);
    m_unnamedEntries = m_unnamedBytes = 0;
}

void ListingIndexer::finish(bool cutOff)
{
    flushUnnamed();
    if (!cutOff)
        return;
    for (const Level& level : m_levels) {
        if (level.node != NameIndex::kNone)
            m_index.setRefused(level.node, "the list ends in the middle of a line");
    }
}

void ListingIndexer::noteLikelyPrefix()
{
    if (!m_likelyPrefix.empty())
        return;
    for (const std::string_view folder : {"/Users/", "/Library/", "/System/"}) {
        const auto at = m_folder.find(folder);
        if (at != std::string::npos && at > 0)
            m_likelyPrefix = m_rawFolder.substr(0, m_rawFolder.size() - (m_folder.size() - at));
    }
}

} // namespace pryvane
