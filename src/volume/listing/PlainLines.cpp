#include "volume/listing/ListingFormat.h"

namespace pryvane {

namespace {

/// One path a line. The first one settles how all of them begin, so that the second half of a name
/// with a newline in it is not taken for a path.
class PlainLines final : public LineReader {
public:
    Outcome read(std::string_view line, ListedEntry& entry) override
    {
        if (line.empty())
            return Outcome::Nothing;
        const Beginning beginning = beginningOf(line);
        if (m_beginning == Beginning::NotSeen)
            m_beginning = beginning;
        if (m_beginning != Beginning::Name && beginning != m_beginning)
            return Outcome::Malformed;
        entry = {};
        entry.path = line;
        return Outcome::Entry;
    }

private:
    enum class Beginning : std::uint8_t { NotSeen, Root, Here, Name };

    static Beginning beginningOf(std::string_view line)
    {
        if (line.front() == '/')
            return Beginning::Root;
        return line == "." || line.starts_with("./") ? Beginning::Here : Beginning::Name;
    }

    Beginning m_beginning = Beginning::NotSeen;
};

} // namespace

std::unique_ptr<LineReader> plainLines()
{
    return std::make_unique<PlainLines>();
}

} // namespace pryvane
