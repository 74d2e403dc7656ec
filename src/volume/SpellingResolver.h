#pragma once

#include "volume/ConfinedRoot.h"
#include "volume/FolderCache.h"

namespace pryvane {

enum class LeafLink : std::uint8_t { Follow, Keep };

/// Reads all entries of an open folder; `error` is that of opening it.
[[nodiscard]] FolderListing readListing(OpenedFolder folder);

/// Finds out how a path is spelled on the disk where letter case and Unicode normal form do not
/// matter: name by name, from the remembered names of each folder on the way. Links are expanded
/// inside the root, their targets' spelling treated likewise. Callable from any thread.
class SpellingResolver {
public:
    /// The root must outlive it.
    explicit SpellingResolver(const ConfinedRoot& root) : m_root(root) {}

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
    FolderCache m_cache;
};

} // namespace pryvane
