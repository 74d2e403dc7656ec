#include "signatures/PatternAutomaton.h"

#include "core/Texts.h"

#include <bit>
#include <stdexcept>

namespace pryvane {

namespace {

constexpr std::size_t kMaxStates = 0x7fff;

unsigned char lowered(unsigned char c)
{
    return static_cast<unsigned char>(lowerAscii(static_cast<char>(c)));
}

} // namespace

/// The tree of the patterns, until it has become the table. State 0 is the root and nobody's child,
/// so 0 also stands for "no child yet".
class PatternAutomaton::Builder {
public:
    Builder(std::size_t classes, unsigned rowBits) : m_classes(classes), m_rowBits(rowBits)
    {
        addState();
    }

    void add(std::uint32_t number, const std::vector<std::uint16_t>& pattern)
    {
        State state = 0;
        for (const std::uint16_t letter : pattern) {
            if (next(state, letter) == 0) {
                const State made = addState(); // may move the table
                next(state, letter) = made;
            }
            state = next(state, letter);
        }
        if (state != 0)
            m_ending[state].push_back(number);
    }

    /// Breadth first, gives every state the steps it lacks, which are those of its longest proper
    /// suffix in the tree, and that suffix's ends.
    void complete()
    {
        std::vector<State> suffix(m_ending.size(), 0);
        std::vector<State> queue = {0};
        queue.reserve(m_ending.size());
        for (std::size_t head = 0; head < queue.size(); ++head) {
            const State state = queue[head];
            const auto& inherited = m_ending[suffix[state]];
            if (state != 0)
                m_ending[state].insert(m_ending[state].end(), inherited.begin(), inherited.end());
            for (std::size_t letter = 1; letter < m_classes; ++letter) {
                const State fallback = state == 0 ? State{0} : next(suffix[state], letter);
                State& step = next(state, letter);
                if (step == 0) {
                    step = fallback;
                } else {
                    suffix[step] = fallback;
                    queue.push_back(step);
                }
            }
        }
    }

    void moveInto(PatternAutomaton& automaton)
    {
        for (State& entry : m_next) {
            if (!m_ending[entry].empty())
                entry |= kEnds;
        }
        automaton.m_table = std::move(m_next);
        automaton.m_endingFrom.reserve(m_ending.size() + 1);
        for (const auto& numbers : m_ending) {
            automaton.m_endingFrom.push_back(static_cast<std::uint32_t>(automaton.m_ending.size()));
            automaton.m_ending.insert(automaton.m_ending.end(), numbers.begin(), numbers.end());
        }
        automaton.m_endingFrom.push_back(static_cast<std::uint32_t>(automaton.m_ending.size()));
    }

private:
    [[nodiscard]] State& next(State state, std::size_t letter)
    {
        return m_next[(std::size_t{state} << m_rowBits) + letter];
    }

    State addState()
    {
        if (m_ending.size() >= kMaxStates)
            throw std::length_error("too many patterns for one automaton");
        m_next.resize(m_next.size() + (std::size_t{1} << m_rowBits), 0);
        m_ending.emplace_back();
        return static_cast<State>(m_ending.size() - 1);
    }

    std::size_t m_classes;
    unsigned m_rowBits;
    std::vector<State> m_next;
    std::vector<std::vector<std::uint32_t>> m_ending; // by state
};

PatternAutomaton::PatternAutomaton(std::span<const std::string> patterns, Letters letters)
    : m_folded(letters == Letters::Folded)
{
    std::size_t classes = 1;
    std::vector<std::vector<std::uint16_t>> texts(patterns.size());
    for (std::size_t number = 0; number < patterns.size(); ++number) {
        std::string_view pattern = patterns[number];
        while (!pattern.empty()) {
            const auto first = static_cast<unsigned char>(pattern.front());
            const Fold fold = m_folded ? foldAt(pattern) : Fold{first, 1};
            const unsigned char letter = m_folded ? lowered(fold.letter) : fold.letter;
            if (m_classes[letter] == 0)
                m_classes[letter] = static_cast<std::uint16_t>(classes++);
            texts[number].push_back(m_classes[letter]);
            pattern.remove_prefix(fold.length);
        }
    }
    if (m_folded) {
        for (unsigned char c = 'A'; c <= 'Z'; ++c)
            m_classes[c] = m_classes[lowered(c)];
    }

    m_rowBits = static_cast<unsigned>(std::bit_width(classes - 1));
    Builder builder(classes, m_rowBits);
    for (std::uint32_t number = 0; number < texts.size(); ++number)
        builder.add(number, texts[number]);
    builder.complete();
    builder.moveInto(*this);
}

} // namespace pryvane
