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
    /// Whether letters match as they stand or without regard to case. Patterns are ASCII then, and
    /// only U+212A and U+017F fold into ASCII letters, so folding bytes and those two gives the
    /// Unicode answer. A text must not be split inside a character.
    enum class Letters : std::uint8_t { Exact, Folded };
    using State = std::uint16_t;

    /// Throws std::length_error when the patterns need more than 32,767 states. An empty pattern
    /// never matches.
    PatternAutomaton(std::span<const std::string> patterns, Letters letters);

    [[nodiscard]] State start() const { return 0; }
    [[nodiscard]] std::size_t stateCount() const { return m_outputs.size() - 1; }

    /// Runs over `text` from `state`; sets `ends` when a pattern ends inside `text`.
    [[nodiscard]] State advance(State state, std::string_view text, bool& ends) const
    {
        State seen = 0;
        state = run(state, text, [&](State entry) { seen |= entry; });
        ends = ends || (seen & kEnds) != 0;
        return state;
    }

    /// The same, calling `found(number)` for each end of each pattern, in text order. A pattern
    /// that ends twice is told twice.
    template <typename Found>
    State advance(State state, std::string_view text, Found&& found) const
    {
        return run(state, text, [&](State entry) {
            if ((entry & kEnds) == 0)
                return;
            const auto at = static_cast<std::size_t>(entry & kStateBits);
            for (std::uint32_t i = m_outputs[at]; i < m_outputs[at + 1]; ++i)
                found(std::size_t{m_outputPatterns[i]});
        });
    }

private:
    static constexpr State kEnds = 0x8000; ///< set in table entries whose state ends a pattern
    static constexpr State kStateBits = 0x7fff;

    struct Builder;

    template <typename Seen>
    State run(State state, std::string_view text, Seen&& seen) const
    {
        const auto step = [&](unsigned char byte) {
            const State entry = m_table[state * m_width + m_classes[byte]];
            seen(entry);
            state = entry & kStateBits;
        };
        for (std::size_t i = 0; i < text.size(); ++i) {
            const auto byte = static_cast<unsigned char>(text[i]);
            if (byte >= 0x80 && m_folded) {
                const Fold fold = foldAt(text.substr(i));
                step(fold.letter);
                i += fold.length - 1;
            } else {
                step(byte);
            }
        }
        return state;
    }

    struct Fold {
        unsigned char letter;
        std::size_t length;
    };
    /// The ASCII letter that the character at the beginning folds into, or its first byte.
    [[nodiscard]] static Fold foldAt(std::string_view text)
    {
        if (text.starts_with("\xe2\x84\xaa"))
            return {'k', 3};
        if (text.starts_with("\xc5\xbf"))
            return {'s', 2};
        return {static_cast<unsigned char>(text.front()), 1};
    }

    bool m_folded;
    std::size_t m_width = 1; ///< byte classes; class 0 is every byte of no pattern
    std::array<std::uint16_t, 256> m_classes{};
    std::vector<State> m_table;           ///< state × class → next state and kEnds
    std::vector<std::uint32_t> m_outputs; ///< state → first of its ends in m_outputPatterns
    std::vector<std::uint32_t> m_outputPatterns;
};

} // namespace pryvane
