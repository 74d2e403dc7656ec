#pragma once

#include <QTimer>
#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;

namespace pryvane::ui {
class ButtonWithSpinner;
class ColouredView;
class SwitchRow;
} // namespace pryvane::ui

namespace pryvane {

class DashBoardViewController;
class SchedulerVC;

/// The first screen: how protected one is, the scan button, the switches, and the schedule.
class DashboardView final : public QWidget {
    Q_OBJECT

public:
    DashboardView(DashBoardViewController& controller, SchedulerVC& scheduler,
                  QWidget* parent = nullptr);

Q_SIGNALS:
    /// What the last scan found is to be looked at.
    void reportWanted();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    [[nodiscard]] QWidget* makeScanCard();
    [[nodiscard]] QWidget* makeSwitches();
    [[nodiscard]] QWidget* makeScheduleCard();
    void showState();
    void showStatement();
    void showScanButton();
    void showSwitches();
    void showSchedule();
    void openSchedule();

    DashBoardViewController& m_controller;
    SchedulerVC& m_scheduler;
    ui::ColouredView* m_statement;
    QPushButton* m_look;
    ui::ButtonWithSpinner* m_scan = nullptr;
    QCheckBox* m_deep = nullptr;
    QLabel* m_explanation = nullptr;
    ui::SwitchRow* m_realTime = nullptr;
    ui::SwitchRow* m_dockIcon = nullptr;
    ui::SwitchRow* m_runStartUp = nullptr;
    QLabel* m_next = nullptr;
    QPushButton* m_schedule = nullptr;
    QTimer m_passing{this}; ///< while it is shown
};

} // namespace pryvane
