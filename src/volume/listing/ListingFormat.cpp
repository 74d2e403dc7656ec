#include "volume/listing/ListingFormat.h"

#include "volume/listing/EscapedText.h"

namespace pryvane {

std::string_view listingFormatText(ListingFormat format)
{
    switch (format) {
    case ListingFormat::Plain:
        return "paths, one a line";
    case ListingFormat::PlainNul:
        return "paths with NUL behind each";
    case ListingFormat::FindLs:
        return "find -ls";
    case ListingFormat::Bodyfile:
        return "bodyfile";
    case ListingFormat::Mtree:
        return "mtree";
    case ListingFormat::JsonLines:
        return "JSON Lines";
    }
    return {};
}

std::unique_ptr<LineReader> lineReader(ListingFormat format)
{
    switch (format) {
    case ListingFormat::Plain:
    case ListingFormat::PlainNul:
        break;
    case ListingFormat::FindLs:
        return findLines();
    case ListingFormat::Bodyfile:
        return bodyfileLines();
    case ListingFormat::Mtree:
        return mtreeLines();
    case ListingFormat::JsonLines:
        return jsonLines();
    }
    return plainLines();
}

namespace {

bool reads(ListingFormat format, std::string_view line)
{
    ListedEntry entry;
    return lineReader(format)->read(line, entry) == LineReader::Outcome::Entry;
}

/// mtree takes nearly any line; one of its own has a known word behind the name.
bool isMtree(std::string_view line)
{
    if (line.starts_with("#mtree") || line.starts_with("/set "))
        return true;
    if (line.starts_with('/') || takeWord(line).empty())
        return false;
    while (!line.empty()) {
        const std::string_view word = takeWord(line);
        for (const std::string_view key :
             {"type=", "mode=", "uid=", "gid=", "nlink=", "size=", "time="}) {
            if (word.starts_with(key))
                return true;
        }
    }
    return false;
}

std::optional<ListingFormat> formatOf(std::string_view line, std::string_view prefix)
{
    if (isMtree(line))
        return ListingFormat::Mtree;
    if (line.front() == '#')
        return std::nullopt;
    if (line.front() == '{' && reads(ListingFormat::JsonLines, line))
        return ListingFormat::JsonLines;
    for (const ListingFormat format : {ListingFormat::Bodyfile, ListingFormat::FindLs}) {
        if (reads(format, line))
            return format;
    }
    bool isPath = line == "." || line.starts_with('/') || line.starts_with("./") ||
                  (!prefix.empty() && line.starts_with(prefix));
    for (const std::string_view folder :
         {"Users/", "Library/", "System/", "Applications/", "private/"})
        isPath = isPath || line.starts_with(folder);
    return isPath ? std::optional(ListingFormat::Plain) : std::nullopt;
}

} // namespace

std::optional<ListingFormat> recognisedFormat(std::string_view beginning, std::string_view prefix)
{
    if (beginning.find('\0') != beginning.npos)
        return ListingFormat::PlainNul;
    constexpr int kLinesLookedAt = 20;
    for (int seen = 0; seen < kLinesLookedAt && !beginning.empty();) {
        const auto end = beginning.find('\n');
        std::string_view line = beginning.substr(0, end);
        beginning.remove_prefix(end == beginning.npos ? beginning.size() : end + 1);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (line.empty())
            continue;
        ++seen;
        if (const auto format = formatOf(line, prefix))
            return format;
    }
    return std::nullopt;
}

bool beginsLikeListing(std::string_view beginning)
{
    const auto nul = beginning.find('\0');
    if (nul != beginning.npos)
        return nul > 0 && formatOf(beginning.substr(0, nul), {}) == ListingFormat::Plain;
    return recognisedFormat(beginning, {}).has_value();
}

} // namespace pryvane
