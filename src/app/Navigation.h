#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace pryvane {

/// The screens of the main window, in the order of the navigation table.
enum class Row : int { Dashboard = 0, Scan = 1, Tools = 2, Reports = 3 };

inline constexpr std::array<std::string_view, 4> kRowTitles = {"Dashboard", "Scan", "Tools",
                                                               "Reports"};

[[nodiscard]] constexpr int rowIndex(Row row)
{
    return static_cast<int>(row);
}

[[nodiscard]] constexpr bool isRow(long long row)
{
    return row >= 0 && row < static_cast<long long>(kRowTitles.size());
}

} // namespace pryvane
