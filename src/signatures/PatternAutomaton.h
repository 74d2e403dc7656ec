#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// Finds many patterns at once in text that may come in pieces: one table look-up a byte, however
/// many patterns there are. Patterns and text are bytes; an empty pattern is never found. Immutable
/// once made, so any thread may use it.
class PatternAutomaton {
public:
    enum class Letters : std::uint8_t {
        Exact,
        Folded, ///< ASCII letters in either case; the kelvin sign is a k, the long s an s
    };

    /// Where the reading of a text stands. Opaque; belongs to the automaton that gave it.
    struct State {
        std::uint32_t node = 0;   ///< before the pending bytes
        std::uint8_t pending = 0; ///< a Pending
    };

    PatternAutomaton(std::span<const std::string> patterns, Letters letters);

    [[nodiscard]] State start() const { return {}; }

    /// Reads a piece of text and calls found(number of the pattern) at each end of a pattern in it,
    /// in the order of the ends. Patterns may have begun in earlier pieces.
    template <typename Found>
    State advance(State state, std::string_view text, Found&& found) const;

    /// The same where it only matters whether any pattern ends in the piece.
    State advance(State state, std::string_view text, bool& ends) const;

private:
    using Node = std::uint32_t;
    using ByteClass = std::uint16_t;

    /// The bytes read so far of a character that may fold into a letter.
    enum Pending : std::uint8_t { None, KelvinOne, KelvinTwo, LongS };

    static constexpr Node kRoot = 0;

    [[nodiscard]] Node after(Node node, unsigned char byte) const
    {
        return m_next[node * m_classCount + m_classes[byte]];
    }
    [[nodiscard]] State afterSequenceByte(State state, unsigned char byte) const;
    [[nodiscard]] Node literal(State state) const;
    [[nodiscard]] std::span<const std::uint32_t> endingAt(Node node) const
    {
        return {m_ending.data() + m_endingFrom[node], m_endingFrom[node + 1] - m_endingFrom[node]};
    }

    std::size_t makeClasses(std::span<const std::string> patterns, Letters letters);
    void makeTable(const std::vector<std::string>& patterns);

    std::array<ByteClass, 256> m_classes{};   ///< 0: a byte that stands in no pattern
    std::array<bool, 256> m_beginsSequence{}; ///< of a character that may fold into a letter
    std::size_t m_classCount = 1;
    std::vector<Node> m_next;                ///< by node and class
    std::vector<std::uint32_t> m_endingFrom; ///< by node: where its part of m_ending begins
    std::vector<std::uint32_t> m_ending;     ///< numbers of the patterns that end there
};

template <typename Found>
PatternAutomaton::State PatternAutomaton::advance(State state, std::string_view text,
                                                  Found&& found) const
{
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        Node reached = 0;
        if (state.pending == None && !m_beginsSequence[byte]) {
            state.node = reached = after(state.node, byte);
        } else {
            state = afterSequenceByte(state, byte);
            reached = literal(state);
        }
        for (const std::uint32_t pattern : endingAt(reached))
            found(pattern);
    }
    return state;
}

} // namespace pryvane
