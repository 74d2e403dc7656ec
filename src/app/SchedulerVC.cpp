#include "app/SchedulerVC.h"

#include "app/AppDelegate.h"
#include "platform/Messages.h"
#include "platform/UserDefaults.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace pryvane {

Date localClock(Date date, int hour, int minute, int second)
{
    std::tm parts = localParts(clampedDate(date));
    parts.tm_hour = hour;
    parts.tm_min = minute;
    parts.tm_sec = second;
    parts.tm_isdst = -1;
    return Date(std::chrono::seconds(std::mktime(&parts)));
}

int localHour(Date date)
{
    return localParts(clampedDate(date)).tm_hour;
}

std::string localMomentText(Date date)
{
    constexpr std::array kDays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    constexpr std::array kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::tm parts = localParts(clampedDate(date));
    std::array<char, 64> text{};
    const int length = std::snprintf(
        text.data(), text.size(), "%s %d %s, %02d:%02d",
        kDays.at(static_cast<std::size_t>(parts.tm_wday)), parts.tm_mday,
        kMonths.at(static_cast<std::size_t>(parts.tm_mon)), parts.tm_hour, parts.tm_min);
    return {text.data(), static_cast<std::size_t>(std::max(length, 0))};
}

namespace {

constexpr std::chrono::hours kUsualPlan{30 * 24};

/// The form shows no seconds, so that none count.
Date wholeMinute(Date time)
{
    return std::chrono::floor<std::chrono::minutes>(time);
}

constexpr std::array kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                  "Thursday", "Friday", "Saturday"};
constexpr std::array kMonths = {"January",   "February", "March",    "April",
                                "May",       "June",     "July",     "August",
                                "September", "October",  "November", "December"};

std::string dayText(const std::tm& day)
{
    return std::to_string(day.tm_mday) + " " + kMonths.at(static_cast<std::size_t>(day.tm_mon));
}

std::string scheduleSentence(int repeat, Date next, Date last)
{
    const std::tm day = localParts(clampedDate(next)), end = localParts(clampedDate(last));
    const std::string weekday = kWeekdays.at(static_cast<std::size_t>(day.tm_wday));
    std::array<char, 8> time{};
    static_cast<void>(
        std::snprintf(time.data(), time.size(), "%02d:%02d", day.tm_hour % 24, day.tm_min % 60));
    const std::string often = repeat == 1
                                  ? "Every " + weekday
                                  : std::string(kScheduleTypeTitles.at(
                                        static_cast<std::size_t>(std::clamp(repeat, 0, 3))));
    if (next == last)
        return "Once, on " + weekday + ", " + dayText(day) + ", at " + time.data() + ".";
    return often + " at " + time.data() + ", next on " + weekday + ", " + dayText(day) +
           ", the last time on " + dayText(end) +
           (end.tm_year == day.tm_year ? "" : " " + std::to_string(end.tm_year + 1900)) + ".";
}

} // namespace

SchedulerVC::SchedulerVC(const PlatformServices& services, const DesktopServices& desktop,
                         AppDelegate& delegate, std::optional<ScheduledDisk> disk, QObject* parent)
    : QObject(parent), m_services(services), m_desktop(desktop), m_delegate(delegate),
      m_disk(std::move(disk)),
      m_scanStatusChange(services.notifications.observe(NotificationName::ScanStatusChange,
                                                        [this](const Notification& note) {
                                                            const auto* running =
                                                                std::get_if<bool>(&note.object);
                                                            m_isScanning = running && *running;
                                                        })),
      m_later(services.mainQueue)
{
}

SchedulerVC::~SchedulerVC() = default;

void SchedulerVC::viewDidLoad()
{
    const Date now = m_services.clock.now();
    m_form.minimumStart = m_form.minimumEnd = m_form.minimumTime = now;
    restorePopUp();
    getDataFromDefaultsorSetCurrentTime();
    static_cast<void>(isSchduleDateAvailble()); // what it finds is what gets armed
    startSchudlerIfAvailble();
    lookAtClosedScans(Looking::AtStart);
}

/// A plan takes its kind from the pop-up, which would else forget at each start what was chosen.
void SchedulerVC::restorePopUp()
{
    const std::int64_t kept = m_services.defaults.get(preferences::kScheduleRepeat);
    if (m_services.defaults.contains(preferences::kScheduleRepeat) && kept >= 0 &&
        kept < static_cast<std::int64_t>(kScheduleSteps.size()))
        m_form.scheduleTypePopUp = static_cast<int>(kept);
}

void SchedulerVC::schudlerAction()
{
    m_form.minimumStart = m_form.minimumEnd = m_services.clock.now();
    restorePopUp();
    m_closedIsSet = false;
    m_form.alsoWhenClosed = m_standing && m_standing->kind == ClosedScans::Standing::Kind::On;
    getDataFromDefaultsorSetCurrentTime();
    lookAtClosedScans(Looking::Later);
}

void SchedulerVC::getDataFromDefaultsorSetCurrentTime()
{
    UserDefaults& defaults = m_services.defaults;
    const Date now = m_services.clock.now();
    m_form.isScheduleOn = defaults.get(preferences::kScheduleOn) == "Yes";
    if (m_form.isScheduleOn) {
        m_currentDate = now;
        m_startDate = clampedDate(defaults.get(preferences::kScheduleStartDate));
        m_endDate = clampedDate(defaults.get(preferences::kScheduleEndDate));
        m_time = sensibleTime(defaults.get(preferences::kScheduleTime));
        m_scheduletype = m_form.scheduleTypePopUp; // the stored kind is not read back, on purpose
        m_form.startDatePicker = m_startDate;
        m_form.endDatePicker = m_endDate;
        m_form.timePicker = getTimeDateAdding(now, 0, 0, 1) + timeOfDay();
    } else {
        m_form.startDatePicker = m_form.endDatePicker = now;
        m_form.timePicker =
            localHour(now) == 23 ? getTimeDateAdding(now, 23, 59, 59) : now + std::chrono::hours(1);
    }
    Q_EMIT stateChanged();
}

void SchedulerVC::saveSchudlerData()
{
    m_startDate = getTimeDateAdding(m_form.startDatePicker, 0, 0, 1);
    m_endDate = getTimeDateAdding(m_form.endDatePicker, 23, 59, 59);
    m_time = getTimeAt0Date(m_form.timePicker);
    m_scheduletype = m_form.scheduleTypePopUp;
    m_currentDate = m_services.clock.now();
    if (m_startDate > m_endDate) {
        m_form.isScheduleOn = false;
        return tell("Start Date should not be greater then End Date.");
    }
    if (!isSchduleDateAvailble())
        return tell("Scheduler time already expired.");
    if (const auto stored = storeSchedule(); !stored) {
        m_services.log.line(stored.error().message);
        return tell("The schedule could not be kept: " + stored.error().message);
    }
    m_saved = true;
    startSchudlerIfAvailble();
    tell("Spyware scan scheduled successfully");
}

/// "ScheduleOn" comes last, so that a schedule that is on is whole.
Result<Done> SchedulerVC::storeSchedule()
{
    UserDefaults& defaults = m_services.defaults;
    auto stored = defaults.set(preferences::kScheduleStartDate, m_startDate);
    if (stored)
        stored = defaults.set(preferences::kScheduleEndDate, m_endDate);
    if (stored)
        stored = defaults.set(preferences::kScheduleTime, m_time);
    if (stored)
        stored = defaults.set(preferences::kScheduleType, m_scheduletype);
    if (stored)
        stored = defaults.set(preferences::kScheduleRepeat, m_scheduletype);
    if (stored)
        stored = defaults.set(preferences::kScheduleOn, "Yes");
    return stored;
}

void SchedulerVC::tell(std::string informativeText)
{
    Q_EMIT stateChanged();
    m_delegate.createAlertForInformativeText(std::move(informativeText), "Alert",
                                             AppDelegate::RunModal::Yes);
}

void SchedulerVC::removeSchudlerData(bool checked)
{
    m_form.isScheduleOn = checked;
    if (checked)
        return saveSchudlerData();
    m_timerSchedule.reset();
    logFailure(m_services.log, m_services.defaults.set(preferences::kScheduleOn, "No"));
    getDataFromDefaultsorSetCurrentTime();
}

bool SchedulerVC::isSchduleDateAvailble()
{
    m_SchedulerDate.reset();
    const Clock::Interval step = scheduleStep(m_scheduletype);
    Date candidate = m_startDate;
    // Days whose time has passed hold no firing; with them skipped the search is short.
    const Date now = m_services.clock.now();
    if (step.count() > 0 && now > candidate + timeOfDay())
        candidate += (now - candidate - timeOfDay()) / step * step;
    while (candidate < m_endDate) {
        if (getNextSchduleDate(candidate))
            return true;
        if (step.count() == 0)
            return false;
        candidate += step;
    }
    return false;
}

std::optional<Date> SchedulerVC::getNextSchduleDate(Date day)
{
    const Date moment = day + timeOfDay();
    const bool isInside = m_startDate < moment && moment < m_endDate;
    if (!isInside || moment <= m_services.clock.now())
        return std::nullopt;
    m_SchedulerDate = moment;
    return moment;
}

void SchedulerVC::startSchudlerIfAvailble()
{
    m_timerSchedule.reset();
    if (m_services.defaults.get(preferences::kScheduleOn) != "Yes" || !m_SchedulerDate)
        return removeSchudlerData(false);
    m_armedEndDate = m_endDate;
    m_timerSchedule = m_desktop.timers.at(*m_SchedulerDate, scheduleStep(m_scheduletype),
                                          [this] { schudlerScanAction(); });
    Q_EMIT stateChanged();
}

void SchedulerVC::schudlerScanAction()
{
    m_reportType = "Scheduled Scan";
    if (isMomentOurs() && !m_isScanning)
        m_delegate.requestScan();
    if (m_services.clock.now() > m_armedEndDate)
        m_timerSchedule.reset();
    Q_EMIT stateChanged();
}

/// A scan that is started while the window is closed, and still runs as the window opens, has it.
bool SchedulerVC::isMomentOurs()
{
    const Date now = m_services.clock.now();
    const auto plan = storedSchedule(m_services.defaults);
    const auto moment = plan && now <= m_armedEndDate ? plan->latest(now) : std::nullopt;
    return !moment || takeScheduled(m_services.defaults, *moment, now);
}

Date SchedulerVC::getTimeDateAdding(Date date, int hours, int min, int sec)
{
    return localClock(date, hours, min, sec);
}

double SchedulerVC::getTimeAt0Date(Date date)
{
    return std::chrono::duration<double>(date - getTimeDateAdding(date, 0, 0, 1)).count();
}

Clock::Interval SchedulerVC::timeOfDay() const
{
    return Clock::Interval(std::llround(m_time * 1000.0));
}

void SchedulerVC::setStartDatePicker(Date date)
{
    m_form.startDatePicker = date;
    Q_EMIT stateChanged();
}

void SchedulerVC::setEndDatePicker(Date date)
{
    m_form.endDatePicker = date;
    Q_EMIT stateChanged();
}

void SchedulerVC::setTimePicker(Date date)
{
    m_form.timePicker = date;
    Q_EMIT stateChanged();
}

void SchedulerVC::setScheduleTypePopUp(int index)
{
    m_form.scheduleTypePopUp = index;
    Q_EMIT stateChanged();
}

void SchedulerVC::setScheduleOn(bool on)
{
    m_form.isScheduleOn = on;
    // A plan of a single day is hardly what is meant.
    if (on && m_form.endDatePicker <= m_form.startDatePicker)
        m_form.endDatePicker = m_form.startDatePicker + kUsualPlan;
    Q_EMIT stateChanged();
}

bool SchedulerVC::save()
{
    if (!m_form.isScheduleOn) {
        removeSchudlerData(false);
        arrangeClosedScans();
        return true;
    }
    m_form.timePicker = wholeMinute(m_form.timePicker);
    const ScheduleForm filledIn = m_form;
    m_saved = false;
    saveSchudlerData();
    if (!m_saved) { // what was filled in can be mended
        m_form = filledIn;
        Q_EMIT stateChanged();
    } else {
        arrangeClosedScans();
    }
    return m_saved;
}

std::string SchedulerVC::formSentence() const
{
    if (!m_form.isScheduleOn)
        return "No scan is scheduled.";
    const Date start = getTimeDateAdding(m_form.startDatePicker, 0, 0, 1);
    const Date end = getTimeDateAdding(m_form.endDatePicker, 23, 59, 59);
    if (start > end)
        return "The last day is before the first one.";
    const Clock::Interval step = scheduleStep(m_form.scheduleTypePopUp);
    const Clock::Interval time(
        std::llround(getTimeAt0Date(wholeMinute(m_form.timePicker)) * 1000.0));
    const Date now = m_services.clock.now();
    Date next = start + time, last = next;
    if (step.count() > 0 && next <= now)
        next += ((now - next) / step + 1) * step;
    if (next >= end || next <= now)
        return "That time has passed, so nothing would be scanned.";
    if (step.count() > 0)
        last = next + (end - next) / step * step;
    return scheduleSentence(m_form.scheduleTypePopUp, next, last);
}

std::optional<Date> SchedulerVC::nextFiring() const
{
    return m_timerSchedule ? m_timerSchedule->nextFireDate() : std::nullopt;
}

std::string SchedulerVC::nextFiringText() const
{
    const auto next = nextFiring();
    return next ? "next: " + localMomentText(*next) : std::string();
}

} // namespace pryvane
