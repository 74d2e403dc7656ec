#pragma once

#include "platform/PropertyLists.h"

#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

/// The text that stands under a key in the outermost dictionary of a property list (XML or binary);
/// none when there is no such text or the bytes are no property list. Made for bytes of unknown
/// origin: whatever they say, time and memory stay in proportion to their number.
[[nodiscard]] std::optional<std::string> propertyListString(std::string_view data,
                                                            std::string_view key);

/// What libplist reads.
class LinuxPropertyLists final : public PropertyLists {
public:
    [[nodiscard]] std::vector<PropertyTexts> dictionariesUnder(std::string_view data,
                                                               std::string_view key) const override;
};

} // namespace pryvane
