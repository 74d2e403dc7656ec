#pragma once

#include "formats/PropertyList.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace pryvane {

/// Objects that were archived with keys: a property list whose values refer to each other by
/// number. References are followed only when asked, at most kMostReferences of them, so that
/// circles and sharing cost no more than what is asked. Values are good as long as this is.
class KeyedArchive {
public:
    static constexpr std::size_t kMostReferences = 1'000'000;

    /// Takes the whole file. An error says what is broken, or that it is no archive.
    [[nodiscard]] static Result<KeyedArchive> read(std::string bytes);

    /// A value from the archive's top.
    [[nodiscard]] PropertyValue top(std::string_view key);

    /// What stands under a key of an object, its reference followed.
    [[nodiscard]] PropertyValue in(const PropertyValue& object, std::string_view key);

    /// The elements of an array or set; empty for others. One more than may be in a
    /// source at most.
    [[nodiscard]] std::vector<PropertyValue> elements(const PropertyValue& object);

    /// Keys and values of a dictionary; empty for others. Bounded likewise.
    [[nodiscard]] std::vector<std::pair<std::string, PropertyValue>>
    entries(const PropertyValue& object);

    /// Whether that object is an array or a set, or a dictionary, even an empty one.
    [[nodiscard]] bool isCollection(const PropertyValue& object)
    {
        return bool(in(object, "NS.objects"));
    }

    /// A text, shortened; empty for others.
    [[nodiscard]] std::string text(const PropertyValue& value);

    /// An address as text: as written, and the one that it is relative to.
    struct Address {
        std::string base;
        std::string relative;
    };
    [[nodiscard]] Address address(const PropertyValue& value);

    /// Bytes, plain or as an object; empty for others.
    [[nodiscard]] std::string_view data(const PropertyValue& value);

    /// Whether so many references were followed that the rest was left out.
    [[nodiscard]] bool isExhausted() const { return m_left == 0; }

private:
    KeyedArchive() = default;
    [[nodiscard]] PropertyValue resolved(const PropertyValue& value);

    std::unique_ptr<PropertyList> m_list; ///< where it stays when this is moved
    std::vector<PropertyValue> m_objects;
    std::size_t m_left = kMostReferences;
};

} // namespace pryvane
