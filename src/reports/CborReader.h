#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pryvane {

/// Pulls CBOR (RFC 8949) items out of untrusted bytes, one by one, without building a tree or
/// allocating. The first thing that is not as expected makes the reader fail for good: from then on
/// every call gives an empty value and no container has more elements, so that a caller asks once,
/// at its end. Strings are borrowed from the data.
class CborReader {
public:
    explicit CborReader(std::string_view data) : m_data(data) {}

    /// The elements of an array or the pairs of a map that are still to be read.
    struct Elements {
        std::uint64_t left = 0;
        bool untilBreak = false;
    };

    [[nodiscard]] Elements array();
    [[nodiscard]] Elements map();
    /// Whether one more element or pair follows; it must then be read, or skipped.
    [[nodiscard]] bool more(Elements& elements);

    /// A map's key; one that is no text is passed over and gives an empty key.
    [[nodiscard]] std::string_view key();
    /// A text or a byte string, in one piece.
    [[nodiscard]] std::string_view string();
    [[nodiscard]] std::int64_t integer();
    /// A number of any kind.
    [[nodiscard]] double real();
    [[nodiscard]] bool boolean();
    /// Takes the tag, if it stands next.
    [[nodiscard]] bool takeTag(std::uint64_t number);

    /// Passes over the next value with all it holds; nesting past 64 levels fails.
    void skip();

    /// Whether everything was as expected and nothing is left.
    [[nodiscard]] bool finished() const { return !m_failed && m_offset == m_data.size(); }
    [[nodiscard]] bool failed() const { return m_failed; }
    [[nodiscard]] std::size_t offset() const { return m_offset; }

private:
    enum class Type : std::uint8_t {
        Unsigned,
        Negative, ///< number n stands for -1 - n
        Bytes,
        Text,
        StringPieces, ///< pieces follow until a break
        Array,
        Map,
        ArrayUntilBreak,
        MapUntilBreak,
        Tag,
        Real,
        Boolean,
        Null,
        Break,
    };
    struct Item {
        Type type = Type::Null;
        bool flag = false;
        std::uint64_t number = 0;
        double real = 0;
        std::string_view string;
    };
    struct Callbacks;

    /// Reads the head of the next item, with the content of a string, into m_item.
    bool next();
    bool nextShortText();
    [[nodiscard]] Elements elements(Type counted, Type untilBreak);
    /// Reads the head of the next value, of whatever type, and gives what it holds.
    [[nodiscard]] Elements enter();
    [[nodiscard]] bool atBreak() const;
    [[nodiscard]] bool fits(std::uint64_t count) const { return count <= m_data.size() - m_offset; }
    void fail() { m_failed = true; }

    std::string_view m_data;
    std::size_t m_offset = 0;
    bool m_failed = false;
    Item m_item;
};

} // namespace pryvane
