#include "volume/listing/EscapedText.h"
#include "volume/listing/ListingFormat.h"
#include "volume/listing/Modes.h"

#include <array>

namespace pryvane {

namespace {

/// MD5|name|inode|mode|uid|gid|size|atime|mtime|ctime|crtime. The name may hold the bar itself, so
/// the fields behind it are counted from the end.
class BodyfileLines final : public LineReader {
public:
    Outcome read(std::string_view line, ListedEntry& entry) override
    {
        if (line.starts_with(kPartialMark)) {
            entry = {};
            entry.path = line.substr(kPartialMark.size());
            entry.kind = FileKind::Folder;
            entry.isPartial = true;
            return Outcome::Entry;
        }
        if (line.empty() || line.front() == '#')
            return Outcome::Nothing;
        enum Field { Inode, Mode, Uid, Gid, Size, Atime, Mtime, Ctime, Crtime, kFields };
        std::array<std::string_view, kFields> fields;
        const auto md5 = line.find('|');
        if (md5 == line.npos)
            return Outcome::Malformed;
        line.remove_prefix(md5 + 1);
        for (std::size_t field = kFields; field-- > 0;) {
            const auto bar = line.rfind('|');
            if (bar == line.npos)
                return Outcome::Malformed;
            fields[field] = line.substr(bar + 1);
            line = line.substr(0, bar);
        }
        const auto size = numberIn(fields[Size]);
        if (!size || !isTime(fields[Atime]) || !isTime(fields[Mtime]) || !isTime(fields[Ctime]) ||
            !isTime(fields[Crtime]))
            return Outcome::Malformed;
        entry = {};
        if (!setKind(fields[Mode], entry))
            return Outcome::Malformed;
        setName(line, entry);
        if (entry.path.empty())
            return Outcome::Malformed;
        if (entry.kind == FileKind::RegularFile)
            entry.size = *size;
        const auto modified = numberIn(fields[Mtime]).value_or(0);
        entry.modified = modified > 0 ? modified : ListedEntry::kNotKnown;
        return Outcome::Entry;
    }

private:
    /// Times before 1970 and ones that are not known are written with a minus.
    static bool isTime(std::string_view text)
    {
        if (text.starts_with('-'))
            text.remove_prefix(1);
        return numberIn(text).has_value();
    }

    /// "r/rrwxr-xr-x": what the name says it is, then what the file itself is.
    static bool setKind(std::string_view mode, ListedEntry& entry)
    {
        if (mode.empty())
            return false;
        char letter = mode.front();
        if (mode.size() >= 3 && mode[1] == '/' && mode[2] != '-')
            letter = mode[2];
        const bool says = letter != '-' || (mode.size() >= 10 && mode[1] != '/');
        const auto kind = kindOfLetter(letter);
        entry.kind = says && kind ? *kind : FileKind::Unknown;
        return true;
    }

    static void setName(std::string_view name, ListedEntry& entry)
    {
        for (const std::string_view mark : {" (deleted)", " (deleted-realloc)"}) {
            if (name.ends_with(mark)) {
                name.remove_suffix(mark.size());
                entry.isDeleted = true;
            }
        }
        if (entry.kind == FileKind::SymbolicLink) {
            const NameAndTarget parts = nameAndTarget(name);
            name = parts.name;
            entry.target = parts.target;
        }
        entry.path = name;
    }
};

} // namespace

std::unique_ptr<LineReader> bodyfileLines()
{
    return std::make_unique<BodyfileLines>();
}

} // namespace pryvane
