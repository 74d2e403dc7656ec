#include "core/Escape.h"
#include "volume/listing/EscapedText.h"
#include "volume/listing/ListingFormat.h"
#include "volume/listing/Modes.h"

#include <string>

namespace pryvane {

namespace {

/// Reads the members of one line's object that say something of a file; what else there is, nested
/// or not, is passed over without being kept.
class JsonLine {
public:
    JsonLine(std::string_view text) : m_text(text) {}

    [[nodiscard]] bool atEnd()
    {
        skipBlanks();
        return m_at == m_text.size();
    }
    [[nodiscard]] bool take(char c)
    {
        skipBlanks();
        if (m_at == m_text.size() || m_text[m_at] != c)
            return false;
        ++m_at;
        return true;
    }
    [[nodiscard]] char next()
    {
        skipBlanks();
        return m_at == m_text.size() ? '\0' : m_text[m_at];
    }

    /// A string, its escapes taken out.
    [[nodiscard]] bool text(std::string& out)
    {
        out.clear();
        if (!take('"'))
            return false;
        while (m_at < m_text.size()) {
            const char c = m_text[m_at++];
            if (c == '"')
                return true;
            if (c != '\\')
                out += c;
            else if (!escape(out))
                return false;
        }
        return false;
    }

    /// A number, true, false or null, as it stands.
    [[nodiscard]] std::string_view word()
    {
        skipBlanks();
        const auto end = m_text.find_first_of(",]} \t", m_at);
        const std::string_view word =
            m_text.substr(m_at, (end == m_text.npos ? m_text.size() : end) - m_at);
        m_at += word.size();
        return word;
    }

    /// Passes over any value. What is nested costs no memory.
    [[nodiscard]] bool skip()
    {
        std::string ignored;
        if (next() == '"')
            return text(ignored);
        if (next() != '{' && next() != '[')
            return !word().empty();
        std::size_t depth = 0;
        while (m_at < m_text.size()) {
            const char c = m_text[m_at];
            if (c == '"') {
                if (!text(ignored))
                    return false;
                continue;
            }
            ++m_at;
            if (c == '{' || c == '[')
                ++depth;
            else if ((c == '}' || c == ']') && --depth == 0)
                return true;
        }
        return false;
    }

private:
    void skipBlanks()
    {
        while (m_at < m_text.size() &&
               (m_text[m_at] == ' ' || m_text[m_at] == '\t' || m_text[m_at] == '\r'))
            ++m_at;
    }

    [[nodiscard]] bool escape(std::string& out)
    {
        if (m_at == m_text.size())
            return false;
        const char c = m_text[m_at++];
        switch (c) {
        case 'n':
            out += '\n';
            return true;
        case 't':
            out += '\t';
            return true;
        case 'r':
            out += '\r';
            return true;
        case 'b':
            out += '\b';
            return true;
        case 'f':
            out += '\f';
            return true;
        case '"':
        case '\\':
        case '/':
            out += c;
            return true;
        case 'u':
            return codePoint(out);
        default:
            return false;
        }
    }

    [[nodiscard]] bool unit(std::uint32_t& value)
    {
        if (m_text.size() - m_at < 4)
            return false;
        value = 0;
        for (int i = 0; i < 4; ++i) {
            const char c = m_text[m_at++];
            std::uint32_t digit = 0;
            if (c >= '0' && c <= '9')
                digit = static_cast<std::uint32_t>(c - '0');
            else if (c >= 'a' && c <= 'f')
                digit = static_cast<std::uint32_t>(c - 'a' + 10);
            else if (c >= 'A' && c <= 'F')
                digit = static_cast<std::uint32_t>(c - 'A' + 10);
            else
                return false;
            value = value * 16 + digit;
        }
        return true;
    }

    [[nodiscard]] bool codePoint(std::string& out)
    {
        std::uint32_t value = 0;
        if (!unit(value))
            return false;
        if (value >= 0xdc00 && value <= 0xdfff)
            return false;
        if (value >= 0xd800 && value <= 0xdbff) {
            std::uint32_t low = 0;
            if (m_text.substr(m_at, 2) != "\\u")
                return false;
            m_at += 2;
            if (!unit(low) || low < 0xdc00 || low > 0xdfff)
                return false;
            value = 0x10000 + ((value - 0xd800) << 10) + (low - 0xdc00);
        }
        append(out, value);
        return true;
    }

    static void append(std::string& out, std::uint32_t value)
    {
        const auto put = [&out](std::uint32_t byte) { out += static_cast<char>(byte); };
        if (value < 0x80) {
            put(value);
        } else if (value < 0x800) {
            put(0xc0 | (value >> 6));
            put(0x80 | (value & 0x3f));
        } else if (value < 0x10000) {
            put(0xe0 | (value >> 12));
            put(0x80 | ((value >> 6) & 0x3f));
            put(0x80 | (value & 0x3f));
        } else {
            put(0xf0 | (value >> 18));
            put(0x80 | ((value >> 12) & 0x3f));
            put(0x80 | ((value >> 6) & 0x3f));
            put(0x80 | (value & 0x3f));
        }
    }

    std::string_view m_text;
    std::size_t m_at = 0;
};

FileKind kindOfWord(std::string_view word)
{
    for (const std::string_view name : {"regular", "file", "f", "reg"}) {
        if (word == name)
            return FileKind::RegularFile;
    }
    for (const std::string_view name : {"directory", "dir", "d", "folder"}) {
        if (word == name)
            return FileKind::Folder;
    }
    for (const std::string_view name : {"symlink", "link", "l", "symbolic_link", "symbolic link"}) {
        if (word == name)
            return FileKind::SymbolicLink;
    }
    if (word.size() == 10)
        return kindOfLetter(word.front()).value_or(FileKind::Unknown);
    return word.empty() || word == "unknown" ? FileKind::Unknown : FileKind::Other;
}

/// An object a line with at least a member "path", at its top or in "columns", where osquery's
/// logs have it.
class JsonLines final : public LineReader {
public:
    Outcome read(std::string_view line, ListedEntry& entry) override
    {
        JsonLine json(line);
        if (json.atEnd())
            return Outcome::Nothing;
        entry = {};
        m_hasPath = false;
        if (!json.take('{') || !members(json, entry, Place::Top) || !json.atEnd() || !m_hasPath)
            return Outcome::Malformed;
        entry.path = m_path;
        if (entry.path.empty() || entry.path.find('\0') != entry.path.npos)
            return Outcome::Malformed;
        return Outcome::Entry;
    }

private:
    enum class Place : std::uint8_t { Top, Columns };

    [[nodiscard]] bool members(JsonLine& json, ListedEntry& entry, Place place)
    {
        if (json.take('}'))
            return true;
        std::string key;
        do {
            if (!json.text(key) || !json.take(':'))
                return false;
            if (place == Place::Top && key == "columns" && json.next() == '{') {
                if (!json.take('{') || !members(json, entry, Place::Columns))
                    return false;
            } else if (!member(json, key, entry)) {
                return false;
            }
        } while (json.take(','));
        return json.take('}');
    }

    [[nodiscard]] bool member(JsonLine& json, std::string_view key, ListedEntry& entry)
    {
        const bool isText = json.next() == '"';
        if (key == "path" && isText) {
            m_hasPath = true;
            return json.text(m_path);
        }
        if ((key == "target" || key == "link") && isText) {
            if (!json.text(m_target))
                return false;
            if (!m_target.empty())
                entry.target = m_target;
            return true;
        }
        const bool wanted = key == "size" || key == "mtime" || key == "type";
        if (!wanted || json.next() == '{' || json.next() == '[')
            return json.skip();
        std::string_view value;
        if (isText) {
            if (!json.text(m_value))
                return false;
            value = m_value;
        } else {
            value = json.word();
            if (value.empty())
                return false;
        }
        if (key == "size")
            entry.size = numberIn(value).value_or(ListedEntry::kNotKnown);
        else if (key == "mtime")
            entry.modified = numberIn(value).value_or(ListedEntry::kNotKnown);
        else
            entry.kind = kindOfWord(value);
        return true;
    }

    bool m_hasPath = false;
    std::string m_path;
    std::string m_target;
    std::string m_value;
};

} // namespace

std::unique_ptr<LineReader> jsonLines()
{
    return std::make_unique<JsonLines>();
}

} // namespace pryvane
