#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// The texts of one dictionary, by their keys.
using PropertyTexts = std::map<std::string, std::string, std::less<>>;

/// Reads property lists, XML or binary, of unknown origin: whatever their bytes say, time and
/// memory stay in proportion to their number. Callable from any thread.
class PropertyLists {
public:
    virtual ~PropertyLists() = default;

    /// The texts of each dictionary in the array that stands under a key of the outermost
    /// dictionary. Elements that are no dictionaries are left out; empty where there is none.
    [[nodiscard]] virtual std::vector<PropertyTexts>
    dictionariesUnder(std::string_view data, std::string_view key) const = 0;
};

} // namespace pryvane
