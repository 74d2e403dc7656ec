#pragma once

#include "volume/index/EntryChoice.h"
#include "volume/index/NameIndex.h"
#include "volume/listing/ListingFormat.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// Puts the entries of a listing, in whatever order they come, into an index, as far as they are
/// chosen. What is known of a folder is kept while entries of the same folder follow. One thread.
class ListingIndexer {
public:
    /// `prefix` is taken off the front of each path. Everything outlives this.
    ListingIndexer(NameIndex& index, const EntryChoice& choice, std::string_view prefix);

    /// False where the path does not begin with the prefix or cannot be placed in a tree.
    [[nodiscard]] bool add(const ListedEntry& entry);

    /// To be called behind the last entry. `cutOff`: the source ended in the middle of a line, so
    /// that the folders it was in are not known whole.
    void finish(bool cutOff);

    /// Names in the longest path.
    [[nodiscard]] std::size_t deepest() const { return m_deepest; }

    /// The beginning of a path in which a Mac's folders stand further in ("/mnt/mac"); empty where
    /// none was seen.
    [[nodiscard]] const std::string& likelyPrefix() const { return m_likelyPrefix; }

private:
    using Node = NameIndex::Node;

    /// A folder between the root and the current one.
    struct Level {
        std::size_t pathLength = 0; ///< of m_folder up to this folder's slash
        EntryChoice::Folder state;
        Node node = NameIndex::kNone;
    };

    [[nodiscard]] bool moveTo(std::string_view rawFolder);
    void enter(std::string_view name);
    void flushUnnamed();
    [[nodiscard]] Node currentNode();
    [[nodiscard]] Node folderIn(Node above, std::string_view name);
    void revive();
    void keep(std::string_view name, const ListedEntry& entry, FileKind kind);
    void nameRoot(const ListedEntry& entry);
    [[nodiscard]] bool addPartial(std::string_view folder);
    void noteLikelyPrefix();

    NameIndex& m_index;
    NameIndexBuilder m_builder;
    const EntryChoice& m_choice;
    const std::string m_prefix;
    std::string m_rawFolder;     ///< the current folder as the source spells it, to its last slash
    bool m_isPlaced = false;     ///< whether that folder has a place in the tree
    bool m_isDeleted = false;    ///< what the present entry is
    std::string m_folder;        ///< the same, from the root, each name with a slash behind it
    std::vector<Level> m_levels; ///< the root and the folders of m_folder
    std::size_t m_deepest = 0;
    std::int64_t m_unnamedEntries = 0; ///< in the current folder, not yet in the index
    std::int64_t m_unnamedBytes = 0;
    std::string m_likelyPrefix;
};

} // namespace pryvane
