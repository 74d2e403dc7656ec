#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <initializer_list>
#include <string_view>

/// The shapes of the catalogue's rows. "%@" in a location stands for the user's short name; in a
/// library root the last "%@" stands for the location below it.
namespace pryvane {

/// A short list of literals inside a constant table. One literal too many does not compile.
template <std::size_t Capacity>
class TextList {
public:
    constexpr TextList() = default;
    constexpr TextList(std::initializer_list<std::string_view> texts) : m_count(texts.size())
    {
        std::copy(texts.begin(), texts.end(), m_texts.begin());
    }

    [[nodiscard]] constexpr const std::string_view* begin() const { return m_texts.data(); }
    [[nodiscard]] constexpr const std::string_view* end() const { return begin() + m_count; }
    [[nodiscard]] constexpr std::size_t size() const { return m_count; }

private:
    std::array<std::string_view, Capacity> m_texts{};
    std::size_t m_count = 0;
};

/// What is known of one named threat. All but the first two members are ways to find it.
struct ThreatCheck {
    std::string_view method;          ///< the check's own name, as the sequence calls it
    std::string_view displayName;     ///< the family that its findings are shown under
    TextList<6> names = {};           ///< fragments that a "." must touch on one side
    std::string_view bareWord = {};   ///< a fragment that needs no "." (one check only)
    TextList<9> scoped = {};          ///< locations below each library root
    std::string_view directPath = {}; ///< tested ahead of, and outside, the candidate list
    TextList<38> paths = {};          ///< fixed and per-user locations, in candidate order
};

/// A threat that is looked for by name only.
struct DefaultOnlyEntry {
    std::string_view displayName;
    TextList<3> names;
};

/// One step of the session: its checks in order, then the label it shows and how long it waits.
struct SequenceRow {
    TextList<3> methods;
    std::string_view label;
    std::chrono::milliseconds pause;
};

/// A product of this program's maker: the text that betrays it in a name, and the name under which
/// it is installed.
struct MakersProduct {
    std::string_view key;
    std::string_view applicationName;
};

} // namespace pryvane
