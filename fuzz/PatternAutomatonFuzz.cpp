// The automaton against a plain search for each pattern. The input is a line of options, then
// patterns, one a line, then an empty line and the text; "|" splits the text into pieces.
#include "signatures/PatternAutomaton.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace {

using pryvane::PatternAutomaton;
using Letters = PatternAutomaton::Letters;
using Hits = std::vector<std::pair<std::size_t, std::size_t>>; ///< piece in which it ends, pattern

/// The text with every character that folds into an ASCII letter as that small letter.
std::string folded(const std::string& text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.compare(i, 3, "\xE2\x84\xAA") == 0) {
            result += 'k';
            i += 2;
        } else if (text.compare(i, 2, "\xC5\xBF") == 0) {
            result += 's';
            i += 1;
        } else {
            const char c = text[i];
            result += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        }
    }
    return result;
}

Hits searched(const std::vector<std::string>& patterns, const std::vector<std::string>& pieces,
              Letters letters)
{
    const auto seen = [letters](const std::string& text) {
        return letters == Letters::Folded ? folded(text) : text;
    };
    Hits hits;
    std::string whole;
    for (std::size_t piece = 0; piece < pieces.size(); ++piece) {
        const std::size_t before = whole.size();
        whole += seen(pieces[piece]);
        for (std::size_t number = 0; number < patterns.size(); ++number) {
            const std::string pattern = seen(patterns[number]);
            if (pattern.empty())
                continue;
            for (std::size_t at = whole.find(pattern); at != std::string::npos;
                 at = whole.find(pattern, at + 1)) {
                if (at + pattern.size() > before)
                    hits.emplace_back(piece, number);
            }
        }
    }
    std::sort(hits.begin(), hits.end());
    return hits;
}

std::vector<std::string> split(const std::string& text, char at)
{
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == at)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

void require(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0 || size > 4096)
        return 0;
    const Letters letters = data[0] % 2 ? Letters::Folded : Letters::Exact;
    const std::string input(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::size_t border = std::min(input.find("\n\n"), input.size());
    const std::vector<std::string> patterns = split(input.substr(0, border), '\n');
    const std::string text = border + 2 <= input.size() ? input.substr(border + 2) : std::string();
    const std::vector<std::string> pieces = split(text, '|');

    const PatternAutomaton automaton(patterns, letters);
    Hits hits;
    auto state = automaton.start();
    for (std::size_t piece = 0; piece < pieces.size(); ++piece) {
        bool ends = true;
        const auto plain = automaton.advance(state, pieces[piece], ends);
        const std::size_t before = hits.size();
        state = automaton.advance(state, pieces[piece],
                                  [&](std::size_t number) { hits.emplace_back(piece, number); });
        require(plain == state);
        require(ends == (hits.size() > before));
    }
    std::sort(hits.begin(), hits.end());
    require(hits == searched(patterns, pieces, letters));
    return 0;
}
