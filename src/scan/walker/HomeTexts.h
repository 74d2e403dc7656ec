#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pryvane {

/// Finds texts of the form "/Users/%@/some folder/beginning of a name" in paths, whoever the user
/// is and wherever such a "Users" folder stands: as text, with each name up to the last compared
/// whole. A folder costs a few comparisons, and one far from any home none. Immutable after the
/// last add(); callable from any thread.
class HomeTexts {
public:
    /// What is known of a folder: where below homes it may be, as few as two places, since a home
    /// can only be that of a user called "Users" and hold a home of its own.
    using Places = std::array<std::uint8_t, 2>;

    /// False for a text that has another form. Throws std::length_error past 250 folders.
    bool add(std::string_view text);

    /// The places of the folder of that name, where the one above has those. `matches` is set where
    /// the folder's path, with the slash behind it, holds a text; nothing else is known then.
    [[nodiscard]] Places below(const Places& places, std::string_view name, bool& matches) const;

    /// Whether a text ends in the name of a file in a folder with those places.
    [[nodiscard]] bool endsIn(const Places& places, std::string_view name) const;

private:
    using Number = std::uint8_t;
    struct Place {
        std::vector<std::pair<std::string, Number>> below;
        std::vector<std::string> wholeNames; ///< of folders in which everything matches
        std::vector<std::string> beginnings; ///< of names that match
    };
    static constexpr Number kNowhere = 0;
    static constexpr Number kUsers = 1; ///< what is in it is a home
    static constexpr Number kHome = 2;

    [[nodiscard]] Number below(Number place, std::string_view name) const;

    std::vector<Place> m_places{3};
};

} // namespace pryvane
