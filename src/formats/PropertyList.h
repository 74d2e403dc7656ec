#pragma once

#include "core/Result.h"
#include "core/Texts.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

class PropertyList;

/// What a value of a property list is. Nothing stands where there is none; Uid is how a keyed
/// archive refers to its objects.
enum class PropertyKind : std::uint8_t {
    Nothing,
    Dictionary,
    Array,
    Text,
    Data,
    Integer,
    Real,
    Boolean,
    Time,
    Uid,
};

/// One value of a property list: a number to look it up by, cheap to copy, good for as long as its
/// list stays where it is. Asked for what it is not, or asked of nothing, it gives nothing.
class PropertyValue {
public:
    class Iterator;

    PropertyValue() = default;

    [[nodiscard]] PropertyKind kind() const;
    explicit operator bool() const { return kind() != PropertyKind::Nothing; }

    /// The bytes of a text, which claim to be UTF-8 and need not be. Many values may share one long
    /// text: keep few of them, or shortened.
    [[nodiscard]] std::optional<std::string_view> text() const;
    [[nodiscard]] std::optional<std::string_view> data() const; ///< shared likewise
    [[nodiscard]] std::optional<std::int64_t> integer() const;  ///< beyond 64 bits it is a Real
    [[nodiscard]] std::optional<double> real() const;           ///< of an integer, too
    [[nodiscard]] std::optional<bool> boolean() const;
    [[nodiscard]] std::optional<Date> date() const;
    [[nodiscard]] std::optional<std::uint64_t> uid() const;

    /// The elements of an array, or the values of a dictionary; 0 for others.
    [[nodiscard]] std::size_t size() const;

    /// The value that stands under a key of a dictionary, the last of several. Takes time in
    /// proportion to size().
    [[nodiscard]] PropertyValue operator[](std::string_view key) const;

    /// Goes through the elements of an array or the entries of a dictionary, in their order.
    [[nodiscard]] Iterator begin() const;
    [[nodiscard]] Iterator end() const;

private:
    friend class PropertyList;
    PropertyValue(const PropertyList* list, std::uint32_t number) : m_list(list), m_number(number)
    {
    }

    const PropertyList* m_list = nullptr;
    std::uint32_t m_number = 0;
};

/// An element of an array, whose key is empty, or an entry of a dictionary.
struct PropertyEntry {
    std::string_view key;
    PropertyValue value;
};

/// A value in the tree's order: each one stands before those inside it, a key before its value.
struct PropertyNode {
    PropertyKind kind = PropertyKind::Nothing;
    bool decoded = false;    ///< its bytes are not those of the file
    std::uint32_t end = 0;   ///< the number of the first node behind it and all that it holds
    std::uint64_t value = 0; ///< a number's or date's bits; of bytes: start << 32 | length; a count
};

/// A property list, XML or binary, read from bytes of unknown origin. Whatever they say, reading
/// takes time and memory in proportion to their number: nesting ends at 512 levels, and there are
/// at most kMostValues values, each counted as often as it is referred to. Nothing in it recurses.
/// Pure function of the bytes; callable from any thread.
class PropertyList {
public:
    static constexpr std::size_t kMostLevels = 512;
    static constexpr std::size_t kMostValues = 2'000'000; ///< 32 MB of them

    /// Takes the whole file. An error says what is broken and where, or that the form is not
    /// understood.
    [[nodiscard]] static Result<PropertyList> read(std::string bytes);

    /// The outermost value.
    [[nodiscard]] PropertyValue root() const { return {this, 0}; }

    /// How many values it holds, keys counted.
    [[nodiscard]] std::size_t values() const { return m_nodes.size(); }

private:
    friend class PropertyValue;
    friend class PropertyValue::Iterator;
    friend class PropertyTree;

    PropertyList() = default;

    [[nodiscard]] std::string_view bytesOf(const PropertyNode& node) const;

    std::string m_bytes;
    std::string m_decoded;
    std::vector<PropertyNode> m_nodes;
};

class PropertyValue::Iterator {
public:
    [[nodiscard]] PropertyEntry operator*() const;
    Iterator& operator++();
    friend bool operator==(const Iterator&, const Iterator&) = default;

private:
    friend class PropertyValue;
    Iterator(const PropertyList* list, std::uint32_t number, bool keyed)
        : m_list(list), m_number(number), m_keyed(keyed)
    {
    }

    const PropertyList* m_list = nullptr;
    std::uint32_t m_number = 0;
    bool m_keyed = false;
};

} // namespace pryvane
