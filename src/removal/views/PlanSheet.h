#pragma once

#include "removal/views/PlanSource.h"
#include "ui/Sheet.h"

class QComboBox;
class QLabel;
class QPushButton;
class QStackedWidget;

namespace pryvane {

namespace ui {
class RowTable;
}

/// The plan before a removal: what would go, grouped, what rests on weak evidence apart and quick
/// to leave out; before the first one from a disk, what to think of. Nothing happens without the
/// button that is not the default one.
class PlanSheet final : public ui::Sheet {
    Q_OBJECT

public:
    /// `ticked` selects or unselects findings in the list that the plan is of, once the removal is
    /// wanted; a plan that is cancelled leaves the list as it is.
    PlanSheet(QWidget* over, PlanSource::Ticked ticked);

    /// Shows that the disk is being looked at.
    void present();
    void setPlan(const RemovalPlan& plan);

    /// What became of keeping a record, in words.
    void tellRecord(const QString& words);

Q_SIGNALS:
    void removalWanted();
    /// The report is to be kept as files before anything goes.
    void recordWanted();

private:
    void layOut();
    void showTotals();
    void leaveWeakOut();

    PlanSource m_source;
    ui::RowModel m_model;
    ui::RowTable* m_table;
    QStackedWidget* m_pages;
    QComboBox* m_grouping;
    QLabel* m_totals;
    QLabel* m_weak;
    QLabel* m_safety;
    QPushButton* m_keepRecord;
    QPushButton* m_leaveWeakOut;
    QPushButton* m_cancel;
    QPushButton* m_remove;
};

} // namespace pryvane
