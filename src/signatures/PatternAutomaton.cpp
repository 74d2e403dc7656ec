#include "signatures/PatternAutomaton.h"

namespace pryvane {

namespace {

constexpr std::string_view kKelvinSign = "\xE2\x84\xAA";
constexpr std::string_view kLongS = "\xC5\xBF";

constexpr unsigned char byteOf(std::string_view sequence, std::size_t place)
{
    return static_cast<unsigned char>(sequence[place]);
}

std::string folded(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        std::size_t length = 1;
        if (text.starts_with(kKelvinSign)) {
            result += 'k';
            length = kKelvinSign.size();
        } else if (text.starts_with(kLongS)) {
            result += 's';
            length = kLongS.size();
        } else {
            const char c = text.front();
            result += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        }
        text.remove_prefix(length);
    }
    return result;
}

} // namespace

PatternAutomaton::PatternAutomaton(std::span<const std::string> patterns, Letters letters)
{
    std::vector<std::string> texts(patterns.begin(), patterns.end());
    if (letters == Letters::Folded) {
        for (std::string& text : texts)
            text = folded(text);
        m_beginsSequence[byteOf(kKelvinSign, 0)] = true;
        m_beginsSequence[byteOf(kLongS, 0)] = true;
    }
    m_classCount = makeClasses(texts, letters);
    makeTable(texts);
}

std::size_t PatternAutomaton::makeClasses(std::span<const std::string> patterns, Letters letters)
{
    std::size_t count = 1;
    for (const std::string& pattern : patterns) {
        for (const char character : pattern) {
            ByteClass& own = m_classes[static_cast<unsigned char>(character)];
            if (own == 0)
                own = static_cast<ByteClass>(count++);
        }
    }
    if (letters == Letters::Folded) {
        for (unsigned char capital = 'A'; capital <= 'Z'; ++capital)
            m_classes[capital] = m_classes[static_cast<unsigned char>(capital - 'A' + 'a')];
    }
    return count;
}

void PatternAutomaton::makeTable(const std::vector<std::string>& patterns)
{
    // A tree of the patterns; 0 stands for "no child", as the root is nobody's.
    m_next.assign(m_classCount, kRoot);
    std::vector<std::vector<std::uint32_t>> ending(1);
    for (std::uint32_t number = 0; number < patterns.size(); ++number) {
        Node node = kRoot;
        for (const char character : patterns[number]) {
            const std::size_t edge =
                node * m_classCount + m_classes[static_cast<unsigned char>(character)];
            if (m_next[edge] == kRoot) {
                m_next[edge] = static_cast<Node>(ending.size());
                m_next.resize(m_next.size() + m_classCount, kRoot);
                ending.emplace_back();
            }
            node = m_next[edge];
        }
        if (node != kRoot)
            ending[node].push_back(number);
    }

    // Level by level, each missing child becomes that of the longest proper suffix in the tree,
    // and what ends at the suffix ends here too.
    std::vector<Node> suffix(ending.size(), kRoot);
    std::vector<Node> level = {kRoot};
    while (!level.empty()) {
        std::vector<Node> below;
        for (const Node node : level) {
            for (std::size_t letter = 1; letter < m_classCount; ++letter) {
                Node& child = m_next[node * m_classCount + letter];
                const Node fallback =
                    node == kRoot ? kRoot : m_next[suffix[node] * m_classCount + letter];
                if (child == kRoot) {
                    child = fallback;
                    continue;
                }
                suffix[child] = fallback;
                ending[child].insert(ending[child].end(), ending[fallback].begin(),
                                     ending[fallback].end());
                below.push_back(child);
            }
        }
        level = std::move(below);
    }

    m_endingFrom.reserve(ending.size() + 1);
    for (const auto& numbers : ending) {
        m_endingFrom.push_back(static_cast<std::uint32_t>(m_ending.size()));
        m_ending.insert(m_ending.end(), numbers.begin(), numbers.end());
    }
    m_endingFrom.push_back(static_cast<std::uint32_t>(m_ending.size()));
}

/// The node where the pending bytes, taken as nothing but bytes, lead.
PatternAutomaton::Node PatternAutomaton::literal(State state) const
{
    switch (state.pending) {
    case KelvinOne:
        return after(state.node, byteOf(kKelvinSign, 0));
    case KelvinTwo:
        return after(after(state.node, byteOf(kKelvinSign, 0)), byteOf(kKelvinSign, 1));
    case LongS:
        return after(state.node, byteOf(kLongS, 0));
    default:
        return state.node;
    }
}

PatternAutomaton::State PatternAutomaton::afterSequenceByte(State state, unsigned char byte) const
{
    if (state.pending == KelvinOne && byte == byteOf(kKelvinSign, 1))
        return {state.node, KelvinTwo};
    if (state.pending == KelvinTwo && byte == byteOf(kKelvinSign, 2))
        return {after(state.node, 'k'), None};
    if (state.pending == LongS && byte == byteOf(kLongS, 1))
        return {after(state.node, 's'), None};

    const Node node = literal(state); // it was no such character
    if (byte == byteOf(kKelvinSign, 0))
        return {node, KelvinOne};
    if (byte == byteOf(kLongS, 0))
        return {node, LongS};
    return {after(node, byte), None};
}

PatternAutomaton::State PatternAutomaton::advance(State state, std::string_view text,
                                                  bool& ends) const
{
    ends = false;
    return advance(state, text, [&](std::uint32_t) { ends = true; });
}

} // namespace pryvane
