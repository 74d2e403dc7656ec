#pragma once

#include "signatures/DefaultLocations.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// Finds name fragments anywhere in the paths of the default locations, whatever their letter case.
/// All fragments of the catalogue are looked for in one pass when the search is made; asking for
/// their hits afterwards costs only the hits. Other fragments cost a pass of their own. Outside
/// ASCII, letters match in their exact form only, except the two that fold into it (the kelvin sign
/// and the long s). Immutable, so any thread may ask.
class NameSearch {
public:
    NameSearch() = default;
    explicit NameSearch(DefaultLocations locations);

    [[nodiscard]] const DefaultLocations& locations() const { return m_locations; }

    /// Paths that hold the fragment with a "." behind it, in list order, then those that hold it
    /// with a "." before it. A path that holds both stands twice.
    [[nodiscard]] std::vector<std::string> touchingDot(std::string_view fragment) const;

    /// Paths that hold the word, dot or no dot, in list order.
    [[nodiscard]] std::vector<std::string> containing(std::string_view word) const;

private:
    using Entries = std::vector<std::size_t>; ///< places in the list, ascending

    void appendHits(std::string_view text, std::vector<std::string>& paths) const;

    DefaultLocations m_locations;
    std::vector<Entries> m_hits; ///< by number of the text among the catalogue's
};

} // namespace pryvane
