#pragma once

namespace pryvane::pdf {

/// A wrapped text that does not fit its room is tried smaller and smaller, in steps so few that the
/// document needs no more than a handful of sizes.
inline constexpr double kSmallestScale = 0.2;
[[nodiscard]] constexpr double nextSmaller(double scale)
{
    return scale - 0.05;
}

} // namespace pryvane::pdf
