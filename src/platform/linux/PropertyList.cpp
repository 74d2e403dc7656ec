#include "platform/linux/PropertyList.h"

#include <plist/plist.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <utility>

namespace pryvane {

namespace {

constexpr std::string_view kBinaryMagic = "bplist00";
constexpr int kMaxDepth = 512;

void appendUtf8(std::string& text, std::uint32_t c)
{
    const auto add = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80) {
        add(c);
    } else if (c < 0x800) {
        add(0xc0 | c >> 6);
        add(0x80 | (c & 0x3f));
    } else if (c < 0x10000) {
        add(0xe0 | c >> 12);
        add(0x80 | (c >> 6 & 0x3f));
        add(0x80 | (c & 0x3f));
    } else {
        add(0xf0 | c >> 18);
        add(0x80 | (c >> 12 & 0x3f));
        add(0x80 | (c >> 6 & 0x3f));
        add(0x80 | (c & 0x3f));
    }
}

/// Reads only what is asked for from a binary property list: its objects refer to each other by
/// number, and a few bytes can describe a tree of any depth and size, which is never built here.
class BinaryPropertyList {
public:
    explicit BinaryPropertyList(std::string_view data) : m_data(data) {}

    [[nodiscard]] std::optional<std::string> stringForKey(std::string_view key)
    {
        const auto value = valueForKey(key);
        return value ? string(*value) : std::nullopt;
    }

    [[nodiscard]] std::vector<PropertyTexts> dictionariesForKey(std::string_view key)
    {
        const auto value = valueForKey(key);
        const auto array = value ? object(*value) : std::nullopt;
        std::vector<PropertyTexts> dictionaries;
        if (!array || array->type != kArray)
            return dictionaries;
        // Many elements may refer to the same large dictionary.
        std::uint64_t budget = m_data.size();
        for (std::uint64_t i = 0; i < array->count && budget > 0; ++i) {
            const auto element = number(array->start + i * m_referenceSize, m_referenceSize);
            const auto dictionary = element ? object(*element) : std::nullopt;
            if (dictionary && dictionary->type == kDictionary)
                dictionaries.push_back(texts(*dictionary, budget));
        }
        return dictionaries;
    }

private:
    static constexpr unsigned kInteger = 1;
    static constexpr unsigned kAsciiString = 5;
    static constexpr unsigned kUtf16String = 6;
    static constexpr unsigned kArray = 10;
    static constexpr unsigned kDictionary = 13;

    struct Object {
        unsigned type = 0;
        std::uint64_t count = 0; // characters or pairs
        std::uint64_t start = 0; // of its content
    };

    /// The number of the object that stands under a key in the outermost dictionary.
    [[nodiscard]] std::optional<std::uint64_t> valueForKey(std::string_view key)
    {
        const auto dictionary = readTrailer() ? object(m_top) : std::nullopt;
        if (!dictionary || dictionary->type != kDictionary)
            return std::nullopt;
        for (std::uint64_t i = 0; i < dictionary->count; ++i) {
            const auto [keyNumber, valueNumber] = pair(*dictionary, i);
            if (!keyNumber || !valueNumber)
                return std::nullopt;
            if (isString(*keyNumber, key))
                return valueNumber;
        }
        return std::nullopt;
    }

    /// The numbers of a pair's key and value.
    [[nodiscard]] std::pair<std::optional<std::uint64_t>, std::optional<std::uint64_t>>
    pair(const Object& dictionary, std::uint64_t i) const
    {
        return {
            number(dictionary.start + i * m_referenceSize, m_referenceSize),
            number(dictionary.start + (dictionary.count + i) * m_referenceSize, m_referenceSize)};
    }

    /// The characters or pairs of that object; 0 where there is none.
    [[nodiscard]] std::uint64_t countOf(std::uint64_t index) const
    {
        const auto found = object(index);
        return found ? found->count : 0;
    }

    /// The texts of a dictionary. Each pair and each byte of text takes one from the budget; what
    /// exceeds it is left out.
    [[nodiscard]] PropertyTexts texts(const Object& dictionary, std::uint64_t& budget) const
    {
        PropertyTexts texts;
        for (std::uint64_t i = 0; i < dictionary.count && budget > 0; ++i) {
            --budget;
            const auto [keyNumber, valueNumber] = pair(dictionary, i);
            if (!keyNumber || !valueNumber)
                break;
            const std::uint64_t cost = countOf(*keyNumber) + countOf(*valueNumber);
            if (cost > budget)
                continue;
            auto name = string(*keyNumber);
            auto text = string(*valueNumber);
            if (!name || !text)
                continue;
            budget -= cost;
            texts.insert_or_assign(std::move(*name), std::move(*text));
        }
        return texts;
    }

    [[nodiscard]] bool readTrailer()
    {
        constexpr std::size_t kTrailer = 32;
        if (m_data.size() < kBinaryMagic.size() + kTrailer)
            return false;
        const std::size_t at = m_data.size() - kTrailer;
        m_offsetSize = static_cast<unsigned char>(m_data[at + 6]);
        m_referenceSize = static_cast<unsigned char>(m_data[at + 7]);
        m_objects = number(at + 8, 8).value_or(0);
        m_top = number(at + 16, 8).value_or(0);
        m_offsetTable = number(at + 24, 8).value_or(0);
        return m_offsetSize >= 1 && m_offsetSize <= 8 && m_referenceSize >= 1 &&
               m_referenceSize <= 8 && m_objects <= m_data.size() && m_offsetTable < m_data.size();
    }

    [[nodiscard]] bool holds(std::uint64_t at, std::uint64_t bytes) const
    {
        return at <= m_data.size() && bytes <= m_data.size() - at;
    }

    /// A big-endian number of up to eight bytes.
    [[nodiscard]] std::optional<std::uint64_t> number(std::uint64_t at, unsigned bytes) const
    {
        if (!holds(at, bytes))
            return std::nullopt;
        std::uint64_t value = 0;
        for (const char c : m_data.substr(at, bytes))
            value = value << 8 | static_cast<unsigned char>(c);
        return value;
    }

    [[nodiscard]] std::optional<Object> object(std::uint64_t index) const
    {
        if (index >= m_objects)
            return std::nullopt;
        const auto at = number(m_offsetTable + index * m_offsetSize, m_offsetSize);
        const auto marker = at ? number(*at, 1) : std::nullopt;
        if (!marker)
            return std::nullopt;
        Object found{static_cast<unsigned>(*marker >> 4), *marker & 0xf, *at + 1};
        if (found.count == 0xf) {
            // The count did not fit and follows as an integer object.
            const auto integer = number(found.start, 1);
            if (!integer || *integer >> 4 != kInteger || (*integer & 0xf) > 3)
                return std::nullopt;
            const unsigned bytes = 1U << (*integer & 0xf);
            const auto count = number(found.start + 1, bytes);
            if (!count)
                return std::nullopt;
            found.count = *count;
            found.start += 1 + bytes;
        }
        const std::uint64_t unit = found.type == kDictionary    ? 2 * m_referenceSize
                                   : found.type == kArray       ? m_referenceSize
                                   : found.type == kUtf16String ? 2
                                                                : 1;
        if (found.count > m_data.size() || !holds(found.start, found.count * unit))
            return std::nullopt;
        return found;
    }

    /// Whether that object is this (ASCII) text, without making a copy of what it is.
    [[nodiscard]] bool isString(std::uint64_t index, std::string_view text) const
    {
        const auto found = object(index);
        return found && found->count == text.size() && string(index) == text;
    }

    [[nodiscard]] std::optional<std::string> string(std::uint64_t index) const
    {
        const auto found = object(index);
        if (!found || (found->type != kAsciiString && found->type != kUtf16String))
            return std::nullopt;
        if (found->type == kAsciiString)
            return std::string(m_data.substr(found->start, found->count));
        std::string text;
        for (std::uint64_t i = 0; i < found->count; ++i) {
            auto unit = static_cast<std::uint32_t>(*number(found->start + 2 * i, 2));
            if (unit >= 0xd800 && unit < 0xdc00 && i + 1 < found->count) {
                const auto low = static_cast<std::uint32_t>(*number(found->start + 2 * (i + 1), 2));
                if (low >= 0xdc00 && low < 0xe000) {
                    unit = 0x10000 + ((unit - 0xd800) << 10) + (low - 0xdc00);
                    ++i;
                }
            }
            appendUtf8(text, unit);
        }
        return text;
    }

    std::string_view m_data;
    unsigned m_offsetSize = 0;
    unsigned m_referenceSize = 0;
    std::uint64_t m_objects = 0;
    std::uint64_t m_top = 0;
    std::uint64_t m_offsetTable = 0;
};

/// Whether no element of the XML text is nested deeper than is good for libplist, which frees its
/// trees by recursion. Inside the outermost element only what property lists are written with is
/// let through (elements without attributes, comments, CDATA), so that the counting here cannot be
/// led to see less than libplist will.
bool isShallow(std::string_view xml)
{
    int depth = 0;
    for (auto at = xml.find('<'); at != xml.npos; at = xml.find('<', at)) {
        const std::string_view rest = xml.substr(at);
        const bool comment = rest.starts_with("<!--");
        if (comment || rest.starts_with("<![CDATA[")) {
            const auto end = rest.find(comment ? "-->" : "]]>", comment ? 4 : 9);
            if (end == rest.npos)
                return false;
            at += end;
            continue;
        }
        const std::string_view tag = rest.substr(1, rest.find_first_of("<>", 1) - 1);
        const bool special = tag.starts_with('!') || tag.starts_with('?');
        if (depth > 0 && (special || tag.find_first_of("\"'") != tag.npos))
            return false;
        if (tag.starts_with('/'))
            depth = std::max(0, depth - 1);
        else if (!special && !tag.ends_with('/') && ++depth > kMaxDepth)
            return false;
        at += 1 + tag.size();
    }
    return true;
}

using OwnedNode = std::unique_ptr<void, decltype(&plist_free)>;

/// The outermost dictionary, or null.
OwnedNode dictionaryInXml(std::string_view xml)
{
    plist_t parsed = nullptr;
    if (xml.size() <= UINT32_MAX && isShallow(xml))
        plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &parsed);
    OwnedNode root(parsed, &plist_free);
    if (parsed && plist_get_node_type(parsed) != PLIST_DICT)
        root.reset();
    return root;
}

std::optional<std::string> textOf(plist_t node)
{
    if (!node || plist_get_node_type(node) != PLIST_STRING)
        return std::nullopt;
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(node, &length);
    return text ? std::optional(std::string(text, length)) : std::nullopt;
}

std::optional<std::string> stringInXml(std::string_view xml, const std::string& key)
{
    const OwnedNode root = dictionaryInXml(xml);
    return root ? textOf(plist_dict_get_item(root.get(), key.c_str())) : std::nullopt;
}

PropertyTexts textsIn(plist_t dictionary)
{
    PropertyTexts texts;
    plist_dict_iter made = nullptr;
    plist_dict_new_iter(dictionary, &made);
    const std::unique_ptr<void, decltype(&std::free)> iterator(made, &std::free);
    while (true) {
        char* key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(dictionary, iterator.get(), &key, &value);
        const std::unique_ptr<char, decltype(&std::free)> owned(key, &std::free);
        if (!value)
            return texts;
        if (auto text = textOf(value); text && key)
            texts.insert_or_assign(key, std::move(*text));
    }
}

std::vector<PropertyTexts> dictionariesInXml(std::string_view xml, const std::string& key)
{
    std::vector<PropertyTexts> dictionaries;
    const OwnedNode root = dictionaryInXml(xml);
    const plist_t array = root ? plist_dict_get_item(root.get(), key.c_str()) : nullptr;
    if (!array || plist_get_node_type(array) != PLIST_ARRAY)
        return dictionaries;
    plist_array_iter made = nullptr;
    plist_array_new_iter(array, &made);
    const std::unique_ptr<void, decltype(&std::free)> iterator(made, &std::free);
    while (true) {
        plist_t element = nullptr;
        plist_array_next_item(array, iterator.get(), &element);
        if (!element)
            return dictionaries;
        if (plist_get_node_type(element) == PLIST_DICT)
            dictionaries.push_back(textsIn(element));
    }
}

} // namespace

std::optional<std::string> propertyListString(std::string_view data, std::string_view key)
{
    return data.starts_with(kBinaryMagic) ? BinaryPropertyList(data).stringForKey(key)
                                          : stringInXml(data, std::string(key));
}

std::vector<PropertyTexts> LinuxPropertyLists::dictionariesUnder(std::string_view data,
                                                                 std::string_view key) const
{
    return data.starts_with(kBinaryMagic) ? BinaryPropertyList(data).dictionariesForKey(key)
                                          : dictionariesInXml(data, std::string(key));
}

} // namespace pryvane
