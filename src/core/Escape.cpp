#include "core/Escape.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace pryvane {

namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";

/// The bytes that a URL's path may hold as they are.
constexpr std::array<bool, 256> kUnreserved = [] {
    std::array<bool, 256> table{};
    for (const char c : std::string_view("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                         "0123456789/-._~"))
        table[static_cast<unsigned char>(c)] = true;
    return table;
}();

void appendByteEscape(std::string& out, unsigned char byte)
{
    out += "\\x";
    out += kHexDigits[byte >> 4];
    out += kHexDigits[byte & 0xf];
}

/// Characters above ASCII that change how their neighbours look, or show nothing at all. The zero
/// width joiners stay: emoji and several scripts need them.
bool isDeceptive(char32_t c)
{
    struct Range {
        char32_t first, last;
    };
    constexpr std::array<Range, 14> ranges = {{
        {0x80, 0x9f},       // C1 controls
        {0xad, 0xad},       // soft hyphen
        {0x61c, 0x61c},     // Arabic letter mark
        {0x180e, 0x180e},   // Mongolian vowel separator
        {0x200b, 0x200b},   // zero width space
        {0x200e, 0x200f},   // direction marks
        {0x2028, 0x202e},   // line and paragraph separator, bidi embeddings and overrides
        {0x2060, 0x206f},   // word joiner, invisible operators, bidi isolates
        {0xe000, 0xf8ff},   // private use
        {0xfdd0, 0xfdef},   // noncharacters
        {0xfeff, 0xfeff},   // byte-order mark
        {0xfff9, 0xffff},   // interlinear controls, replacement, noncharacters
        {0xe0000, 0xe0fff}, // tags, variation supplements
        {0xf0000, 0x10ffff} // private use planes
    }};
    for (const Range& range : ranges) {
        if (c >= range.first && c <= range.last)
            return true;
    }
    return (c & 0xfffe) == 0xfffe;
}

/// Of those that are not plain.
void appendAscii(std::string& out, char c)
{
    switch (c) {
    case '\n':
        out += "\\n";
        break;
    case '\r':
        out += "\\r";
        break;
    case '\t':
        out += "\\t";
        break;
    case '\\':
        out += "\\\\";
        break;
    default:
        appendByteEscape(out, static_cast<unsigned char>(c));
    }
}

/// Whether it stands for itself in every text.
bool isPlain(char c)
{
    return c >= 0x20 && c < 0x7f && c != '\\';
}

std::string withEntities(const std::string& text, bool quotesToo)
{
    std::string out;
    out.reserve(text.size() + 16);
    for (const char c : text) {
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else if (c == '>')
            out += "&gt;";
        else if (quotesToo && c == '"')
            out += "&quot;";
        else if (quotesToo && c == '\'')
            out += "&#39;";
        else
            out += c;
    }
    return out;
}

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

} // namespace

std::size_t decodeUtf8(std::string_view bytes, char32_t& codePoint)
{
    if (bytes.empty())
        return 0;
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = at(0);
    if (lead < 0x80) {
        codePoint = lead;
        return 1;
    }
    const std::size_t length = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
    if (lead < 0xc2 || lead > 0xf4 || bytes.size() < length)
        return 0;
    char32_t value = lead & (0xffU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((at(i) & 0xc0) != 0x80)
            return 0;
        value = (value << 6) | (at(i) & 0x3fU);
    }
    const bool overlong = (length == 3 && value < 0x800) || (length == 4 && value < 0x10000);
    if (overlong || value > 0x10ffff || (value >= 0xd800 && value <= 0xdfff))
        return 0;
    codePoint = value;
    return length;
}

bool isUtf8(std::string_view bytes)
{
    char32_t ignored = 0;
    while (!bytes.empty()) {
        const std::size_t length = decodeUtf8(bytes, ignored);
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

std::string forScreen(std::string_view bytes)
{
    std::string out;
    out.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto plain =
            static_cast<std::size_t>(std::ranges::find_if_not(bytes, isPlain) - bytes.begin());
        out.append(bytes.substr(0, plain));
        bytes.remove_prefix(plain);
        if (bytes.empty())
            break;
        char32_t c = 0;
        const std::size_t length = decodeUtf8(bytes, c);
        if (length == 0) {
            appendByteEscape(out, static_cast<unsigned char>(bytes[0]));
            bytes.remove_prefix(1);
            continue;
        }
        if (length == 1)
            appendAscii(out, bytes[0]);
        else if (isDeceptive(c))
            out += escapedCodePoint(c);
        else
            out.append(bytes.substr(0, length));
        bytes.remove_prefix(length);
    }
    return out;
}

std::string escapedCodePoint(char32_t codePoint)
{
    std::array<char, 8> digits{};
    std::size_t count = 0;
    do {
        digits[count++] = kHexDigits[codePoint & 0xf];
        codePoint >>= 4;
    } while (codePoint != 0);
    std::string out = "\\u{";
    while (count > 0)
        out += digits[--count];
    out += '}';
    return out;
}

std::string forTerminal(std::string_view bytes)
{
    return forScreen(bytes);
}

std::string forJson(std::string_view bytes)
{
    return forScreen(bytes);
}

std::string forNotification(std::string_view bytes)
{
    return withEntities(forScreen(bytes), false);
}

std::string forHtml(std::string_view bytes)
{
    return withEntities(forScreen(bytes), true);
}

std::string percentEncoded(std::string_view bytes)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string out;
    out.reserve(bytes.size() + 8);
    while (!bytes.empty()) {
        std::size_t plain = 0;
        while (plain < bytes.size() && kUnreserved[static_cast<unsigned char>(bytes[plain])])
            ++plain;
        out.append(bytes.substr(0, plain));
        if (plain == bytes.size())
            break;
        const auto byte = static_cast<unsigned char>(bytes[plain]);
        out += '%';
        out += kDigits[byte >> 4];
        out += kDigits[byte & 0xf];
        bytes.remove_prefix(plain + 1);
    }
    return out;
}

std::string percentDecoded(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size() && hexValue(text[i + 1]) >= 0 &&
            hexValue(text[i + 2]) >= 0) {
            out += static_cast<char>(hexValue(text[i + 1]) * 16 + hexValue(text[i + 2]));
            i += 2;
        } else {
            out += text[i];
        }
    }
    return out;
}

} // namespace pryvane
