#pragma once

#include "reports/ReportCompare.h"
#include "ui/RowModel.h"
#include "ui/Sheet.h"

namespace pryvane {

namespace ui {
class RowTable;
}

/// What changed from one report to a later one: new findings first, then what is gone.
class ComparisonSheet final : public ui::Sheet {
    Q_OBJECT

public:
    ComparisonSheet(QWidget* over, const SpywareScanReport& report, const SpywareScanReport& other,
                    ReportComparison changes);
    void present();

private:
    class Source final : public ui::RowSource {
    public:
        explicit Source(ReportComparison changes) : m_changes(std::move(changes)) {}

        [[nodiscard]] int count() const override;
        [[nodiscard]] ui::Cell cell(int row, int column) const override;
        [[nodiscard]] QString searchText(int row) const override;
        [[nodiscard]] bool faded(int row) const override { return change(row) == Change::Gone; }

    private:
        enum class Change : std::uint8_t { New, Gone, Kept };
        [[nodiscard]] Change change(int row) const;
        [[nodiscard]] const Spyware& record(int row) const;
        [[nodiscard]] static ui::Cell changeCell(Change change);

        ReportComparison m_changes;
    };

    Source m_source;
    ui::RowModel m_model;
    ui::RowTable* m_table;
};

} // namespace pryvane
