#pragma once

#include "ui/RowModel.h"
#include "ui/Sheet.h"

class QLabel;

namespace pryvane::ui {

class RowTable;

/// Places where something could not be done, each with the reason and what to do about it. The
/// reason of the current row is shown whole below the list.
class ReasonsSheet final : public Sheet {
    Q_OBJECT

public:
    struct Row {
        QString item; ///< what it belongs to; no row has one: no such column
        QString location;
        QString reason;
    };

    /// reasonTitle heads the column of reasons.
    ReasonsSheet(QWidget* over, const QString& title, const QString& reasonTitle,
                 std::vector<Row> rows);
    void present();

private:
    class Source final : public RowSource {
    public:
        explicit Source(std::vector<Row> rows);

        [[nodiscard]] int count() const override { return static_cast<int>(m_rows.size()); }
        [[nodiscard]] Cell cell(int row, int column) const override;
        [[nodiscard]] std::vector<Column> columns(const QString& reasonTitle) const;

    private:
        std::vector<Row> m_rows;
        bool m_haveItems;
    };

    Source m_source;
    RowModel m_model;
    RowTable* m_table;
    QLabel* m_reason; ///< of the current row, whole
};

} // namespace pryvane::ui
