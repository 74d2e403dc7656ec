#pragma once

#include "core/Files.h"
#include "platform/FileSystem.h"
#include "volume/folders/FolderHandle.h"

namespace pryvane {

/// Reads the entries of one open folder, in the file system's order, without "." and "..".
class FolderStream {
public:
    /// Takes over a descriptor that was opened for reading.
    explicit FolderStream(UniqueFd fd) : m_folder(fd.release()) {}

    struct Entry {
        const char* name = nullptr; ///< valid until the next call
        FileKind kind = FileKind::Unknown;
    };

    /// Whether another entry was read; at the end or at an error false, see error().
    [[nodiscard]] bool next(Entry& entry);

    /// The errno that ended the reading early, or 0.
    [[nodiscard]] int error() const { return m_error; }

    /// The folder's descriptor, for calls relative to it; -1 if there was none.
    [[nodiscard]] int fd() const { return m_folder.fd(); }

private:
    FolderHandle m_folder;
    FolderBatch m_batch;
    int m_error = 0;
};

} // namespace pryvane
