#include "volume/listing/EscapedText.h"
#include "volume/listing/ListingFormat.h"

#include <string>
#include <utility>

namespace pryvane {

namespace {

FileKind kindOfWord(std::string_view word)
{
    if (word == "file")
        return FileKind::RegularFile;
    if (word == "dir")
        return FileKind::Folder;
    if (word == "link")
        return FileKind::SymbolicLink;
    return FileKind::Other;
}

/// A listing as BSD's mtree writes it: names below the folder that was named last, ".." to leave
/// it, or whole paths, which have a slash; behind them words like type=dir, size=12.
class MtreeLines final : public LineReader {
public:
    MtreeLines() { m_defaults.kind = FileKind::RegularFile; }

    Outcome read(std::string_view line, ListedEntry& entry) override
    {
        if (line.ends_with('\\')) { // goes on in the next line
            line.remove_suffix(1);
            if (m_line.size() + line.size() > kLongestLine) {
                m_line.clear();
                return Outcome::Malformed;
            }
            m_line.append(line).append(" ");
            return Outcome::Nothing;
        }
        if (m_line.empty())
            return readWhole(line, entry);
        m_line.append(line);
        const std::string whole = std::exchange(m_line, {});
        return readWhole(whole, entry);
    }

private:
    Outcome readWhole(std::string_view line, ListedEntry& entry)
    {
        const std::string_view first = takeWord(line);
        if (first.empty() || first.front() == '#')
            return Outcome::Nothing;
        if (first == "/set") {
            readWords(line, m_defaults);
            return Outcome::Nothing;
        }
        if (first == "/unset") {
            while (!line.empty()) {
                const std::string_view word = takeWord(line);
                if (word == "type" || word == "all")
                    m_defaults.kind = FileKind::RegularFile;
            }
            return Outcome::Nothing;
        }
        if (first == "..") {
            if (m_folder.empty())
                return Outcome::Malformed;
            const auto slash = m_folder.rfind('/');
            m_folder.resize(slash == std::string::npos ? 0 : slash);
            return Outcome::Nothing;
        }
        entry = m_defaults;
        readWords(line, entry);
        const std::string_view name = withoutEscapes(first, m_name);
        m_path.assign(name);
        if (first.find('/') != first.npos) {
            entry.path = m_path;
            return Outcome::Entry;
        }
        if (!m_folder.empty())
            m_path.insert(0, m_folder + "/");
        if (m_path.size() > kLongestLine)
            return Outcome::Malformed;
        if (entry.kind == FileKind::Folder)
            m_folder = m_path;
        entry.path = m_path;
        return Outcome::Entry;
    }

    void readWords(std::string_view line, ListedEntry& entry)
    {
        while (!line.empty()) {
            const std::string_view word = takeWord(line);
            const auto equals = word.find('=');
            if (equals == word.npos)
                continue;
            const std::string_view key = word.substr(0, equals);
            const std::string_view value = word.substr(equals + 1);
            if (key == "type")
                entry.kind = kindOfWord(value);
            else if (key == "size")
                entry.size = numberIn(value).value_or(ListedEntry::kNotKnown);
            else if (key == "time")
                entry.modified = numberIn(value).value_or(ListedEntry::kNotKnown);
            else if (key == "link")
                entry.target = withoutEscapes(value, m_target);
        }
    }

    ListedEntry m_defaults;
    std::string m_folder; ///< as the names that led to it, without a slash at its end
    std::string m_line;   ///< the beginning of a line that goes on
    std::string m_name;
    std::string m_path;
    std::string m_target;
};

} // namespace

std::unique_ptr<LineReader> mtreeLines()
{
    return std::make_unique<MtreeLines>();
}

} // namespace pryvane
