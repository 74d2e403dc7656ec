#pragma once
#include <span>
#include <string>
#include <string_view>
#include <vector>
namespace pryvane {
class PatternAutomaton {
public:
    enum class Letters { Exact, Folded };
    using State = std::string;
    PatternAutomaton(std::span<const std::string> p, Letters)
    {
        for (auto& s : p)
            m.push_back(low(s));
    }
    State start() const { return {}; }
    template <typename F>
    [[nodiscard]] State advance(State s, std::string_view t, F&& f) const
    {
        for (char c : t) {
            s += low(std::string(1, c));
            for (std::size_t i = 0; i < m.size(); ++i)
                if (s.ends_with(m[i]))
                    f(i);
        }
        return s;
    }

private:
    static std::string low(std::string s)
    {
        for (char& c : s)
            if (c >= 'A' && c <= 'Z')
                c = static_cast<char>(c + 32);
        return s;
    }
    std::vector<std::string> m;
};
} // namespace pryvane
