#pragma once

#include "core/ThreadSafety.h"
#include "platform/FileSystem.h"
#include "volume/HostVolume.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pryvane {

/// The names of one folder, found by any spelling. Unchanging once made, and so shared freely.
class FolderNames {
public:
    explicit FolderNames(const FolderListing& listing);

    struct Name {
        std::string_view spelling;
        FileKind kind = FileKind::Missing;
    };

    /// The entry of exactly that name, else the first listed whose folded name is the same, else
    /// one of kind Missing.
    [[nodiscard]] Name find(std::string_view name) const;

    /// Whether the folder could be read to its end; only then does "not found" mean anything.
    [[nodiscard]] ListStatus status() const { return m_status; }

private:
    // Entries are counted from 1 in what follows; 0 is none.
    struct Entry {
        std::size_t start;
        std::uint32_t next; // of the same hash
        std::uint16_t length;
        FileKind kind;
    };
    struct Slot {
        std::uint32_t hash;
        std::uint32_t first;
        std::uint32_t last; // so that a folder full of spellings of one name is still read quickly
    };

    /// The slot of that hash, or the free one where it would be.
    [[nodiscard]] std::size_t slotOf(std::uint64_t hash) const;

    [[nodiscard]] std::string_view spelling(const Entry& entry) const
    {
        return std::string_view(m_text).substr(entry.start, entry.length);
    }

    ListStatus m_status;
    std::string m_text; // all names, one behind the other
    std::vector<Entry> m_entries;
    std::vector<Slot> m_slots; // open addressing; the size is a power of two
};

/// The folders whose names were read since the last clear(), by their path from the root, which
/// holds no links. Callable from any thread.
class FolderCache {
public:
    using Names = std::shared_ptr<const FolderNames>;

    /// The names of that folder, or null.
    [[nodiscard]] Names find(std::string_view path) const;

    /// Counts the clear() calls, so that names read before one are not stored after it.
    [[nodiscard]] std::uint64_t generation() const;
    void store(std::string_view path, Names names, std::uint64_t generation);
    void clear();

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    mutable Mutex m_mutex;
    std::unordered_map<std::string, Names, Hash, std::equal_to<>> m_folders GUARDED_BY(m_mutex);
    std::uint64_t m_generation GUARDED_BY(m_mutex) = 0;
};

enum class LeafLink : std::uint8_t { Follow, Keep };

/// Reads all entries of an open folder; `error` is that of opening it.
[[nodiscard]] FolderListing readListing(OpenedFolder folder);

/// Finds out how a path is spelled on the disk where letter case and Unicode normal form do not
/// matter: name by name, from the remembered names of each folder on the way. Links are expanded
/// inside the root, their targets' spelling treated likewise. Callable from any thread.
class SpellingResolver {
public:
    /// The root must outlive it.
    SpellingResolver(const ConfinedRoot& root, ImpliedLinks implied)
        : m_root(root), m_implied(implied)
    {
    }

    struct Outcome {
        Presence presence = Presence::Absent;
        std::string
            path; ///< when present: from the root, without leading slash and links on the way
    };

    /// Answers from what is remembered, so "present" wants to be verified on the disk. Unknown
    /// where a folder on the way cannot be read.
    [[nodiscard]] Outcome resolve(std::string_view path, LeafLink leafLink);

    /// Remembers a listing of the folder at that path (as resolve() gives it).
    void remember(std::string_view path, const FolderListing& listing, std::uint64_t generation)
    {
        m_cache.store(path, std::make_shared<FolderNames>(listing), generation);
    }
    [[nodiscard]] std::uint64_t generation() const { return m_cache.generation(); }
    void forget() { m_cache.clear(); }

private:
    [[nodiscard]] FolderCache::Names namesIn(const std::string& folder);

    const ConfinedRoot& m_root;
    const ImpliedLinks m_implied;
    FolderCache m_cache;
};

} // namespace pryvane
