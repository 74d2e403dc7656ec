#include "volume/SpellingResolver.h"

#include "core/Result.h"
#include "volume/FoldedName.h"
#include "volume/FolderStream.h"
#include "volume/PathParts.h"

#include <climits>

#include <bit>
#include <random>
#include <utility>

namespace pryvane {

namespace {

std::uint64_t hashKey()
{
    static const std::uint64_t key = [] {
        std::random_device random;
        return (std::uint64_t{random()} << 32) | random();
    }();
    return key;
}

std::uint32_t upperHalf(std::uint64_t hash)
{
    return static_cast<std::uint32_t>(hash >> 32);
}

} // namespace

FolderNames::FolderNames(const FolderListing& listing) : m_status(listing.status)
{
    std::size_t textSize = 0;
    for (const FolderEntry& entry : listing.entries)
        textSize += entry.name.size();
    m_text.reserve(textSize);
    m_entries.reserve(listing.entries.size());
    m_slots.resize(std::bit_ceil(listing.entries.size() * 4 / 3 + 1));

    const std::uint64_t key = hashKey();
    for (const FolderEntry& entry : listing.entries) {
        const auto length = static_cast<std::uint16_t>(entry.name.size());
        m_entries.push_back({m_text.size(), 0, length, entry.kind});
        m_text += entry.name;

        const std::uint64_t hash = foldedHash(entry.name, key);
        const auto number = static_cast<std::uint32_t>(m_entries.size());
        Slot& slot = m_slots[slotOf(hash)];
        if (slot.first == 0)
            slot = {upperHalf(hash), number, number};
        else
            m_entries[std::exchange(slot.last, number) - 1].next = number;
    }
}

std::size_t FolderNames::slotOf(std::uint64_t hash) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t at = hash & mask;
    while (m_slots[at].first != 0 && m_slots[at].hash != upperHalf(hash))
        at = (at + 1) & mask;
    return at;
}

FolderNames::Name FolderNames::find(std::string_view name) const
{
    Name folded;
    std::uint32_t number = m_slots[slotOf(foldedHash(name, hashKey()))].first;
    while (number != 0) {
        const Entry& entry = m_entries[number - 1];
        const std::string_view found = spelling(entry);
        if (found == name)
            return {found, entry.kind};
        if (folded.kind == FileKind::Missing && sameFoldedName(found, name))
            folded = {found, entry.kind};
        number = entry.next;
    }
    return folded;
}

FolderCache::Names FolderCache::find(std::string_view path) const
{
    const MutexLock lock(m_mutex);
    const auto found = m_folders.find(path);
    return found == m_folders.end() ? nullptr : found->second;
}

std::uint64_t FolderCache::generation() const
{
    const MutexLock lock(m_mutex);
    return m_generation;
}

void FolderCache::store(std::string_view path, Names names, std::uint64_t generation)
{
    const MutexLock lock(m_mutex);
    if (generation == m_generation)
        m_folders.insert_or_assign(std::string(path), std::move(names));
}

void FolderCache::clear()
{
    const MutexLock lock(m_mutex);
    m_folders.clear();
    ++m_generation;
}

namespace {

void goUp(std::string& folder)
{
    const auto slash = folder.rfind('/');
    folder.resize(slash == std::string::npos ? 0 : slash);
}

void append(std::string& folder, std::string_view name)
{
    if (!folder.empty())
        folder += '/';
    folder += name;
}

} // namespace

FolderListing readListing(OpenedFolder folder)
{
    FolderListing listing;
    int error = folder.error;
    if (folder.fd) {
        FolderStream stream(std::move(folder.fd));
        FolderStream::Entry entry;
        while (stream.next(entry))
            listing.entries.push_back({entry.name, entry.kind});
        error = stream.error();
    }
    if (error == 0) {
        listing.status = ListStatus::Listed;
    } else if (!meansAbsent(error)) {
        listing.status = ListStatus::Refused;
        listing.reason = errorText(error);
    }
    return listing;
}

SpellingResolver::Outcome SpellingResolver::resolve(std::string_view path, LeafLink leafLink)
{
    // No Mac can name a longer path in one call, so a longer one has its exact spelling only.
    if (path.empty() || path.size() >= PATH_MAX)
        return {};
    std::string expanded; // owns `pending` from the first link on
    std::string_view pending = path;
    std::size_t at = 0;
    int links = 0;
    std::string folder;
    folder.reserve(path.size());
    while (const auto name = nextName(pending, at)) {
        if (*name == ".")
            continue;
        if (*name == "..") {
            goUp(folder);
            continue;
        }
        if (folder.size() >= PATH_MAX)
            return {};
        const auto names = namesIn(folder);
        const auto found = names->find(*name);
        auto target = found.kind == FileKind::Missing && folder.empty()
                          ? m_implied.targetOfFolded(*name)
                          : std::nullopt;
        if (found.kind == FileKind::Missing && !target)
            return {names->status() == ListStatus::Refused ? Presence::Unknown : Presence::Absent,
                    {}};
        const bool last = at == pending.size(); // and no slash says that a folder is meant
        if (found.kind == FileKind::SymbolicLink && !(last && leafLink == LeafLink::Keep)) {
            const OpenedFolder opened = m_root.openFolder(folder, FolderUse::Search);
            target = linkTarget(opened.fd.get(), std::string(found.spelling));
            if (!target)
                return {};
        }
        if (target) {
            if (target->empty() || ++links > kMaxLinks)
                return {};
            if (target->front() == '/')
                folder.clear();
            expanded = target->append(pending.substr(at));
            pending = expanded;
            at = 0;
            continue;
        }
        if (!last && found.kind != FileKind::Folder)
            return {found.kind == FileKind::Unknown ? Presence::Unknown : Presence::Absent, {}};
        append(folder, found.spelling);
    }
    return {Presence::Present, std::move(folder)};
}

FolderCache::Names SpellingResolver::namesIn(const std::string& folder)
{
    if (auto names = m_cache.find(folder))
        return names;
    const std::uint64_t generation = m_cache.generation();
    auto names =
        std::make_shared<FolderNames>(readListing(m_root.openFolder(folder, FolderUse::Read)));
    m_cache.store(folder, names, generation);
    return names;
}

} // namespace pryvane
