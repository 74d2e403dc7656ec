#pragma once

#include "ui/Sheet.h"

class QCheckBox;
class QComboBox;
class QDateEdit;
class QTimeEdit;

namespace pryvane::ui {
class SwitchRow;
}

namespace pryvane {

class SchedulerVC;

/// The form of the repeating scan: on or off, and below it first day, last day, time of day and how
/// often, with a sentence that says what comes of it. Nothing takes effect before it is saved.
class ScheduleSheet final : public ui::Sheet {
    Q_OBJECT

public:
    ScheduleSheet(QWidget* over, SchedulerVC& scheduler);
    void present();

private:
    void layOut();
    void save();
    void showState();

    SchedulerVC& m_scheduler;
    ui::SwitchRow* m_isScheduleOn;
    QWidget* m_fields;
    ui::SwitchRow* m_alsoWhenClosed;
    QDateEdit* m_startDatePicker;
    QDateEdit* m_endDatePicker;
    QTimeEdit* m_timePicker;
    QComboBox* m_scheduleTypePopUp;
    QLabel* m_sentence;
    QPushButton* m_save;
    QPushButton* m_cancel;
};

} // namespace pryvane
