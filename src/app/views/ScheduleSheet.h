#pragma once

#include "ui/Sheet.h"

class QCheckBox;
class QComboBox;
class QDateEdit;
class QTimeEdit;

namespace pryvane {

class SchedulerVC;

/// The form of the repeating scan: first day, last day, time of day, how often, on or off.
class ScheduleSheet final : public ui::Sheet {
    Q_OBJECT

public:
    ScheduleSheet(QWidget* over, SchedulerVC& scheduler);
    void present();

private:
    void showState();

    SchedulerVC& m_scheduler;
    QCheckBox* m_isScheduleOn;
    QDateEdit* m_startDatePicker;
    QDateEdit* m_endDatePicker;
    QTimeEdit* m_timePicker;
    QComboBox* m_scheduleTypePopUp;
    class QLabel* m_next;
};

} // namespace pryvane
