#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane::cli {

/// Columns aligned by what a terminal shows. Cells are display text already; the last column is
/// left as it is.
class TextTable {
public:
    enum class Align : std::uint8_t { Left, Right };

    explicit TextTable(std::vector<Align> columns) : m_columns(std::move(columns)) {}
    void addRow(std::vector<std::string> cells) { m_rows.push_back(std::move(cells)); }
    [[nodiscard]] bool empty() const { return m_rows.empty(); }

    /// All rows, each on a line of its own behind `indent`.
    [[nodiscard]] std::string text(std::string_view indent = "") const;

private:
    std::vector<Align> m_columns;
    std::vector<std::vector<std::string>> m_rows;
};

} // namespace pryvane::cli
