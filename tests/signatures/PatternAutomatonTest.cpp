#include "signatures/PatternAutomaton.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <utility>

namespace pryvane::test {

namespace {

using Letters = PatternAutomaton::Letters;
using Hits = std::vector<std::pair<std::size_t, std::size_t>>; ///< end in the text, pattern

/// Reads the text byte by byte, which tells where an end is.
Hits found(const PatternAutomaton& automaton, std::string_view text)
{
    Hits hits;
    auto state = automaton.start();
    for (std::size_t end = 1; end <= text.size(); ++end) {
        state = automaton.advance(state, text.substr(end - 1, 1),
                                  [&](std::size_t pattern) { hits.emplace_back(end, pattern); });
    }
    std::ranges::sort(hits);
    return hits;
}

Hits searchedOneByOne(const std::vector<std::string>& patterns, std::string_view text)
{
    Hits hits;
    for (std::size_t pattern = 0; pattern < patterns.size(); ++pattern) {
        for (std::size_t at = 0; !patterns[pattern].empty() && at < text.size(); ++at) {
            if (text.substr(at).starts_with(patterns[pattern]))
                hits.emplace_back(at + patterns[pattern].size(), pattern);
        }
    }
    std::ranges::sort(hits);
    return hits;
}

} // namespace

TEST(PatternAutomaton, FindsExactlyWhatASearchForEachPatternFinds)
{
    std::mt19937 random(7);
    const auto text = [&](std::size_t longest, int letters) {
        std::string result(std::uniform_int_distribution<std::size_t>(0, longest)(random), ' ');
        for (char& byte : result)
            byte = static_cast<char>(std::uniform_int_distribution<int>(0, letters - 1)(random));
        return result;
    };
    for (int round = 0; round < 300; ++round) {
        const int letters = round % 3 == 0 ? 256 : 3;
        std::vector<std::string> patterns(1 + random() % 12);
        for (std::string& pattern : patterns)
            pattern = text(6, letters);
        const std::string where = text(200, letters) + patterns.front() + patterns.back();
        const PatternAutomaton automaton(patterns, Letters::Exact);
        ASSERT_EQ(found(automaton, where), searchedOneByOne(patterns, where));
    }
}

TEST(PatternAutomaton, FoldsTheLettersThatFoldIntoAscii)
{
    const std::vector<std::string> patterns = {"Kiss.", "\xE2\x80\xA6x", "KISS\xE2\x84\xAA"};
    const PatternAutomaton automaton(patterns, Letters::Folded);
    const struct {
        const char* text;
        std::vector<std::size_t> expected;
    } cases[] = {
        {"kIsS.", {0}},
        {"\xE2\x84\xAAi\xC5\xBF\xC5\xBF.", {0}},
        {"\xE2\x84kiss.", {0}},                // half a sign, then the letter
        {"\xE2\xE2\x84\xAAis\xC5\xBF.", {0}},  //
        {"\xE2\x84\xC5\xE2\x84\xAAiss.", {0}}, //
        {"ki\xC5s.", {}},                      // half a letter is none
        {"i\xC5\xBF\xBFs.", {}},               //
        {"\xE2\x80\xA6X", {1}},                // begins like the sign
        {"\xE2\x84\xE2\x80\xA6x", {1}},        //
        {"KissK", {2}},
        {"kiss\xE2\x84\xAA", {2}},
    };
    for (const auto& row : cases) {
        std::vector<std::size_t> numbers;
        static_cast<void>(automaton.advance(
            automaton.start(), row.text, [&](std::size_t pattern) { numbers.push_back(pattern); }));
        EXPECT_EQ(numbers, row.expected) << ::testing::PrintToString(row.text);
        bool ends = false;
        static_cast<void>(automaton.advance(automaton.start(), row.text, ends));
        EXPECT_EQ(ends, !row.expected.empty());
    }
    const PatternAutomaton exact(patterns, Letters::Exact);
    bool ends = true;
    static_cast<void>(exact.advance(exact.start(), "kiss.", ends));
    EXPECT_FALSE(ends);
}

} // namespace pryvane::test
