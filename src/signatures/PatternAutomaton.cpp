#include "signatures/PatternAutomaton.h"

#include <stdexcept>

namespace pryvane {

namespace {

constexpr std::size_t kMaxStates = 0x7fff;

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

/// The tree of the patterns, until it has become the table.
struct PatternAutomaton::Builder {
    explicit Builder(std::size_t classes) : width(classes) { addState(); }

    std::size_t width;
    std::vector<State> next;                      ///< state × class; 0 also stands for "none yet"
    std::vector<std::vector<std::uint32_t>> ends; ///< by state

    std::size_t addState()
    {
        if (ends.size() >= kMaxStates)
            throw std::length_error("too many patterns for one automaton");
        next.resize(next.size() + width, 0);
        ends.emplace_back();
        return ends.size() - 1;
    }

    void add(std::uint32_t number, const std::vector<std::uint16_t>& classes)
    {
        std::size_t state = 0;
        for (const std::uint16_t c : classes) {
            const std::size_t place = state * width + c;
            if (next[place] == 0) {
                const auto made = static_cast<State>(addState());
                next[place] = made;
            }
            state = next[place];
        }
        if (state != 0)
            ends[state].push_back(number);
    }

    /// Fills every missing step with the one of the longest proper suffix, breadth first, and adds
    /// the suffixes' ends.
    void complete()
    {
        std::vector<State> suffix(ends.size(), 0), queue;
        queue.reserve(ends.size());
        for (std::size_t c = 0; c < width; ++c) {
            if (next[c] != 0)
                queue.push_back(next[c]);
        }
        for (std::size_t head = 0; head < queue.size(); ++head) {
            const std::size_t state = queue[head];
            const std::size_t shorter = suffix[state];
            ends[state].insert(ends[state].end(), ends[shorter].begin(), ends[shorter].end());
            for (std::size_t c = 0; c < width; ++c) {
                State& step = next[state * width + c];
                const State fallback = next[shorter * width + c];
                if (step == 0) {
                    step = fallback;
                } else {
                    suffix[step] = fallback;
                    queue.push_back(step);
                }
            }
        }
    }
};

PatternAutomaton::PatternAutomaton(std::span<const std::string> patterns, Letters letters)
    : m_folded(letters == Letters::Folded)
{
    const auto kept = [this](char c) { return m_folded ? lowered(c) : c; };
    for (const std::string& pattern : patterns) {
        for (const char c : pattern) {
            std::uint16_t& place = m_classes[static_cast<unsigned char>(kept(c))];
            if (place == 0)
                place = static_cast<std::uint16_t>(m_width++);
        }
    }
    if (m_folded) {
        for (unsigned char c = 'A'; c <= 'Z'; ++c)
            m_classes[c] = m_classes[static_cast<unsigned char>(lowered(static_cast<char>(c)))];
    }

    Builder builder(m_width);
    for (std::uint32_t number = 0; number < patterns.size(); ++number) {
        std::vector<std::uint16_t> classes;
        for (const char c : patterns[number])
            classes.push_back(m_classes[static_cast<unsigned char>(kept(c))]);
        builder.add(number, classes);
    }
    builder.complete();

    m_table = std::move(builder.next);
    for (State& entry : m_table) {
        if (!builder.ends[entry].empty())
            entry |= kEnds;
    }
    for (const auto& ends : builder.ends) {
        m_outputs.push_back(static_cast<std::uint32_t>(m_outputPatterns.size()));
        m_outputPatterns.insert(m_outputPatterns.end(), ends.begin(), ends.end());
    }
    m_outputs.push_back(static_cast<std::uint32_t>(m_outputPatterns.size()));
}

} // namespace pryvane
