#pragma once

#include "removal/session/RemovalPlan.h"
#include "ui/RowModel.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace pryvane {

// The cells of a forecast, the same in every plan. `possible` is said where nothing is in the way.
[[nodiscard]] ui::Cell entriesCell(const RemovalForecast& forecast);
[[nodiscard]] ui::Cell sizeCell(const RemovalForecast& forecast);
[[nodiscard]] ui::Cell forecastCell(const RemovalForecast& forecast, const QString& possible);
[[nodiscard]] ui::Cell hindranceCell(const QString& words);

/// The rows of a removal's plan: what would go, and what stands in the way. What rests on weak
/// evidence comes last, in groups of its own, and starts unticked. Ticks are the plan's own until
/// they are handed on.
class PlanSource final : public ui::RowSource {
public:
    enum Column : int { Tick, Name, Location, EvidenceColumn, Entries, Size, Forecast };
    enum Grouping : int { None, ByRule, ByFolder };

    /// Tells which records are to be selected or unselected.
    using Ticked = std::function<void(const SpywareList& records, bool on)>;

    explicit PlanSource(Ticked ticked) : m_ticked(std::move(ticked)) {}

    [[nodiscard]] static std::vector<ui::Column> columns();

    void setPlan(const RemovalPlan& plan);

    /// Of the rows that are ticked.
    [[nodiscard]] RemovalPlan::Totals totals() const;

    /// Tells of the records whose tick here is another than their selection.
    void handOnTicks() const;

    /// Rows on weak evidence, and those of them that are ticked.
    [[nodiscard]] std::size_t weakCount() const;
    [[nodiscard]] std::vector<int> weakTicked() const;

    [[nodiscard]] int count() const override { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] ui::Cell cell(int row, int column) const override;
    [[nodiscard]] std::optional<bool> ticked(int row) const override;
    void tick(const std::vector<int>& rows, bool on) override;
    [[nodiscard]] QString group(int row, int grouping) const override;
    [[nodiscard]] QString searchText(int row) const override;
    [[nodiscard]] ui::Cell remark(int row) const override;
    [[nodiscard]] bool faded(int row) const override;

private:
    [[nodiscard]] const PlannedRecord& at(int row) const
    {
        return m_rows[static_cast<std::size_t>(row)];
    }

    Ticked m_ticked;
    std::vector<PlannedRecord> m_rows;
    std::vector<bool> m_ticks; ///< by row
};

} // namespace pryvane
