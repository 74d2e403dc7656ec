#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Taking paths apart name by name, for resolutions that expand links themselves.
namespace pryvane {

/// As many links as Linux follows in one resolution.
inline constexpr int kMaxLinks = 40;

/// The name at or behind `at`, which moves behind it; none when only slashes are left.
[[nodiscard]] std::optional<std::string_view> nextName(std::string_view path, std::size_t& at);

/// Whether nothing but slashes stands at and behind `at`.
[[nodiscard]] bool isLastName(std::string_view path, std::size_t at);

/// A path parted into its last name and the folder that holds it. A path without a name at its end
/// ("/", "..") is its own folder, and the name is ".".
struct ParentAndName {
    std::string parent;
    std::string name;
};
[[nodiscard]] ParentAndName parentAndName(std::string_view path);

/// The target of the link of that name in an open folder, or none with errno set (EINVAL where no
/// link stands there).
[[nodiscard]] std::optional<std::string> linkTarget(int folder, const std::string& name);

} // namespace pryvane
