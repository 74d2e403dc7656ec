#include "formats/XmlScanner.h"

#include "formats/PropertyTree.h"

#include <algorithm>
#include <charconv>

namespace pryvane {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kComment = "<!--";
constexpr std::string_view kRawText = "<![CDATA[";
constexpr std::string_view kInstruction = "<?";
constexpr std::string_view kDocumentType = "<!DOCTYPE";

/// The character that a reference such as "#x41" or "amp" stands for; 0 for none.
std::uint32_t characterOf(std::string_view reference)
{
    constexpr std::pair<std::string_view, char> kNamed[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"apos", '\''}, {"quot", '"'}};
    for (const auto& [name, character] : kNamed) {
        if (reference == name)
            return static_cast<unsigned char>(character);
    }
    if (!reference.starts_with('#'))
        return 0;
    reference.remove_prefix(1);
    const bool hexadecimal = reference.starts_with('x');
    reference.remove_prefix(hexadecimal ? 1 : 0);
    std::uint32_t character = 0;
    const char* end = reference.data() + reference.size();
    const auto read = std::from_chars(reference.data(), end, character, hexadecimal ? 16 : 10);
    const bool whole = read.ec == std::errc() && read.ptr == end && !reference.empty();
    const bool surrogate = character >= 0xd800 && character < 0xe000;
    return whole && !surrogate && character <= 0x10ffff ? character : 0;
}

} // namespace

void XmlScanner::skipBlanks()
{
    m_at = std::min(m_xml.find_first_not_of(kBlanks, m_at), m_xml.size());
}

bool XmlScanner::skipPast(std::string_view mark, std::size_t from, const char* problem)
{
    const auto found = m_xml.find(mark, m_at + from);
    if (found == m_xml.npos)
        return broken(problem);
    m_at = found + mark.size();
    return true;
}

/// Its declarations say nothing here, but may hold quotes, comments and brackets of their own.
bool XmlScanner::skipDocumentType()
{
    constexpr const char* kProblem = "the document type does not end";
    bool inSubset = false;
    std::size_t declarations = 0;
    m_at += kDocumentType.size();
    while ((m_at = m_xml.find_first_of("\"'<>[]", m_at)) != m_xml.npos) {
        const char c = m_xml[m_at];
        if (at(kComment) || at(kInstruction)) {
            if (!skipMarkup())
                return false;
            continue;
        }
        if ((c == '"' || c == '\'') && !skipPast({&m_xml[m_at], 1}, 1, kProblem))
            return false;
        if (c == '"' || c == '\'')
            continue;
        ++m_at;
        if (c == '[' || c == ']')
            inSubset = c == '[';
        else if (c == '<')
            ++declarations;
        else if (declarations > 0)
            --declarations;
        else if (!inSubset)
            return true;
    }
    m_at = m_xml.size();
    return broken(kProblem);
}

/// A comment or a processing instruction.
bool XmlScanner::skipMarkup()
{
    return at(kComment) ? skipPast("-->", kComment.size(), "a comment does not end")
                        : skipPast("?>", kInstruction.size(), "an instruction does not end");
}

XmlScanner::Token XmlScanner::next()
{
    if (m_at == 0 && at("\xEF\xBB\xBF"))
        m_at = 3;
    while (true) {
        skipBlanks();
        if (m_at == m_xml.size())
            return Token::End;
        Token token = Token::Broken;
        if (at(kComment) || at(kInstruction)) {
            if (!skipMarkup())
                return Token::Broken;
        } else if (!m_inside && at(kDocumentType)) {
            if (!skipDocumentType())
                return Token::Broken;
        } else {
            static_cast<void>(readTag(token));
            return token;
        }
    }
}

bool XmlScanner::readTag(Token& token)
{
    if (m_xml[m_at] != '<')
        return broken("there is text between the elements");
    if (at("</")) {
        token = readEndTag() ? Token::Close : Token::Broken;
        return token == Token::Close;
    }
    ++m_at;
    if (!readName())
        return false;
    m_inside = true;
    while (true) {
        skipBlanks();
        if (at(">") || at("/>")) {
            token = at(">") ? Token::Open : Token::Empty;
            m_at += at(">") ? 1 : 2;
            return true;
        }
        if (!skipAttribute())
            return false;
    }
}

bool XmlScanner::readEndTag()
{
    m_at += 2;
    if (!readName())
        return false;
    skipBlanks();
    if (!at(">"))
        return broken("an end tag does not end");
    ++m_at;
    return true;
}

bool XmlScanner::readName()
{
    const auto end = std::min(m_xml.find_first_of("<>/=\"' \t\r\n", m_at), m_xml.size());
    m_name = m_xml.substr(m_at, end - m_at);
    m_at = end;
    return !m_name.empty() || broken("a tag has no name");
}

bool XmlScanner::skipAttribute()
{
    const auto end = m_xml.find_first_of("<>/=\"' \t\r\n", m_at);
    if (end == m_xml.npos || end == m_at)
        return broken("a tag does not end");
    m_at = end;
    skipBlanks();
    if (!at("="))
        return broken("an attribute has no value");
    ++m_at;
    skipBlanks();
    if (!at("\"") && !at("'"))
        return broken("an attribute's value is not in quotes");
    return skipPast(m_xml.substr(m_at, 1), 1, "an attribute's value does not end");
}

bool XmlScanner::readText(std::string& buffer, XmlText& text)
{
    const std::string_view element = m_name;
    text = {false, m_at, 0};
    // The first run stays where it is, if nothing else comes.
    const auto put = [&](std::string_view run, bool raw) {
        if (!text.decoded && text.length == 0 && (raw || run.find('&') == run.npos)) {
            text.start = static_cast<std::size_t>(run.data() - m_xml.data());
            text.length = run.size();
            return true;
        }
        if (run.empty())
            return true;
        if (!text.decoded) {
            const std::string_view first = m_xml.substr(text.start, text.length);
            text = {true, buffer.size(), 0};
            buffer += first;
        }
        const bool whole = raw || appendDecoded(run, buffer);
        if (raw)
            buffer += run;
        text.length = buffer.size() - text.start;
        return whole;
    };
    while (true) {
        const auto tag = m_xml.find('<', m_at);
        if (tag == m_xml.npos)
            return broken("an element is not closed");
        if (!put(m_xml.substr(m_at, tag - m_at), false))
            return false;
        m_at = tag;
        if (at("</"))
            return readEndTag() && (m_name == element || broken("the end tags are not in order"));
        if (at(kRawText)) {
            const auto start = m_at + kRawText.size();
            if (!skipPast("]]>", kRawText.size(), "a CDATA section does not end"))
                return false;
            static_cast<void>(put(m_xml.substr(start, m_at - 3 - start), true));
        } else if (!at(kComment) && !at(kInstruction)) {
            return broken("an element stands inside a text");
        } else if (!skipMarkup()) {
            return false;
        }
    }
}

bool XmlScanner::appendDecoded(std::string_view run, std::string& buffer)
{
    constexpr std::size_t kLongest = 16; // more than any reference needs
    while (!run.empty()) {
        const auto plain = std::min(run.find('&'), run.size());
        buffer += run.substr(0, plain);
        run.remove_prefix(plain);
        if (run.empty())
            break;
        const auto end = run.substr(0, kLongest).find(';');
        const auto character = end == run.npos ? 0 : characterOf(run.substr(1, end - 1));
        if (character == 0)
            return broken("it has an entity that is none of XML's own");
        appendUtf8(buffer, character);
        run.remove_prefix(end + 1);
    }
    return true;
}

} // namespace pryvane
