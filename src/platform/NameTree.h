#pragma once

#include "core/StopFlag.h"
#include "platform/FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// Where the names of a disk come from, when it is not a mounted folder.
struct SourceFacts {
    std::string source;                    ///< "a list of names", "a disk image"
    std::string name;                      ///< of the file or device on the host, raw bytes
    std::string format;                    ///< in words: "bodyfile"; raw bytes
    std::int64_t entries = 0;              ///< lines, or entries of the disk, that were understood
    std::int64_t skipped = 0;              ///< lines, or entries, that were not
    std::vector<std::string> firstSkipped; ///< the first three of them, raw bytes, cut when long
    std::string remark; ///< what cannot be known from it, in sentences; may be empty
    std::string sha256; ///< of the list, or of the image's files one behind the other; may be empty

    /// Whether the disk was read from anything but mounted folders.
    [[nodiscard]] bool isKnown() const { return !source.empty(); }
    friend bool operator==(const SourceFacts&, const SourceFacts&) = default;
};

/// What goes through the names of a disk, folder by folder.
class NameVisitor {
public:
    virtual ~NameVisitor() = default;
    virtual void enterFolder(std::string_view name) = 0;
    virtual void leaveFolder() = 0;
    /// Anything but a folder. Unknown: the source does not tell files from folders, and holds
    /// nothing below it.
    virtual void entry(std::string_view name, FileKind kind) = 0;
    /// Entries of the current folder that are not kept by name, as nothing in them is looked for.
    virtual void unnamed(std::int64_t entries) = 0;
    /// The current folder could not be read, or not to its end.
    virtual void refused(std::string_view reason) = 0;
};

/// The names of a disk that has no folders to open. Immutable while it is visited; callable from
/// any thread.
class NameTree {
public:
    virtual ~NameTree() = default;

    /// Visits all below the folder, each folder before what it holds. False where there is no such
    /// folder. A stop ends it between two entries.
    [[nodiscard]] virtual bool visit(const FileURL& folder, const StopFlag& stop,
                                     NameVisitor& visitor) const = 0;

    [[nodiscard]] virtual const SourceFacts& facts() const = 0;

    /// The first so many paths that the source names as deleted: nothing is there any more.
    [[nodiscard]] virtual std::vector<std::string> deletedPaths(std::size_t most) const = 0;
};

} // namespace pryvane
