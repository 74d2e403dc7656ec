#pragma once

#include "core/ThreadSafety.h"
#include "platform/FileSystem.h"
#include "volume/NameMatching.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pryvane {

/// The names of a disk as a tree, in 32 bytes an entry above the names themselves. Filled by one
/// thread; from then on callable from any.
class NameIndex {
public:
    using Node = std::uint32_t;
    static constexpr Node kRoot = 0;
    static constexpr Node kNone = 0xffffffff;
    static constexpr std::size_t kLongestName = 0xffff;
    static constexpr std::int64_t kNotKnown = -1;

    struct Facts {
        FileKind kind = FileKind::Unknown;
        std::int64_t size = kNotKnown;     ///< bytes
        std::int64_t modified = kNotKnown; ///< seconds since 1970
        bool isListed = true; ///< named by the source itself, not only as a folder of something
        bool isDeleted = false;
    };

    explicit NameIndex(NameMatching matching);

    /// A further entry of the folder, which must hold none of that name. Throws std::length_error
    /// past 4,294,967,294 entries.
    Node add(Node folder, std::string_view name, const Facts& facts);

    void setFacts(Node node, const Facts& facts);
    void setFolder(Node node) { at(node).kind = static_cast<std::uint8_t>(FileKind::Folder); }
    void setTarget(Node link, std::string_view target) { m_targets[link] = target; }
    void setRefused(Node folder, std::string_view reason) { m_refused[folder] = reason; }

    /// Entries at and below the folder that are not kept by name.
    void addUnnamed(Node folder, std::int64_t entries, std::int64_t bytes);

    [[nodiscard]] std::size_t size() const { return m_count; }
    [[nodiscard]] Facts facts(Node node) const;
    [[nodiscard]] FileKind kind(Node node) const { return static_cast<FileKind>(at(node).kind); }
    [[nodiscard]] std::string_view name(Node node) const;
    [[nodiscard]] Node parent(Node node) const { return at(node).parent; }

    /// The entries of a folder in the order in which they were added: nextIn(folder, kNone) is the
    /// first, and kNone follows the last.
    [[nodiscard]] Node nextIn(Node folder, Node previous) const;
    [[nodiscard]] bool isEmpty(Node folder) const { return at(folder).lastChild == kNone; }

    /// The folder's entry of exactly that name, else the first whose folded name is the same where
    /// names are compared so, else kNone. A deleted entry is found only where no other is.
    [[nodiscard]] Node find(Node folder, std::string_view name) const;

    struct Unnamed {
        std::int64_t entries = 0;
        std::int64_t bytes = 0;
    };
    [[nodiscard]] Unnamed unnamed(Node folder) const;
    [[nodiscard]] const std::string* target(Node link) const;
    [[nodiscard]] const std::string* refused(Node folder) const;

    [[nodiscard]] std::string path(Node node) const; ///< absolute

    [[nodiscard]] NameMatching matching() const { return m_matching; }

    /// Bytes held for nodes and names, for measurements.
    [[nodiscard]] std::size_t bytesForNodes() const { return m_nodes.size() * sizeof(Nodes); }
    [[nodiscard]] std::size_t bytesForNames() const { return m_names.size() * kNamesInChunk; }

private:
    struct Entry {
        std::int64_t size;
        Node parent;
        Node lastChild; ///< whose `next` is the first
        Node next;      ///< of the same folder, in a ring
        std::uint32_t modified;
        std::uint32_t nameChunk : 20;
        std::uint32_t kind : 4;
        std::uint32_t isListed : 1;
        std::uint32_t isDeleted : 1;
        std::uint32_t spare : 6;
        std::uint16_t nameStart;
        std::uint16_t nameLength;
    };
    static_assert(sizeof(Entry) == 32);
    static constexpr std::size_t kNodesInChunk = 4096;
    static constexpr std::size_t kNamesInChunk = 0x10000;
    using Nodes = std::array<Entry, kNodesInChunk>;

    /// The first entries of a folder by the hash of their names, exact or folded.
    using Places = std::unordered_map<std::uint64_t, Node>;
    struct Lookup {
        Places exact;
        Places folded;
    };

    [[nodiscard]] Entry& at(Node node)
    {
        return (*m_nodes[node / kNodesInChunk])[node % kNodesInChunk];
    }
    [[nodiscard]] const Entry& at(Node node) const
    {
        return (*m_nodes[node / kNodesInChunk])[node % kNodesInChunk];
    }
    void storeName(Entry& entry, std::string_view name);
    [[nodiscard]] const Lookup& lookupIn(Node folder) const REQUIRES(m_mutex);

    const NameMatching m_matching;
    const std::uint64_t m_key;
    std::size_t m_count = 0;
    std::vector<std::unique_ptr<Nodes>> m_nodes;
    std::vector<std::unique_ptr<char[]>> m_names;
    std::size_t m_namesUsed = kNamesInChunk; ///< of the last chunk
    std::unordered_map<Node, std::string> m_targets;
    std::unordered_map<Node, std::string> m_refused;
    std::unordered_map<Node, Unnamed> m_unnamed;
    mutable Mutex m_mutex;
    mutable std::unordered_map<Node, Lookup> m_lookups GUARDED_BY(m_mutex);
};

/// Fills an index from paths in any order: finds the folders that are there already.
class NameIndexBuilder {
public:
    explicit NameIndexBuilder(NameIndex& index);

    using Node = NameIndex::Node;

    /// The folder's entry of exactly that name, or kNone.
    [[nodiscard]] Node find(Node folder, std::string_view name) const;

    /// The entry, made as one that was not listed where it is missing.
    Node findOrAdd(Node folder, std::string_view name);

private:
    [[nodiscard]] std::size_t slotOf(Node folder, std::string_view name) const;
    void grow();

    NameIndex& m_index;
    const std::uint64_t m_key;
    std::size_t m_used = 0;
    std::vector<Node> m_slots; ///< open addressing
};

} // namespace pryvane
