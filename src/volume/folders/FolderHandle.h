#pragma once

#include "platform/FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>
#include <utility>

namespace pryvane {

/// Which folder of the host it is, whatever it is called.
struct FolderId {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    friend bool operator==(const FolderId&, const FolderId&) = default;
};

/// Some hosts count devices with a sign.
[[nodiscard]] inline FolderId folderIdOf(const struct stat& data)
{
    return {static_cast<std::uint64_t>(data.st_dev), data.st_ino};
}

/// How to open a folder from which to look and lead on, with as few rights as the host lets.
#ifdef O_PATH
inline constexpr int kToSearch = O_PATH | O_DIRECTORY | O_CLOEXEC;
#elif defined(O_SEARCH)
inline constexpr int kToSearch = O_SEARCH | O_DIRECTORY | O_CLOEXEC;
#else
inline constexpr int kToSearch = O_RDONLY | O_NONBLOCK | O_DIRECTORY | O_CLOEXEC;
#endif

[[nodiscard]] FileKind kindOfMode(mode_t mode);

/// What stands there, links not followed; for entries whose kind the listing leaves out. Missing
/// where nothing does, Unknown where that cannot be told.
[[nodiscard]] FileKind kindAt(int folder, const char* name);

/// One folder held open. Nothing is opened through a link. One thread at a time.
class FolderHandle {
public:
    FolderHandle() = default;
    /// Takes over a descriptor.
    explicit FolderHandle(int fd) : m_fd(fd) {}
    FolderHandle(FolderHandle&& other) noexcept
        : m_fd(std::exchange(other.m_fd, -1)), m_stream(std::exchange(other.m_stream, nullptr)),
          m_failure(std::exchange(other.m_failure, 0))
    {
    }
    FolderHandle& operator=(FolderHandle&& other) noexcept
    {
        close();
        m_fd = std::exchange(other.m_fd, -1);
        m_stream = std::exchange(other.m_stream, nullptr);
        m_failure = std::exchange(other.m_failure, 0);
        return *this;
    }
    ~FolderHandle() { close(); }

    /// Opens the folder of that name, "." and ".." included; not open, with errno set, on failure.
    [[nodiscard]] static FolderHandle openIn(int folder, const char* name);
    [[nodiscard]] FolderHandle openChild(const char* name) const { return openIn(m_fd, name); }

    /// Opens the folder above, where that still is the one it was; else not open.
    [[nodiscard]] FolderHandle openParent(const FolderId& was) const;

    /// Another handle of the same folder, not for reading: both would share their place in it.
    [[nodiscard]] FolderHandle duplicate() const;

    /// For calls relative to it; stays owned by this object.
    [[nodiscard]] int fd() const { return m_fd; }
    [[nodiscard]] bool isOpen() const { return m_fd >= 0; }
    explicit operator bool() const { return isOpen(); }
    [[nodiscard]] FolderId id() const; ///< a null device and inode where it cannot be told
    void close();

private:
    friend class FolderBatch;
    int m_fd = -1;
    DIR* m_stream = nullptr; ///< where the host has no call that reads a descriptor directly
    int m_failure = 0;       ///< the errno at which such a stream stopped before its end
};

/// The buffer through which a thread reads folders, some thousand entries at a time.
class FolderBatch {
public:
    struct Entry {
        std::string_view name; ///< NUL-terminated; valid until the next fill()
        FileKind kind = FileKind::Unknown;
    };

    /// Reads on where the folder's last fill stopped. False, with errno set, on failure.
    [[nodiscard]] bool fill(FolderHandle& folder);

    /// Whether nothing can follow the entries of the last fill().
    [[nodiscard]] bool atEnd() const { return m_atEnd; }

    /// The next entry in the file system's order, without "." and "..".
    [[nodiscard]] bool next(Entry& entry);

private:
    static constexpr std::size_t kSize = 32768;

    /// The next of entries that fill() put down as a kind and a NUL-terminated name each.
    [[nodiscard]] bool nextKept(Entry& entry)
    {
        if (m_at >= m_filled)
            return false;
        entry.kind = static_cast<FileKind>(m_buffer[m_at]);
        entry.name = m_buffer.get() + m_at + 1;
        m_at += entry.name.size() + 2;
        if (entry.kind == FileKind::Unknown)
            entry.kind = kindAt(m_folder->fd(), entry.name.data());
        return true;
    }

    const FolderHandle* m_folder = nullptr;
    std::unique_ptr<char[]> m_buffer = std::make_unique<char[]>(kSize);
    std::size_t m_filled = 0;
    std::size_t m_at = 0;
    bool m_atEnd = false;
};

/// Whether the open folder is where something is mounted, as far as the host tells. A folder that
/// the system shows in two places, as a Mac does with those of its data volume, is none.
[[nodiscard]] bool isMountRoot(int folder);

} // namespace pryvane
