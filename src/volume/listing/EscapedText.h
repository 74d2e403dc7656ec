#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

/// The text with its backslash escapes taken out, as find and mtree write them: \ooo, \n, \\, "\ ",
/// and so on. What is no escape stands for itself. `out` keeps the bytes where there are any.
[[nodiscard]] std::string_view withoutEscapes(std::string_view text, std::string& out);

/// A number without a sign, nothing before or behind it; what stands behind a dot is left out.
[[nodiscard]] std::optional<std::int64_t> numberIn(std::string_view text);

/// The next run of bytes that are no blanks, taken off the front; empty at the end.
[[nodiscard]] std::string_view takeWord(std::string_view& text);

/// The first occurrence of " -> " parts a link's name from its target.
struct NameAndTarget {
    std::string_view name;
    std::optional<std::string_view> target;
};
[[nodiscard]] NameAndTarget nameAndTarget(std::string_view text);

} // namespace pryvane
