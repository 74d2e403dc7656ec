#pragma once

#include "core/NotificationCenter.h"
#include "core/Result.h"
#include "core/Texts.h"
#include "core/tasks/BoundQueue.h"
#include "platform/Clock.h"
#include "platform/ClosedScans.h"
#include "platform/PlatformServices.h"
#include "scan/SchedulePlan.h"

#include <QObject>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

class AppDelegate;

/// The same calendar day in the system's time zone with the clock set to h:m:s. A moment that the
/// start of summer time leaves out is the one as long after the change. A date outside the years 1
/// to 9999 is first moved to the nearest one inside.
[[nodiscard]] Date localClock(Date date, int hour, int minute, int second);

/// The hour of the day, 0 to 23, in the system's time zone.
[[nodiscard]] int localHour(Date date);

/// "Tue 24 Nov, 09:00" in the system's time zone.
[[nodiscard]] std::string localMomentText(Date date);

/// The entries of the repeat pop-up; their order is that of the intervals.
inline constexpr std::array<std::string_view, 4> kScheduleTypeTitles = {
    "Every day", "Every 7 days", "Every 30 days", "Every 365 days"};

/// What the schedule form shows and what the user has set in it.
struct ScheduleForm {
    bool isScheduleOn = false;
    Date startDatePicker{};
    Date endDatePicker{};
    Date timePicker{}; ///< only its time of day counts
    int scheduleTypePopUp = 0;
    Date minimumStart{};
    Date minimumEnd{};
    Date minimumTime{};
    bool alsoWhenClosed = false; ///< what was set, or else what stands
};

/// The switch of the form for scans while the program is closed.
struct ClosedScansRow {
    bool isShown = false;
    bool isEnabled = false;
    std::string line; ///< what it does, or why it cannot
};

/// The schedule form without its widgets, and the timer of the scheduled scans, which lives as long
/// as this does. Main thread only.
class SchedulerVC final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SchedulerVC)

public:
    /// The disk that is looked at; none: a file, which is read only while the program runs.
    SchedulerVC(const PlatformServices& services, const DesktopServices& desktop,
                AppDelegate& delegate, std::optional<ScheduledDisk> disk = std::nullopt,
                QObject* parent = nullptr);
    ~SchedulerVC() override;

    void viewDidLoad();

    /// Shows the stored schedule again.
    void schudlerAction();
    void getDataFromDefaultsorSetCurrentTime();
    void saveSchudlerData();
    /// The check box: checked saves the form, unchecked ends the schedule.
    void removeSchudlerData(bool checked);
    void startSchudlerIfAvailble();
    void schudlerScanAction();
    [[nodiscard]] bool isSchduleDateAvailble();
    std::optional<Date> getNextSchduleDate(Date day);
    [[nodiscard]] static Date getTimeDateAdding(Date date, int hours, int min, int sec);
    /// Seconds from 00:00:01 of that day.
    [[nodiscard]] static double getTimeAt0Date(Date date);

    // What the user sets in the form
    void setStartDatePicker(Date date);
    void setEndDatePicker(Date date);
    void setTimePicker(Date date);
    void setScheduleTypePopUp(int index);
    void setScheduleOn(bool on);
    void setAlsoWhenClosed(bool on);

    /// Has the form take effect, or ends the schedule where it says so. False: it was refused,
    /// which an alert has told, and what was scheduled before still is.
    bool save();
    /// What the form would do if it were saved now: "Every Monday at 20:44, next on Monday, 23
    /// November, the last time on 28 December.", or why it would do nothing.
    [[nodiscard]] std::string formSentence() const;

    [[nodiscard]] ClosedScansRow closedScansRow() const;

    [[nodiscard]] const ScheduleForm& form() const { return m_form; }
    [[nodiscard]] Date startDate() const { return m_startDate; }
    [[nodiscard]] Date endDate() const { return m_endDate; }
    [[nodiscard]] Date currentDate() const { return m_currentDate; }
    [[nodiscard]] double time() const { return m_time; }
    [[nodiscard]] int scheduletype() const { return m_scheduletype; }
    [[nodiscard]] std::optional<Date> SchedulerDate() const { return m_SchedulerDate; }
    [[nodiscard]] const std::string& reportType() const { return m_reportType; }

    /// When the armed timer fires next; none while nothing is scheduled.
    [[nodiscard]] std::optional<Date> nextFiring() const;
    /// "next: Tue 24 Nov, 09:00", or empty while nothing is scheduled.
    [[nodiscard]] std::string nextFiringText() const;

Q_SIGNALS:
    void stateChanged();

private:
    [[nodiscard]] Result<Done> storeSchedule();
    void tell(std::string informativeText);
    [[nodiscard]] Clock::Interval timeOfDay() const;
    void restorePopUp();
    [[nodiscard]] bool isMomentOurs();

    // Scans while the program is closed
    enum class Looking : std::uint8_t { AtStart, Later };
    void lookAtClosedScans(Looking when);
    void closedScansStand(const ClosedScans::Standing& standing, Looking when);
    void arrangeClosedScans();
    void closedScansArranged(const Result<Done>& outcome);
    [[nodiscard]] std::vector<Date> momentsAhead();

    PlatformServices m_services;
    DesktopServices m_desktop;
    AppDelegate& m_delegate;
    const std::optional<ScheduledDisk> m_disk;
    ScheduleForm m_form;
    Date m_startDate{};
    Date m_endDate{};
    Date m_currentDate{};  ///< when the form was last filled
    Date m_armedEndDate{}; ///< of the schedule that runs; a refused form does not change it
    double m_time = 0;     ///< seconds after 00:00:01
    int m_scheduletype = 0;
    std::optional<Date> m_SchedulerDate;
    std::string m_reportType;
    bool m_isScanning = false;
    bool m_saved = false; ///< by the last attempt
    std::unique_ptr<Timers::Timer> m_timerSchedule;
    NotificationCenter::Observation m_scanStatusChange;
    std::optional<ClosedScans::Standing> m_standing; ///< none: not told yet
    bool m_closedIsSet = false;                      ///< by hand, since the form was filled
    BoundQueue m_later;
};

} // namespace pryvane
