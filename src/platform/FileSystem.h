#pragma once

#include "core/Result.h"
#include "core/StopFlag.h"
#include "core/Texts.h"
#include "platform/FileURL.h"

#include <atomic>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

class NameTree;

/// "There", "not there" and "could not be told" are three answers.
enum class Presence : std::uint8_t { Absent, Present, Unknown };

enum class FileKind : std::uint8_t { Missing, Folder, RegularFile, SymbolicLink, Other, Unknown };

struct FolderEntry {
    std::string name; ///< raw bytes, never "." or ".."
    FileKind kind = FileKind::Unknown;
};

enum class ListStatus : std::uint8_t { Listed, Missing, Refused };

/// What a disk comes as, and what it is called there: the last part of the folder's or file's name,
/// raw bytes.
struct DiskSource {
    enum class Kind : std::uint8_t { Unknown, ThisMac, Folder, Image, Listing };
    Kind kind = Kind::Unknown;
    std::string name;
    friend bool operator==(const DiskSource&, const DiskSource&) = default;
};

/// Whether the identities are those of one volume. An empty one tells nothing of any.
[[nodiscard]] inline bool isSameVolume(std::string_view a, std::string_view b)
{
    return !a.empty() && a == b;
}

/// Which folder holds an item, links on the way followed, and what the item itself is: enough to
/// notice later that a link was put, or turned, in between. Kept in memory only.
struct Sighting {
    std::uint64_t device = 0; ///< of the folder that holds it
    std::uint64_t inode = 0;  ///< of the folder that holds it
    FileKind kind = FileKind::Unknown;
    friend bool operator==(const Sighting&, const Sighting&) = default;
};

/// Which file or folder something is, whatever paths lead to it. Kept in memory only.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    friend auto operator<=>(const FileIdentity&, const FileIdentity&) = default;
};

/// A moment as a disk has it; none where that is not known. Small, as there may be a million.
class DiskMoment {
public:
    constexpr DiskMoment() = default;
    constexpr DiskMoment(Date date) // NOLINT(google-explicit-constructor): one that is known
        : m_milliseconds(date.time_since_epoch().count())
    {
    }
    /// None outside the years 1700 to 2199, which no disk means in earnest.
    [[nodiscard]] static DiskMoment of(std::int64_t seconds, std::int64_t nanoseconds = 0);

    [[nodiscard]] constexpr explicit operator bool() const { return m_milliseconds != kNone; }
    [[nodiscard]] constexpr Date operator*() const
    {
        return Date(std::chrono::milliseconds(m_milliseconds));
    }
    friend bool operator==(const DiskMoment&, const DiskMoment&) = default;

private:
    static constexpr std::int64_t kNone = INT64_MIN;
    std::int64_t m_milliseconds = kNone; ///< since 1970
};

/// When something was made, when its content and when anything of it last changed.
struct FileTimes {
    DiskMoment birth;
    DiskMoment modified;
    DiskMoment changed;

    friend bool operator==(const FileTimes&, const FileTimes&) = default;
};

/// What a walk saw of an entry in the folder that it had open, so that nobody need find it again.
struct SeenEntry {
    Sighting sighting;
    std::optional<FileTimes> times; ///< none where they were not asked for
};

/// The direct entries of one folder, in the order in which the file system lists them.
struct FolderListing {
    ListStatus status = ListStatus::Missing;
    std::vector<FolderEntry> entries;
    std::string reason; ///< in words, when refused: "permission denied"
};

/// The scanned volume: every path is resolved inside it, whatever links it holds, and nothing
/// outside it is ever listed, measured or changed. Existence tests and listings follow links inside
/// the volume; measuring never follows one. Callable from any thread.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// Whether something exists there. A dangling link does not; a path that ends in "/" must be a
    /// folder. Unknown where a folder on the way could not be searched.
    [[nodiscard]] virtual Presence presence(const FileURL& url) = 0;

    /// Whether something stands in the folder under each of these very names, links followed: what
    /// presence() and spelledPath() say together, for many at once. In the names' order.
    [[nodiscard]] virtual std::vector<Presence>
    presencesIn(const FileURL& folder, std::span<const std::string_view> names);

    /// What stands at the location itself, links not followed at its end.
    [[nodiscard]] virtual FileKind kind(const FileURL& url) = 0;

    /// Where the item is right now; none where nothing is or the folder cannot be searched.
    [[nodiscard]] virtual std::optional<Sighting> sighting(const FileURL& url) = 0;

    /// What stands at the location itself, links on the way followed; none where nothing does or it
    /// cannot be told.
    [[nodiscard]] virtual std::optional<FileIdentity> fileIdentity(const FileURL&)
    {
        return std::nullopt;
    }

    /// The moments of what stands at the location itself, links not followed at its end.
    [[nodiscard]] virtual FileTimes times(const FileURL&) { return {}; }

    /// The absolute path under which the disk itself has what stands there, links not followed at
    /// its end; none where nothing does, or where that cannot be told. The same as the asked path
    /// where that is spelled exactly.
    [[nodiscard]] virtual std::optional<std::string> spelledPath(const FileURL&)
    {
        return std::nullopt;
    }

    [[nodiscard]] virtual FolderListing list(const FileURL& folder) = 0;

    /// Allocated bytes of a file, or of all files below a folder: 512-byte blocks × 512, folders
    /// counting 0, links not followed. What cannot be read counts 0.
    [[nodiscard]] virtual std::int64_t allocatedSize(const FileURL& url) = 0;

    /// A descriptor of the folder, open for reading and now the caller's; -1 with errno set where
    /// there is none to be had.
    [[nodiscard]] virtual int openFolder(const FileURL& folder) = 0;

    [[nodiscard]] virtual bool writable(const FileURL& url) = 0;

    /// The content of a small regular file, or why it could not be had. Links, FIFOs and devices
    /// are refused, and so is anything longer than `limit` bytes.
    [[nodiscard]] virtual Result<std::string> readSmallFile(const FileURL& url,
                                                            std::size_t limit) = 0;

    /// The SHA-256 of a regular file's content, links not followed at its end, as 64 hexadecimal
    /// digits; or why it could not be had. Files of any length where they are read from folders,
    /// else up to 64 MiB.
    [[nodiscard]] virtual Result<std::string> contentHash(const FileURL& url, const StopFlag& stop);

    /// Opaque bytes that tell this volume from others and survive mounting it again; empty where
    /// the file system has nothing that does.
    [[nodiscard]] virtual std::string identity() const = 0;

    /// The names of a disk that has no folders to open; null where openFolder() is the way.
    [[nodiscard]] virtual const NameTree* names() const { return nullptr; }

    [[nodiscard]] virtual DiskSource source() const { return {}; }

    /// The absolute path of what stands there, links on the way taken out and in the disk's
    /// spelling; empty where it cannot be told.
    [[nodiscard]] virtual std::string placeBehindLinks(const FileURL& url) const
    {
        return url.absolutePath();
    }

    /// Whether it is a Mac's data volume by itself, without the system volume that goes with it.
    [[nodiscard]] virtual bool lacksSystemVolume() const { return false; }

    /// Drops what was remembered of folders' spellings; called when a scan starts.
    virtual void forgetListings() = 0;

    [[nodiscard]] bool exists(const FileURL& url) { return presence(url) == Presence::Present; }

    /// The accounts of a Mac's disk, by the names of the folders in which they live.
    [[nodiscard]] std::vector<std::string> homes();
};

/// How far a measurement is, for a display that looks now and then.
struct SizeProgress {
    std::atomic<std::uint64_t> entries{0}; ///< files and links looked at
};

/// Measures many locations of one volume at once, on all cores. Links are not followed and folders
/// themselves count 0; each entry counts its allocated 512-byte blocks × 512, once per name.
class SizeMeter {
public:
    virtual ~SizeMeter() = default;

    /// Called once for each location when its bytes are known, in any order, on any thread, but
    /// never on two at once.
    using Told = std::function<void(std::size_t location, std::int64_t bytes)>;

    /// Blocks until all locations are told. A stop ends it between two entries; locations that were
    /// not finished are not told. What is missing or cannot be read counts 0.
    virtual void measure(std::span<const FileURL> locations, const StopFlag& stop,
                         SizeProgress& progress, const Told& told) = 0;
};

/// Whether the disk, or its folder at that path, has any of the folders that a Mac keeps in its
/// root. What could not be told counts as there.
[[nodiscard]] bool holdsMac(FileSystem& disk, std::string_view folder = "/");

} // namespace pryvane
