#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pryvane {

/// The text of an element: a part of the document or, where it had to be put together, of the
/// buffer given for that.
struct XmlText {
    bool decoded = false;
    std::size_t start = 0;
    std::size_t length = 0;
};

/// Goes through XML of unknown origin tag by tag, each byte looked at a bounded number of times.
/// Comments, processing instructions, attributes and the document type are skipped: no entity but
/// XML's own and those by number stands for anything.
class XmlScanner {
public:
    enum class Token : unsigned char { Open, Empty, Close, End, Broken };

    explicit XmlScanner(std::string_view xml) : m_xml(xml) {}

    /// Moves to the next tag; anything but blanks before it is broken.
    [[nodiscard]] Token next();

    /// The element of the last tag.
    [[nodiscard]] std::string_view name() const { return m_name; }

    /// Reads the text of the element that was opened last, and its end tag. False where it is
    /// broken or holds an element.
    [[nodiscard]] bool readText(std::string& buffer, XmlText& text);

    /// What is broken, and how many bytes had been read by then.
    [[nodiscard]] const char* problem() const { return m_problem; }
    [[nodiscard]] std::size_t position() const { return m_at; }

private:
    [[nodiscard]] bool at(std::string_view text) const
    {
        return m_xml.substr(m_at, text.size()) == text;
    }
    bool broken(const char* problem)
    {
        m_problem = problem;
        return false;
    }
    void skipBlanks();
    [[nodiscard]] bool skipPast(std::string_view mark, std::size_t from, const char* problem);
    [[nodiscard]] bool skipDocumentType();
    [[nodiscard]] bool skipMarkup();
    [[nodiscard]] bool readTag(Token& token);
    [[nodiscard]] bool readEndTag();
    [[nodiscard]] bool readName();
    [[nodiscard]] bool skipAttribute();
    [[nodiscard]] bool appendDecoded(std::string_view run, std::string& buffer);

    std::string_view m_xml;
    std::string_view m_name;
    std::size_t m_at = 0;
    bool m_inside = false; ///< behind the first tag
    const char* m_problem = "";
};

} // namespace pryvane
