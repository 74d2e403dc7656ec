#include "volume/index/NameIndex.h"

#include "volume/FoldedName.h"

#include <cstring>
#include <random>
#include <stdexcept>
#include <utility>

namespace pryvane {

namespace {

std::uint64_t randomKey()
{
    std::random_device random;
    return (std::uint64_t{random()} << 32) | random();
}

constexpr std::int64_t kLatest = 0xfffffffe; // seconds; what is later is not known

} // namespace

NameIndex::NameIndex(NameMatching matching) : m_matching(matching), m_key(randomKey())
{
    add(kNone, {}, {.kind = FileKind::Folder, .isListed = false});
}

void NameIndex::storeName(Entry& entry, std::string_view name)
{
    if (name.size() > kLongestName)
        throw std::length_error("a name is too long for the index");
    if (kNamesInChunk - m_namesUsed < name.size()) {
        m_names.push_back(std::make_unique<char[]>(kNamesInChunk));
        m_namesUsed = 0;
    }
    entry.nameLength = static_cast<std::uint16_t>(name.size());
    if (name.empty())
        return;
    entry.nameChunk = static_cast<std::uint32_t>(m_names.size() - 1) & 0xfffff;
    entry.nameStart = static_cast<std::uint16_t>(m_namesUsed);
    std::memcpy(m_names.back().get() + m_namesUsed, name.data(), name.size());
    m_namesUsed += name.size();
}

NameIndex::Node NameIndex::add(Node folder, std::string_view name, const Facts& facts)
{
    if (m_count >= kNone || m_names.size() >= 0xfffff)
        throw std::length_error("the disk has more entries than an index can hold");
    const auto node = static_cast<Node>(m_count);
    if (m_count % kNodesInChunk == 0)
        m_nodes.push_back(std::make_unique<Nodes>());
    Entry& entry = at(node);
    entry = {};
    storeName(entry, name);
    entry.parent = folder;
    entry.lastChild = kNone;
    entry.next = node;
    ++m_count;
    setFacts(node, facts);
    if (folder == kNone)
        return node;
    Entry& holder = at(folder);
    if (holder.lastChild != kNone) {
        entry.next = at(holder.lastChild).next;
        at(holder.lastChild).next = node;
    }
    holder.lastChild = node;
    if (holder.kind == static_cast<std::uint8_t>(FileKind::Unknown))
        setFolder(folder);
    return node;
}

void NameIndex::setFacts(Node node, const Facts& facts)
{
    Entry& entry = at(node);
    entry.size = facts.size;
    const bool known = facts.modified >= 0 && facts.modified <= kLatest;
    entry.modified = known ? static_cast<std::uint32_t>(facts.modified) : kNone;
    entry.kind = static_cast<std::uint8_t>(facts.kind) & 0xf;
    entry.isListed = facts.isListed ? 1 : 0;
    entry.isDeleted = facts.isDeleted ? 1 : 0;
}

void NameIndex::addUnnamed(Node folder, std::int64_t entries, std::int64_t bytes)
{
    Unnamed& unnamed = m_unnamed[folder];
    unnamed.entries += entries;
    unnamed.bytes += bytes;
    if (kind(folder) == FileKind::Unknown)
        setFolder(folder);
}

NameIndex::Facts NameIndex::facts(Node node) const
{
    const Entry& entry = at(node);
    return {.kind = static_cast<FileKind>(entry.kind),
            .size = entry.size,
            .modified = entry.modified == kNone ? kNotKnown : std::int64_t{entry.modified},
            .isListed = entry.isListed != 0,
            .isDeleted = entry.isDeleted != 0};
}

std::string_view NameIndex::name(Node node) const
{
    const Entry& entry = at(node);
    if (entry.nameLength == 0)
        return {};
    return {m_names[entry.nameChunk].get() + entry.nameStart, entry.nameLength};
}

NameIndex::Node NameIndex::nextIn(Node folder, Node previous) const
{
    const Node last = at(folder).lastChild;
    if (last == kNone || previous == last)
        return kNone;
    return at(previous == kNone ? last : previous).next;
}

const NameIndex::Lookup& NameIndex::lookupIn(Node folder) const
{
    const auto [found, isNew] = m_lookups.try_emplace(folder);
    Lookup& lookup = found->second;
    if (!isNew)
        return lookup;
    for (const bool deleted : {false, true}) {
        for (Node node = nextIn(folder, kNone); node != kNone; node = nextIn(folder, node)) {
            if ((at(node).isDeleted != 0) != deleted)
                continue;
            lookup.exact.try_emplace(exactHash(name(node), m_key), node);
            if (m_matching == NameMatching::AsOnMac)
                lookup.folded.try_emplace(foldedHash(name(node), m_key), node);
        }
    }
    return lookup;
}

NameIndex::Node NameIndex::find(Node folder, std::string_view wanted) const
{
    if (isEmpty(folder))
        return kNone;
    const MutexLock lock(m_mutex);
    const Lookup& lookup = lookupIn(folder);
    const auto exact = lookup.exact.find(exactHash(wanted, m_key));
    if (exact != lookup.exact.end() && name(exact->second) == wanted)
        return exact->second;
    if (m_matching == NameMatching::Exact)
        return kNone;
    const auto folded = lookup.folded.find(foldedHash(wanted, m_key));
    const bool same = folded != lookup.folded.end() && sameFoldedName(name(folded->second), wanted);
    return same ? folded->second : kNone;
}

NameIndex::Unnamed NameIndex::unnamed(Node folder) const
{
    const auto found = m_unnamed.find(folder);
    return found == m_unnamed.end() ? Unnamed() : found->second;
}

const std::string* NameIndex::target(Node link) const
{
    const auto found = m_targets.find(link);
    return found == m_targets.end() ? nullptr : &found->second;
}

const std::string* NameIndex::refused(Node folder) const
{
    const auto found = m_refused.find(folder);
    return found == m_refused.end() ? nullptr : &found->second;
}

std::string NameIndex::path(Node node) const
{
    if (node == kRoot)
        return "/";
    std::vector<Node> above;
    for (; node != kRoot; node = parent(node))
        above.push_back(node);
    std::string path;
    for (auto next = above.rbegin(); next != above.rend(); ++next)
        path.append("/").append(name(*next));
    return path;
}

NameIndexBuilder::NameIndexBuilder(NameIndex& index)
    : m_index(index), m_key(randomKey()), m_slots(1024, NameIndex::kNone)
{
}

namespace {

std::size_t hashOf(NameIndex::Node folder, std::string_view name, std::uint64_t key)
{
    return static_cast<std::size_t>(exactHash(name, key + folder * std::uint64_t{2}));
}

} // namespace

/// Where the entry stands, or the free slot where it would.
std::size_t NameIndexBuilder::slotOf(Node folder, std::string_view name) const
{
    std::size_t slot = hashOf(folder, name, m_key) % m_slots.size();
    while (m_slots[slot] != NameIndex::kNone &&
           (m_index.parent(m_slots[slot]) != folder || m_index.name(m_slots[slot]) != name))
        slot = slot + 1 == m_slots.size() ? 0 : slot + 1;
    return slot;
}

NameIndex::Node NameIndexBuilder::find(Node folder, std::string_view name) const
{
    return m_slots[slotOf(folder, name)];
}

NameIndex::Node NameIndexBuilder::findOrAdd(Node folder, std::string_view name)
{
    const std::size_t slot = slotOf(folder, name);
    if (m_slots[slot] != NameIndex::kNone)
        return m_slots[slot];
    const Node node = m_index.add(folder, name, {.isListed = false});
    m_slots[slot] = node;
    if (++m_used * 4 > m_slots.size() * 3)
        grow();
    return node;
}

void NameIndexBuilder::grow()
{
    const std::vector<Node> before =
        std::exchange(m_slots, std::vector<Node>(m_slots.size() * 3 / 2, NameIndex::kNone));
    for (const Node node : before) {
        if (node != NameIndex::kNone)
            m_slots[slotOf(m_index.parent(node), m_index.name(node))] = node;
    }
}

} // namespace pryvane
