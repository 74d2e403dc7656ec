#pragma once

#include "platform/NameTree.h"
#include "volume/index/EntryChoice.h"
#include "volume/index/NameIndex.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

/// How far "not among the names" means "not there".
enum class NameCover : std::uint8_t {
    WholeDisk, ///< every folder that could be read holds all its names
    AsListed,  ///< a folder does only when the source names it by itself
};

/// A disk of which only the names are at hand. What they cannot answer is Unknown. Callable from
/// any thread.
class IndexFileSystem final : public FileSystem, private NameTree {
public:
    /// Reads the content of a file of the source; called by one thread at a time.
    using ContentReader = std::function<Result<std::string>(NameIndex::Node, std::size_t limit)>;

    struct Parts {
        std::unique_ptr<NameIndex> names;
        std::shared_ptr<const EntryChoice> choice; ///< by which the names were kept
        NameCover cover = NameCover::AsListed;
        /// Names in the longest path that was listed: folders there may hold more than was listed.
        std::size_t deepest = 0;
        SourceFacts facts;
        std::string identity = {};  ///< see FileSystem; empty where there is none
        ContentReader content = {}; ///< empty where the source holds names alone
    };

    explicit IndexFileSystem(Parts parts);

    [[nodiscard]] Presence presence(const FileURL& url) override;
    [[nodiscard]] FileKind kind(const FileURL& url) override;
    [[nodiscard]] std::optional<Sighting> sighting(const FileURL& url) override;
    [[nodiscard]] std::optional<FileIdentity> fileIdentity(const FileURL& url) override;
    /// When its content last changed, where the source tells that.
    [[nodiscard]] FileTimes times(const FileURL& url) override;
    [[nodiscard]] FolderListing list(const FileURL& folder) override;
    /// Lengths rounded up to blocks of 512 bytes, as far as the source tells them.
    [[nodiscard]] std::int64_t allocatedSize(const FileURL& url) override;
    [[nodiscard]] int openFolder(const FileURL& folder) override;
    [[nodiscard]] bool writable(const FileURL&) override { return false; }
    [[nodiscard]] Result<std::string> readSmallFile(const FileURL& url, std::size_t limit) override;
    [[nodiscard]] std::string identity() const override { return m_parts.identity; }
    [[nodiscard]] DiskSource source() const override
    {
        const std::string& name = m_parts.facts.name;
        return {m_parts.content ? DiskSource::Kind::Image : DiskSource::Kind::Listing,
                name.substr(name.rfind('/') + 1)};
    }
    void forgetListings() override {}
    [[nodiscard]] const NameTree* names() const override { return this; }

    [[nodiscard]] const NameIndex& index() const { return *m_parts.names; }

private:
    using Node = NameIndex::Node;

    struct Found {
        Presence presence = Presence::Absent;
        Node node = NameIndex::kNone; ///< where present
    };
    enum class LastLink : std::uint8_t { Follow, Keep };
    class Walk;

    [[nodiscard]] Found resolve(const FileURL& url, LastLink last) const;
    [[nodiscard]] Presence whereMissing(Node folder, std::string_view name) const;
    [[nodiscard]] bool isWhole(Node folder) const;
    [[nodiscard]] std::int64_t bytesBelow(Node node) const;

    [[nodiscard]] bool visit(const FileURL& folder, const StopFlag& stop,
                             NameVisitor& visitor) const override;
    [[nodiscard]] const SourceFacts& facts() const override { return m_parts.facts; }
    [[nodiscard]] std::vector<std::string> deletedPaths(std::size_t most) const override;

    const Parts m_parts;
    Mutex m_contentMutex;
};

/// Adds up what the names of a source tell of sizes. Callable from any thread.
class IndexSizeMeter final : public SizeMeter {
public:
    explicit IndexSizeMeter(IndexFileSystem& disk) : m_disk(disk) {}

    void measure(std::span<const FileURL> locations, const StopFlag& stop, SizeProgress& progress,
                 const Told& told) override;

private:
    IndexFileSystem& m_disk;
};

} // namespace pryvane
