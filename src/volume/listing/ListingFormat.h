#pragma once

#include "platform/FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

/// How a list of a disk's names is written.
enum class ListingFormat : std::uint8_t { Plain, PlainNul, FindLs, Bodyfile, Mtree, JsonLines };

/// "find -ls", for a person.
[[nodiscard]] std::string_view listingFormatText(ListingFormat format);

/// Whether the format tells files from folders.
[[nodiscard]] inline bool tellsKinds(ListingFormat format)
{
    return format != ListingFormat::Plain && format != ListingFormat::PlainNul;
}

/// The byte that ends a line.
[[nodiscard]] inline char lineEnd(ListingFormat format)
{
    return format == ListingFormat::PlainNul ? '\0' : '\n';
}

/// Lines longer than this are not understood.
inline constexpr std::size_t kLongestLine = 0xffff;

/// What one line says. Texts are valid until the next line is read.
struct ListedEntry {
    static constexpr std::int64_t kNotKnown = -1;

    std::string_view path; ///< as it stands there, escapes taken out
    FileKind kind = FileKind::Unknown;
    std::int64_t size = kNotKnown;          ///< bytes
    std::int64_t modified = kNotKnown;      ///< seconds since 1970
    std::optional<std::string_view> target; ///< of a link
    bool isDeleted = false;
    bool isPartial =
        false; ///< a folder of which not all names are on the list; nothing else is told
};

/// Reads the lines of one format, in their order. One thread.
class LineReader {
public:
    enum class Outcome : std::uint8_t { Entry, Nothing, Malformed };

    virtual ~LineReader() = default;

    /// `entry` is set where the line names one; a comment, say, is Nothing.
    [[nodiscard]] virtual Outcome read(std::string_view line, ListedEntry& entry) = 0;
};

/// The format of a list that begins with these bytes, or none where no line of them tells.
/// `prefix` is what paths may begin with.
[[nodiscard]] std::optional<ListingFormat> recognisedFormat(std::string_view beginning,
                                                            std::string_view prefix);

/// Whether a file that begins with these bytes is a list rather than an image.
[[nodiscard]] bool beginsLikeListing(std::string_view beginning);

[[nodiscard]] std::unique_ptr<LineReader> lineReader(ListingFormat format);

/// In a bodyfile, what stands before the path of a folder whose names are not all on the list.
inline constexpr std::string_view kPartialMark = "# not all read: ";

// One for each format.
[[nodiscard]] std::unique_ptr<LineReader> plainLines();
[[nodiscard]] std::unique_ptr<LineReader> findLines();
[[nodiscard]] std::unique_ptr<LineReader> bodyfileLines();
[[nodiscard]] std::unique_ptr<LineReader> mtreeLines();
[[nodiscard]] std::unique_ptr<LineReader> jsonLines();

} // namespace pryvane
