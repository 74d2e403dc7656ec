#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

namespace pryvane {

/// Where in a JSON document a text stands: the keys and indexes that lead to it from the top.
class JsonPlace {
public:
    static constexpr std::size_t kMostSteps = 4; ///< texts nested deeper are not told
    static constexpr std::string_view kAnyKey{};

    /// Whether exactly these object keys lead here; kAnyKey stands for any, of an array's element
    /// too.
    [[nodiscard]] bool is(std::initializer_list<std::string_view> keys) const;

    /// The key or, for an array's element, the index of a step, counted from 0.
    [[nodiscard]] const std::string& key(std::size_t step) const { return m_steps[step].key; }
    [[nodiscard]] std::size_t index(std::size_t step) const { return m_steps[step].index; }
    [[nodiscard]] bool inArray(std::size_t step) const { return m_steps[step].array; }

private:
    friend class JsonTextReader;
    struct Step {
        bool array = false;
        std::size_t index = 0;
        std::string key;
    };
    std::array<Step, kMostSteps> m_steps;
    std::size_t m_depth = 0;
};

using JsonTextSink = std::function<void(const JsonPlace& place, const std::string& text)>;

/// Tells the texts of a strict JSON document (UTF-8; a byte-order mark is skipped) in its order.
/// False where it is not one or is nested more than 512 deep; what was told by then is void. Memory
/// stays in proportion to the longest text, whatever the bytes say.
[[nodiscard]] bool readJsonTexts(std::string_view json, const JsonTextSink& sink);

} // namespace pryvane
