#include "volume/listing/EscapedText.h"
#include "volume/listing/ListingFormat.h"
#include "volume/listing/Modes.h"

#include <string>

namespace pryvane {

namespace {

/// inode blocks mode links owner group size month day time-or-year path [-> target], as find -ls
/// writes it. A device has "major, minor" in place of the size. A time without a year is not taken.
class FindLines final : public LineReader {
public:
    Outcome read(std::string_view line, ListedEntry& entry) override
    {
        if (line.empty())
            return Outcome::Nothing;
        entry = {};
        if (!numberIn(takeWord(line)) || !numberIn(takeWord(line)))
            return Outcome::Malformed;
        const std::string_view mode = takeWord(line);
        const auto kind = mode.size() >= 10 ? kindOfLetter(mode.front()) : std::nullopt;
        if (!kind || !numberIn(takeWord(line)))
            return Outcome::Malformed;
        static_cast<void>(takeWord(line)); // owner
        static_cast<void>(takeWord(line)); // group
        std::string_view size = takeWord(line);
        if (size.ends_with(',')) {
            size = {};
            static_cast<void>(takeWord(line));
        } else if (!numberIn(size)) {
            return Outcome::Malformed;
        }
        if (takeWord(line).empty() || takeWord(line).empty() || takeWord(line).empty())
            return Outcome::Malformed;
        if (line.size() < 2 || line.front() != ' ')
            return Outcome::Malformed;
        line.remove_prefix(1);
        entry.kind = *kind;
        if (*kind == FileKind::RegularFile)
            entry.size = numberIn(size).value_or(ListedEntry::kNotKnown);
        NameAndTarget parts{line, std::nullopt};
        if (*kind == FileKind::SymbolicLink)
            parts = nameAndTarget(line);
        entry.path = withoutEscapes(parts.name, m_path);
        if (parts.target)
            entry.target = withoutEscapes(*parts.target, m_target);
        return Outcome::Entry;
    }

private:
    std::string m_path;
    std::string m_target;
};

} // namespace

std::unique_ptr<LineReader> findLines()
{
    return std::make_unique<FindLines>();
}

} // namespace pryvane
