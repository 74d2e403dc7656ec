#include "formats/PropertyTree.h"
#include "formats/XmlScanner.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <locale>
#include <optional>
#include <sstream>

namespace pryvane {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(kBlanks);
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool isLeaf(std::string_view element)
{
    constexpr std::string_view kLeaves[] = {"key",   "string",  "data", "true",
                                            "false", "integer", "real", "date"};
    return std::ranges::find(kLeaves, element) != std::end(kLeaves);
}

/// Up to 64 characters of a number with a point, in no one's language.
std::optional<double> realOf(std::string_view text)
{
    constexpr std::size_t kLongest = 64;
    const bool negative = text.starts_with('-');
    const std::string_view word = text.substr(negative || text.starts_with('+') ? 1 : 0);
    if (word == "nan")
        return std::numeric_limits<double>::quiet_NaN();
    if (word == "inf" || word == "infinity")
        return negative ? -std::numeric_limits<double>::infinity()
                        : std::numeric_limits<double>::infinity();
    if (text.empty() || text.size() > kLongest)
        return std::nullopt;
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    double value = 0;
    if (!(stream >> value) || stream.peek() != std::istringstream::traits_type::eof())
        return std::nullopt;
    return value;
}

/// Decimal or, behind "0x", hexadecimal; as a real where 64 bits with a sign do not hold it.
bool addInteger(PropertyTree& tree, std::string_view text, const char*& problem)
{
    const bool negative = text.starts_with('-');
    text.remove_prefix(negative || text.starts_with('+') ? 1 : 0);
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    text.remove_prefix(hexadecimal ? 2 : 0);
    std::uint64_t size = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, size, hexadecimal ? 16 : 10);
    if (text.empty() || read.ec != std::errc() || read.ptr != end) {
        problem = "a whole number is not understood";
        return false;
    }
    constexpr std::uint64_t kMost = std::numeric_limits<std::int64_t>::max();
    if (size > kMost + (negative ? 1 : 0)) {
        const auto real = static_cast<double>(size);
        problem = tree.addReal(PropertyKind::Real, negative ? -real : real);
    } else {
        problem = tree.add(PropertyKind::Integer, negative ? 0 - size : size);
    }
    return problem == nullptr;
}

/// "2026-11-21T22:10:00Z", in milliseconds since 1970.
std::optional<std::int64_t> millisecondsOf(std::string_view text)
{
    constexpr std::string_view kForm = "0000-00-00T00:00:00Z";
    if (text.size() != kForm.size())
        return std::nullopt;
    for (std::size_t i = 0; i < kForm.size(); ++i) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        if (kForm[i] == '0' ? !digit : text[i] != kForm[i])
            return std::nullopt;
    }
    const auto number = [&text](std::size_t at, std::size_t digits) {
        std::int64_t value = 0;
        for (const char c : text.substr(at, digits))
            value = value * 10 + (c - '0');
        return value;
    };
    const std::int64_t month = number(5, 2), day = number(8, 2);
    if (month < 1 || month > 12 || day < 1 || day > 31)
        return std::nullopt;
    // The year begins in March, so that the leap day is its last.
    const std::int64_t year = number(0, 4) - (month <= 2 ? 1 : 0) + 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    constexpr std::int64_t kUnixDay = 719468 + 146097;
    const std::int64_t days =
        year * 365 + year / 4 - year / 100 + year / 400 + dayOfYear - kUnixDay;
    return 1000 * (((days * 24 + number(11, 2)) * 60 + number(14, 2)) * 60 + number(17, 2));
}

/// Appends what the Base64 text stands for; false where it is none.
bool appendBase64(std::string_view text, std::string& buffer)
{
    std::uint32_t bits = 0;
    unsigned held = 0;
    for (const char c : text) {
        unsigned value = 0;
        if (c >= 'A' && c <= 'Z')
            value = static_cast<unsigned>(c - 'A');
        else if (c >= 'a' && c <= 'z')
            value = static_cast<unsigned>(c - 'a') + 26;
        else if (c >= '0' && c <= '9')
            value = static_cast<unsigned>(c - '0') + 52;
        else if (c == '+' || c == '/')
            value = c == '+' ? 62 : 63;
        else if (c == '=' || kBlanks.find(c) != kBlanks.npos)
            continue;
        else
            return false;
        bits = (bits << 6 | value) & 0xffff;
        held += 6;
        if (held >= 8) {
            held -= 8;
            buffer += static_cast<char>(bits >> held & 0xff);
        }
    }
    return true;
}

class XmlReader {
public:
    explicit XmlReader(PropertyTree& tree) : m_tree(tree), m_scanner(tree.bytes()) {}

    [[nodiscard]] Result<Done> read()
    {
        while (true) {
            switch (m_scanner.next()) {
            case XmlScanner::Token::Open:
                if (!open(false))
                    return failure();
                break;
            case XmlScanner::Token::Empty:
                if (!open(true))
                    return failure();
                break;
            case XmlScanner::Token::Close:
                if (!close())
                    return failure();
                break;
            case XmlScanner::Token::Broken:
                return failure();
            case XmlScanner::Token::End:
                if (m_levels.empty() && m_wrapper != Wrapper::Open && !m_tree.empty())
                    return Done{};
                fail("it ends too early");
                return failure();
            }
        }
    }

private:
    enum class Wrapper : std::uint8_t { None, Open, Closed };
    struct Level {
        bool dictionary = false;
        bool keyed = false; ///< a key waits for its value
    };

    bool fail(const char* problem)
    {
        m_problem = problem;
        return problem == nullptr;
    }
    [[nodiscard]] Error failure() const
    {
        return Error{"the property list cannot be read: near byte " +
                     std::to_string(m_scanner.position()) + ", " +
                     (m_problem ? m_problem : m_scanner.problem())};
    }

    bool open(bool empty)
    {
        const std::string_view name = m_scanner.name();
        if (name == "plist") {
            if (m_wrapper != Wrapper::None || !m_tree.empty() || empty)
                return fail("\"plist\" stands where a value should");
            m_wrapper = Wrapper::Open;
            return true;
        }
        if (!m_levels.empty() && m_levels.back().dictionary) {
            Level& level = m_levels.back();
            if ((name == "key") == level.keyed)
                return fail("a dictionary's keys and values do not take turns");
            level.keyed = !level.keyed;
        } else if (m_levels.empty() && !m_tree.empty()) {
            return fail("there is more than one value");
        } else if (name == "key") {
            return fail("a key stands outside a dictionary");
        }
        if (name == "key")
            return leaf(name, empty);
        m_tree.count();
        if (name != "dict" && name != "array")
            return leaf(name, empty);
        const auto kind = name == "dict" ? PropertyKind::Dictionary : PropertyKind::Array;
        if (!fail(m_tree.open(kind)))
            return false;
        m_levels.push_back({name == "dict", false});
        if (empty)
            leave();
        return true;
    }

    bool close()
    {
        const std::string_view name = m_scanner.name();
        if (m_levels.empty()) {
            if (name != "plist" || m_wrapper != Wrapper::Open)
                return fail("the end tags are not in order");
            m_wrapper = Wrapper::Closed;
            return !m_tree.empty() || fail("it holds no value");
        }
        if (name != (m_levels.back().dictionary ? "dict" : "array"))
            return fail("the end tags are not in order");
        if (m_levels.back().keyed)
            return fail("a key has no value");
        leave();
        return true;
    }

    void leave()
    {
        m_levels.pop_back();
        m_tree.close();
    }

    /// A key or a value that holds no others.
    bool leaf(std::string_view name, bool empty)
    {
        if (!isLeaf(name))
            return fail("an element is not understood");
        XmlText place;
        if (!empty && !m_scanner.readText(m_tree.decoded(), place))
            return false;
        if (name == "key" || name == "string")
            return fail(
                m_tree.addBytes(PropertyKind::Text, place.start, place.length, place.decoded));
        const std::string_view all =
            place.decoded ? std::string_view(m_tree.decoded()) : m_tree.bytes();
        const std::string_view text = trimmed(all.substr(place.start, place.length));
        if (name == "data")
            return data(text);
        if (name == "true" || name == "false")
            return text.empty() ? fail(m_tree.add(PropertyKind::Boolean, name == "true"))
                                : fail("a truth value holds something");
        if (name == "integer")
            return addInteger(m_tree, text, m_problem);
        if (name == "real") {
            const auto value = realOf(text);
            return value ? fail(m_tree.addReal(PropertyKind::Real, *value))
                         : fail("a number is not understood");
        }
        const auto value = millisecondsOf(text);
        return value ? fail(m_tree.add(PropertyKind::Time, static_cast<std::uint64_t>(*value)))
                     : fail("a date is not understood");
    }

    bool data(std::string_view text)
    {
        // The text may be a part of the very buffer that takes the bytes.
        std::string& buffer = m_tree.decoded();
        const std::size_t start = buffer.size();
        std::string bytes;
        if (!appendBase64(text, bytes))
            return fail("data is not Base64");
        buffer += bytes;
        return fail(m_tree.addBytes(PropertyKind::Data, start, bytes.size(), true));
    }

    PropertyTree& m_tree;
    XmlScanner m_scanner;
    std::vector<Level> m_levels;
    Wrapper m_wrapper = Wrapper::None;
    const char* m_problem = nullptr;
};

} // namespace

Result<Done> readXmlPropertyList(PropertyTree& tree)
{
    return XmlReader(tree).read();
}

} // namespace pryvane
