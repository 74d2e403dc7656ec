#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// Finds every pattern of a fixed set in one pass over a text (Aho-Corasick, as a dense table of
/// states by byte classes). The state after a prefix can be kept, so that texts which share it cost
/// only their own bytes. Immutable after construction; callable from any thread.
class PatternAutomaton {
public:
    enum class Letters : std::uint8_t {
        Exact,
        Folded, ///< ASCII letters in either case; the kelvin sign is a k, the long s an s. Nothing
                ///< else in Unicode folds into ASCII, so for ASCII patterns this is the full answer
    };
    using State = std::uint16_t;

    /// Throws std::length_error when the patterns need more than 32,767 states. An empty pattern is
    /// never found.
    PatternAutomaton(std::span<const std::string> patterns, Letters letters);

    [[nodiscard]] State start() const { return 0; }

    /// Reads a piece of text from `state` on and tells in `ends` whether any pattern ends in it.
    /// Patterns may have begun in earlier pieces. A piece must not end inside a character.
    [[nodiscard]] State advance(State state, std::string_view text, bool& ends) const
    {
        State seen = 0;
        state = run(state, text, [&seen](State entry) { seen |= entry; });
        ends = (seen & kEnds) != 0;
        return state;
    }

    /// The same, calling found(number of the pattern) at each end of a pattern, in text order. A
    /// pattern that ends twice is told twice.
    template <typename Found>
    State advance(State state, std::string_view text, Found&& found) const
    {
        return run(state, text, [&](State entry) {
            if ((entry & kEnds) == 0)
                return;
            const auto at = static_cast<std::size_t>(entry & kStateBits);
            for (std::uint32_t i = m_endingFrom[at]; i < m_endingFrom[at + 1]; ++i)
                found(std::size_t{m_ending[i]});
        });
    }

private:
    static constexpr State kEnds = 0x8000; ///< set in table entries whose state ends a pattern
    static constexpr State kStateBits = 0x7fff;

    class Builder;

    template <typename Seen>
    State run(State state, std::string_view text, Seen&& seen) const;

    struct Fold {
        unsigned char letter;
        std::size_t length;
    };
    /// The ASCII letter that the character at the beginning folds into, or its first byte.
    [[nodiscard]] static Fold foldAt(std::string_view text);

    bool m_folded;
    unsigned m_rowBits = 0; ///< a state's row in the table has 2^m_rowBits entries
    std::array<std::uint16_t, 256> m_classes{}; ///< class 0: a byte that stands in no pattern
    std::vector<State> m_table;                 ///< state and class → next state, and kEnds
    std::vector<std::uint32_t> m_endingFrom;    ///< by state: where its part of m_ending begins
    std::vector<std::uint32_t> m_ending;        ///< numbers of the patterns that end there
};

inline PatternAutomaton::Fold PatternAutomaton::foldAt(std::string_view text)
{
    if (text.starts_with("\xE2\x84\xAA"))
        return {'k', 3};
    if (text.starts_with("\xC5\xBF"))
        return {'s', 2};
    return {static_cast<unsigned char>(text.front()), 1};
}

template <typename Seen>
PatternAutomaton::State PatternAutomaton::run(State state, std::string_view text, Seen&& seen) const
{
    const State* const table = m_table.data();
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto byte = static_cast<unsigned char>(text[i]);
        if (byte >= 0x80 && m_folded) {
            const Fold fold = foldAt(text.substr(i));
            byte = fold.letter;
            i += fold.length - 1;
        }
        const State entry = table[(std::size_t{state} << m_rowBits) + m_classes[byte]];
        seen(entry);
        state = entry & kStateBits;
    }
    return state;
}

} // namespace pryvane
