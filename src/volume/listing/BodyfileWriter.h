#pragma once

#include "core/Result.h"
#include "core/StopFlag.h"
#include "volume/index/NameIndex.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// Writes the names of a disk as a bodyfile: MD5|name|inode|mode|uid|gid|size|atime|mtime|ctime|
/// crtime, of which name, kind, size and time of change are filled in. A folder of which a name
/// cannot be written, or not all could be read, is marked, so that nothing is taken for absent that
/// is only not on the list. One thread.
class BodyfileWriter {
public:
    explicit BodyfileWriter(std::ostream& out) : m_out(out) {}

    /// All names of an index; ends early on a stop, and where nothing more can be written.
    void write(const NameIndex& names, const StopFlag& stop);

    /// All names below a folder of this computer, which stands for the root. Nothing is opened
    /// through a link, and the folder is not left for another file system that is mounted in it.
    /// The error says why it cannot be opened.
    [[nodiscard]] Result<Done> write(const std::string& folder, const StopFlag& stop);

    [[nodiscard]] std::uint64_t entries() const { return m_entries; }
    /// Names that the format cannot hold: those with a line break.
    [[nodiscard]] std::uint64_t leftOut() const { return m_leftOut; }
    /// Folders that could not be read, or not to their end.
    [[nodiscard]] std::uint64_t unread() const { return m_unread; }

private:
    class FolderWalk;

    struct Line {
        FileKind kind = FileKind::Unknown;
        std::int64_t size = 0;
        std::int64_t modified = 0;
        bool isDeleted = false;
        const std::string* target = nullptr;
    };

    [[nodiscard]] bool line(std::string_view path, const Line& facts);
    void markPartial(std::string_view folder);

    std::ostream& m_out;
    std::uint64_t m_entries = 0;
    std::uint64_t m_leftOut = 0;
    std::uint64_t m_unread = 0;
};

} // namespace pryvane
