#pragma once

#include <array>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>

namespace pryvane {

/// A text that many records have in common, raw bytes: copies share it, and an empty one takes no
/// memory. It never changes, so that copies may be on different threads.
class SharedText {
public:
    SharedText() = default;
    template <typename Text>
    requires std::convertible_to<const Text&, std::string_view>
    SharedText(const Text& text) // NOLINT(google-explicit-constructor): a text like any other
        : m_text(std::string_view(text).empty()
                     ? nullptr
                     : std::make_shared<const std::string>(std::string_view(text)))
    {
    }

    operator std::string_view() const // NOLINT(google-explicit-constructor)
    {
        return m_text ? std::string_view(*m_text) : std::string_view();
    }
    [[nodiscard]] bool empty() const { return !m_text; }
    [[nodiscard]] std::size_t size() const { return std::string_view(*this).size(); }

    friend bool operator==(const SharedText& a, std::string_view b)
    {
        return std::string_view(a) == b;
    }
    friend std::ostream& operator<<(std::ostream& out, const SharedText& text)
    {
        return out << std::string_view(text);
    }

private:
    std::shared_ptr<const std::string> m_text;
};

/// Gives equal texts the same memory, for one thread at a time.
class SharedTexts {
public:
    [[nodiscard]] const SharedText& of(std::string_view text)
    {
        SharedText& recent = m_recent[text.size() % m_recent.size()];
        if (recent == text)
            return recent;
        auto known = m_known.find(text);
        if (known == m_known.end()) {
            const SharedText fresh(text);
            known = m_known.emplace(fresh, fresh).first;
        }
        return recent = known->second;
    }

private:
    std::unordered_map<std::string_view, SharedText> m_known; ///< keyed by its values' own bytes
    std::array<SharedText, 16> m_recent;                      ///< by their length
};

} // namespace pryvane
