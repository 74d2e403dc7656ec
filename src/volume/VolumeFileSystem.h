#pragma once

#include "platform/FileSystem.h"
#include "volume/AllocatedSize.h"
#include "volume/NameMatching.h"
#include "volume/SpellingResolver.h"

#include <memory>
#include <optional>

namespace pryvane {

enum class Confinement : std::uint8_t {
    BestAvailable,
    ComponentWalk, ///< as on a host whose kernel does not offer it
};

/// The file system below one folder of the host, seen as the root of a Mac's disk. The folder is
/// opened once, and everything is reached through that handle. Callable from any thread.
class VolumeFileSystem final : public FileSystem {
public:
    struct Options {
        NameMatching nameMatching = NameMatching::AsOnMac; ///< ignored for "/", which has its own
        Confinement confinement = Confinement::BestAvailable;
    };

    /// Fails when there is no such folder or it cannot be read; the message says what to do.
    static Result<std::unique_ptr<VolumeFileSystem>> open(std::string_view hostFolder,
                                                          Options options);
    static Result<std::unique_ptr<VolumeFileSystem>> open(std::string_view hostFolder)
    {
        return open(hostFolder, Options());
    }

    [[nodiscard]] Presence presence(const FileURL& url) override;
    [[nodiscard]] std::vector<Presence>
    presencesIn(const FileURL& folder, std::span<const std::string_view> names) override;
    [[nodiscard]] FileKind kind(const FileURL& url) override;
    [[nodiscard]] std::optional<Sighting> sighting(const FileURL& url) override;
    [[nodiscard]] std::optional<FileIdentity> fileIdentity(const FileURL& url) override;
    [[nodiscard]] FolderListing list(const FileURL& folder) override;
    [[nodiscard]] std::int64_t allocatedSize(const FileURL& url) override;
    [[nodiscard]] int openFolder(const FileURL& folder) override;
    [[nodiscard]] bool writable(const FileURL& url) override;
    [[nodiscard]] Result<std::string> readSmallFile(const FileURL& url, std::size_t limit) override;
    [[nodiscard]] Result<std::string> contentHash(const FileURL& url,
                                                  const StopFlag& stop) override;
    [[nodiscard]] std::string identity() const override { return m_identity; }
    [[nodiscard]] DiskSource source() const override { return m_source; }
    [[nodiscard]] bool lacksSystemVolume() const override { return m_implied.any(); }
    void forgetListings() override { m_spellings.forget(); }

    [[nodiscard]] FileTimes times(const FileURL& url) override;
    [[nodiscard]] std::optional<std::string> spelledPath(const FileURL& url) override;

    /// What allocatedSize() measures there: a folder open for reading, or the bytes of what is
    /// none.
    [[nodiscard]] Measurable measurable(const FileURL& url);

    [[nodiscard]] NameMatching nameMatching() const { return m_matching; }

    /// The folder that holds what stands there, links on the way followed inside the volume, and
    /// the item's name as the disk spells it; read anew, not from what is remembered.
    struct Parent {
        UniqueFd parent;
        std::string name;
        int error = 0; ///< errno, where there is none
    };
    [[nodiscard]] Parent openParent(const FileURL& url) const;

    /// The absolute path of what stands there, links on the way taken out and in the disk's
    /// spelling, read anew; empty where it cannot be told.
    [[nodiscard]] std::string placeBehindLinks(const FileURL& url) const override;

    /// The links to /private that the volume lacks and that are followed all the same.
    [[nodiscard]] ImpliedLinks impliedLinks() const { return m_implied; }

    /// Whether the volume is the very disk that this host runs from.
    [[nodiscard]] bool isHostRoot() const { return m_isHostRoot; }

    /// The volume's folder, open for reading, for calls relative to it. Stays owned by this object.
    [[nodiscard]] int rootHandle() const { return m_rootFd.get(); }

private:
    VolumeFileSystem(const std::string& hostFolder, UniqueFd rootFd,
                     std::unique_ptr<ConfinedRoot> root, ImpliedLinks implied,
                     NameMatching matching);

    struct Place;
    [[nodiscard]] Place placeOf(const std::string& path, bool mustBeFolder) const;
    [[nodiscard]] Place locate(const FileURL& url);
    [[nodiscard]] Result<UniqueFd> openRegularFile(const FileURL& url);
    [[nodiscard]] bool isRoot(int folder) const;

    UniqueFd m_rootFd;
    std::unique_ptr<ConfinedRoot> m_root;
    ImpliedLinks m_implied;
    bool m_isHostRoot;
    NameMatching m_matching;
    std::string m_identity;
    DiskSource m_source;
    SpellingResolver m_spellings;
};

/// Measures on a volume. Callable from any thread.
class VolumeSizeMeter final : public SizeMeter {
public:
    /// The volume must outlive this.
    explicit VolumeSizeMeter(VolumeFileSystem& volume);
    VolumeSizeMeter(VolumeFileSystem& volume, unsigned threads)
        : m_volume(volume), m_threads(threads)
    {
    }

    void measure(std::span<const FileURL> locations, const StopFlag& stop, SizeProgress& progress,
                 const Told& told) override;

private:
    VolumeFileSystem& m_volume;
    unsigned m_threads;
};

} // namespace pryvane
