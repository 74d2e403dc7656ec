#pragma once

#include "platform/FileSystem.h"
#include "platform/posix/UniqueFd.h"

#include <dirent.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>

namespace pryvane {

[[nodiscard]] FileKind kindOfMode(mode_t mode);

/// Reads the entries of one open folder, in the file system's order, without "." and "..".
class FolderStream {
public:
    /// Takes over a descriptor that was opened for reading.
    explicit FolderStream(UniqueFd fd);

    struct Entry {
        const char* name = nullptr; ///< valid until the next call
        FileKind kind = FileKind::Unknown;
    };

    /// Whether another entry was read; at the end or at an error false, see error().
    [[nodiscard]] bool next(Entry& entry);

    /// The errno that ended the reading early, or 0.
    [[nodiscard]] int error() const { return m_error; }

    /// The folder's descriptor, for calls relative to it; -1 if it could not be read at all.
    [[nodiscard]] int fd() const { return m_stream ? dirfd(m_stream.get()) : -1; }

private:
    struct Closer {
        void operator()(DIR* stream) const { closedir(stream); }
    };
    std::unique_ptr<DIR, Closer> m_stream;
    int m_error = 0;
};

} // namespace pryvane
