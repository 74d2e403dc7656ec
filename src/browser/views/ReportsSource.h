#pragma once

#include "browser/ReportRows.h"
#include "ui/RowModel.h"

namespace pryvane {

/// The reports of the list as rows of a table: state, date, kind, Mac, duration, findings, action.
class ReportsSource final : public ui::RowSource {
public:
    enum Column : int { Edge, State, When, Kind, Mac, Duration, Findings, Action };

    explicit ReportsSource(const ReportRows& rows) : m_rows(rows) {}

    [[nodiscard]] static std::vector<ui::Column> columns();

    /// The rows or their dates have changed.
    void forget() { m_lastRow = -1; }

    [[nodiscard]] int count() const override { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] ui::Cell cell(int row, int column) const override;
    [[nodiscard]] QString group(int row, int grouping) const override;

private:
    [[nodiscard]] const ReportRow& texts(int row) const;

    const ReportRows& m_rows;
    mutable int m_lastRow = -1; ///< cells of one row are asked for together
    mutable ReportRow m_lastTexts;
};

} // namespace pryvane
