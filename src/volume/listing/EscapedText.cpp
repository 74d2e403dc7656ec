#include "volume/listing/EscapedText.h"

#include <charconv>

namespace pryvane {

namespace {

bool isOctal(char c)
{
    return c >= '0' && c <= '7';
}

/// What the letter behind a backslash stands for; 0 where it is no escape.
char escaped(char letter)
{
    switch (letter) {
    case 'a':
        return '\a';
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    case 'v':
        return '\v';
    case 's':
        return ' ';
    case ' ':
    case '\\':
    case '"':
    case '#':
        return letter;
    default:
        return 0;
    }
}

} // namespace

std::string_view withoutEscapes(std::string_view text, std::string& out)
{
    std::size_t at = text.find('\\');
    if (at == text.npos)
        return text;
    out.assign(text.substr(0, at));
    while (at < text.size()) {
        const char c = text[at++];
        if (c != '\\' || at == text.size()) {
            out += c;
            continue;
        }
        if (text.size() - at >= 3 && text[at] <= '3' && isOctal(text[at]) &&
            isOctal(text[at + 1]) && isOctal(text[at + 2])) {
            const int value =
                (text[at] - '0') * 64 + (text[at + 1] - '0') * 8 + (text[at + 2] - '0');
            out += static_cast<char>(value);
            at += 3;
        } else if (const char letter = escaped(text[at])) {
            out += letter;
            ++at;
        } else {
            out += c;
        }
    }
    return out;
}

std::optional<std::int64_t> numberIn(std::string_view text)
{
    std::int64_t value = 0;
    const char* const end = text.data() + text.size();
    if (text.empty() || text.front() < '0' || text.front() > '9')
        return std::nullopt;
    const auto read = std::from_chars(text.data(), end, value);
    if (read.ec != std::errc())
        return std::nullopt;
    if (read.ptr != end &&
        (*read.ptr != '.' ||
         text.find_first_not_of("0123456789",
                                static_cast<std::size_t>(read.ptr - text.data()) + 1) != text.npos))
        return std::nullopt;
    return value;
}

std::string_view takeWord(std::string_view& text)
{
    const auto start = text.find_first_not_of(" \t");
    if (start == text.npos) {
        text = {};
        return {};
    }
    text.remove_prefix(start);
    const auto end = text.find_first_of(" \t");
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(word.size());
    return word;
}

NameAndTarget nameAndTarget(std::string_view text)
{
    constexpr std::string_view kArrow = " -> ";
    const auto arrow = text.find(kArrow);
    if (arrow == text.npos)
        return {text, std::nullopt};
    return {text.substr(0, arrow), text.substr(arrow + kArrow.size())};
}

} // namespace pryvane
