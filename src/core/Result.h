#pragma once

#include <string>
#include <utility>
#include <variant>

namespace pryvane {

/// Why an operation could not do its work: one line for a person, saying what was wrong, where,
/// and what to do.
struct Error {
    std::string message;
};

/// Either a value or the Error that kept it from being made. Asking for the wrong one is a
/// programming error (std::bad_variant_access).
template <typename Value>
class [[nodiscard]] Result {
public:
    Result(Value value) : m_state(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : m_state(std::in_place_index<1>, std::move(error)) {}

    [[nodiscard]] bool ok() const { return m_state.index() == 0; }
    explicit operator bool() const { return ok(); }

    [[nodiscard]] Value& value() & { return std::get<0>(m_state); }
    [[nodiscard]] const Value& value() const& { return std::get<0>(m_state); }
    [[nodiscard]] Value&& value() && { return std::get<0>(std::move(m_state)); }
    [[nodiscard]] const Error& error() const { return std::get<1>(m_state); }

    Value& operator*() & { return value(); }
    const Value& operator*() const& { return value(); }
    Value* operator->() { return &value(); }
    const Value* operator->() const { return &value(); }

private:
    std::variant<Value, Error> m_state;
};

/// The value of a Result whose success carries nothing.
struct Done {};

/// What an errno value means, in words that can stand inside a sentence: "permission denied".
[[nodiscard]] std::string errorText(int error);

/// Whether that error says that nothing is there, as opposed to "could not be told". Too many links
/// in a row are a dangling link; a name that is too long for the system cannot exist.
[[nodiscard]] bool meansAbsent(int error);

} // namespace pryvane
