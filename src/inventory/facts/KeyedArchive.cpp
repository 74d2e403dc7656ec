#include "inventory/facts/KeyedArchive.h"

#include "inventory/facts/Facts.h"

#include <optional>

namespace pryvane {

Result<KeyedArchive> KeyedArchive::read(std::string bytes)
{
    auto list = PropertyList::read(std::move(bytes));
    if (!list)
        return list.error();
    KeyedArchive archive;
    archive.m_list = std::make_unique<PropertyList>(std::move(*list));
    const PropertyValue root = archive.m_list->root();
    const PropertyValue objects = root["$objects"];
    if (objects.kind() != PropertyKind::Array || root["$top"].kind() != PropertyKind::Dictionary)
        return Error{"it is no archive that is understood"};
    archive.m_objects.reserve(objects.size());
    for (const PropertyEntry& object : objects)
        archive.m_objects.push_back(object.value);
    return archive;
}

namespace {

/// Which object a value refers to. In XML a reference is a dictionary of one number.
[[nodiscard]] std::optional<std::uint64_t> referenceOf(const PropertyValue& value)
{
    if (value.kind() != PropertyKind::Dictionary || value.size() != 1)
        return value.uid();
    const auto number = value["CF$UID"].integer();
    return number && *number >= 0 ? std::optional(static_cast<std::uint64_t>(*number))
                                  : std::nullopt;
}

} // namespace

/// An archived nothing is the text "$null", always the first object. A reference to a reference is
/// none that a Mac writes.
PropertyValue KeyedArchive::resolved(const PropertyValue& value)
{
    const auto number = referenceOf(value);
    if (!number)
        return value;
    if (*number == 0 || *number >= m_objects.size() || m_left == 0)
        return {};
    --m_left;
    const PropertyValue object = m_objects[*number];
    return referenceOf(object) ? PropertyValue() : object;
}

PropertyValue KeyedArchive::top(std::string_view key)
{
    return resolved(m_list->root()["$top"][key]);
}

PropertyValue KeyedArchive::in(const PropertyValue& object, std::string_view key)
{
    // Finding a key takes as long as the object has keys: honest ones have some twenty.
    constexpr std::size_t kMostKeys = 64;
    return object.size() <= kMostKeys ? resolved(object[key]) : PropertyValue();
}

std::vector<PropertyValue> KeyedArchive::elements(const PropertyValue& object)
{
    std::vector<PropertyValue> found;
    for (const PropertyEntry& element : in(object, "NS.objects")) {
        if (m_left == 0 || found.size() > kMostFactsOfASource)
            break;
        found.push_back(resolved(element.value));
    }
    return found;
}

std::vector<std::pair<std::string, PropertyValue>>
KeyedArchive::entries(const PropertyValue& object)
{
    const PropertyValue keys = in(object, "NS.keys");
    const PropertyValue values = in(object, "NS.objects");
    std::vector<std::pair<std::string, PropertyValue>> found;
    auto value = values.begin();
    for (const PropertyEntry& key : keys) {
        if (m_left == 0 || value == values.end() || found.size() > kMostFactsOfASource)
            break;
        found.emplace_back(text(resolved(key.value)), resolved((*value).value));
        ++value;
    }
    return found;
}

std::string KeyedArchive::text(const PropertyValue& value)
{
    if (const auto plain = value.text())
        return boundedText(*plain);
    const PropertyValue wrapped = in(value, "NS.string");
    return boundedText(wrapped.text().value_or(std::string_view()));
}

KeyedArchive::Address KeyedArchive::address(const PropertyValue& value)
{
    if (value.text())
        return {{}, text(value)};
    return {text(in(in(value, "NS.base"), "NS.relative")), text(in(value, "NS.relative"))};
}

std::string_view KeyedArchive::data(const PropertyValue& value)
{
    if (const auto plain = value.data())
        return *plain;
    return in(value, "NS.data").data().value_or(std::string_view());
}

} // namespace pryvane
