#include "app/AppFixture.h"
#include "app/SchedulerVC.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <ctime>
#include <limits>

namespace pryvane {
namespace {

using testing::IsEmpty;

/// "2026-03-28 10:00" or with seconds, in the zone of the test.
Date local(const std::string& text)
{
    std::tm parts{};
    const char* end = strptime(text.c_str(), "%Y-%m-%d %H:%M:%S", &parts);
    if (!end)
        end = strptime((text + ":00").c_str(), "%Y-%m-%d %H:%M:%S", &parts);
    EXPECT_TRUE(end) << text;
    parts.tm_isdst = -1;
    return Date(std::chrono::seconds(std::mktime(&parts)));
}

/// In Berlin, where summer time begins on 2026-03-29 and ends on 2026-10-25.
class SchedulerTest : public test::AppFixture {
protected:
    SchedulerTest()
    {
        const char* zone = std::getenv("TZ");
        m_zone = zone ? std::optional<std::string>(zone) : std::nullopt;
        setenv("TZ", "Europe/Berlin", 1);
        tzset();
    }
    ~SchedulerTest() override
    {
        if (m_zone)
            setenv("TZ", m_zone->c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }

    void load()
    {
        scheduler = std::make_unique<SchedulerVC>(services(), desktop.services(), delegate);
        scheduler->viewDidLoad();
    }

    /// Fills the form at `now`, ticks the box, and gives what the user was told.
    std::string save(const std::string& now, const std::string& start, const std::string& end,
                     const std::string& time, int type = 0)
    {
        clock.setNow(local(now));
        load();
        scheduler->setStartDatePicker(local(start + " 12:34"));
        scheduler->setEndDatePicker(local(end + " 12:34"));
        scheduler->setTimePicker(local(now.substr(0, 11) + time));
        scheduler->setScheduleTypePopUp(type);
        alerts.answer(kAlertFirstButton);
        scheduler->removeSchudlerData(true);
        EXPECT_EQ(alerts.asked().back().messageText, "Alert");
        return alerts.asked().back().informativeText;
    }
    /// Moves the wall clock and tells what fired.
    std::vector<std::string> at(const std::string& now)
    {
        clock.setNow(local(now));
        takeNotes();
        desktop.timers.run();
        return takeNotes();
    }
    [[nodiscard]] bool isOn() { return defaults.get(preferences::kScheduleOn) == "Yes"; }

    std::unique_ptr<SchedulerVC> scheduler;

private:
    std::optional<std::string> m_zone;
};

constexpr auto kExpired = "Scheduler time already expired.";
constexpr auto kBackwards = "Start Date should not be greater then End Date.";

TEST_F(SchedulerTest, FindsTheNextFiringOrSaysWhyThereIsNone)
{
    const struct {
        const char *name, *now, *start, *end;
        int type;
        std::string outcome; ///< the next firing, or what is told where there is none
        const char* time = "09:00";
    } rows[] = {
        {"daily, ahead", "2026-06-10 08:00", "2026-06-10", "2026-06-20", 0, "2026-06-10 09:00"},
        {"daily, past", "2026-06-10 10:00", "2026-06-10", "2026-06-20", 0, "2026-06-11 09:00"},
        {"daily, this very second", "2026-06-10 09:00", "2026-06-10", "2026-06-20", 0,
         "2026-06-11 09:00"},
        {"weekly", "2026-06-10 10:00", "2026-06-08", "2026-06-20", 1, "2026-06-15 09:00"},
        {"30 days, not a month", "2026-06-10 10:00", "2026-06-10", "2026-08-20", 2,
         "2026-07-10 09:00"},
        {"365 days over a leap day", "2027-06-10 10:00", "2027-06-10", "2028-12-31", 3,
         "2028-06-09 09:00"},
        {"starts long ago", "2026-06-10 10:00", "2001-06-10", "2026-06-20", 0, "2026-06-11 09:00"},
        {"starts later", "2026-06-10 10:00", "2026-07-01", "2026-07-02", 1, "2026-07-01 09:00"},
        {"same day, past", "2026-06-10 10:00", "2026-06-10", "2026-06-10", 0, kExpired},
        {"none left", "2026-06-10 10:00", "2026-06-09", "2026-06-15", 1, kExpired},
        {"not at the start", "2026-06-09 10:00", "2026-06-10", "2026-06-10", 0, kExpired,
         "00:00:01"},
        {"no such kind", "2026-06-10 10:00", "2026-06-10", "2026-06-20", 4, kExpired},
        {"backwards", "2026-06-10 10:00", "2026-06-12", "2026-06-11", 0, kBackwards},
        {"today is 23 hours long", "2026-03-29 01:00", "2026-03-29", "2026-04-20", 0,
         "2026-03-29 09:00"},
        {"steps are seconds: an hour later in summer", "2026-03-28 10:00", "2026-03-28",
         "2026-04-20", 0, "2026-03-29 10:00"},
        {"and an hour earlier in winter", "2026-10-24 10:00", "2026-10-24", "2026-11-20", 0,
         "2026-10-25 08:00"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ASSERT_TRUE(defaults.removeObject("ScheduleOn").ok());
        const std::string told = save(row.now, row.start, row.end, row.time, row.type);
        const bool fires = told == "Spyware scan scheduled successfully";
        const auto next = fires ? std::optional(local(row.outcome)) : std::nullopt;
        EXPECT_TRUE(fires || told == row.outcome) << told;
        EXPECT_EQ(scheduler->nextFiring(), next) << scheduler->nextFiringText();
        EXPECT_EQ(isOn(), fires);
        EXPECT_EQ(desktop.timers.running(), fires ? 1U : 0U);
    }
}

TEST_F(SchedulerTest, FiresUntilTheFiringThatPassesTheEnd)
{
    save("2026-06-10 08:00", "2026-06-10", "2026-06-11", "09:00");
    EXPECT_EQ(scheduler->nextFiringText(), "next: Wed 10 Jun, 09:00");
    EXPECT_THAT(at("2026-06-10 08:59:59"), IsEmpty());
    EXPECT_EQ(at("2026-06-10 09:00"), kRequest);
    EXPECT_EQ(scheduler->reportType(), "Scheduled Scan");
    EXPECT_THAT(at("2026-06-10 09:01"), IsEmpty());
    // A form that is refused does not end what runs.
    scheduler->setEndDatePicker(local("2026-06-01 12:00"));
    alerts.answer(kAlertFirstButton);
    scheduler->saveSchudlerData();
    notifications.post(NotificationName::ScanStatusChange, true);
    EXPECT_THAT(at("2026-06-11 09:00"), IsEmpty()) << "a scan is running";
    notifications.post(NotificationName::ScanStatusChange, false);
    EXPECT_EQ(scheduler->nextFiring(), local("2026-06-12 09:00"));
    EXPECT_EQ(at("2026-06-12 09:00"), kRequest) << "past the end, once";
    EXPECT_EQ(desktop.timers.running(), 0U);
    EXPECT_THAT(at("2026-06-13 09:00"), IsEmpty());
    EXPECT_TRUE(isOn());
    load();
    EXPECT_FALSE(isOn()) << "an expired schedule is switched off at load";
    EXPECT_EQ(alerts.asked().size(), 2U) << "silently";
    EXPECT_THAT(takeWindowCalls(), IsEmpty());
}

TEST_F(SchedulerTest, FollowsAWallClockThatIsSet)
{
    save("2026-06-10 08:00", "2026-06-10", "2026-12-31", "09:00");
    EXPECT_EQ(at("2026-06-15 12:00"), kRequest) << "missed firings are made up by one";
    EXPECT_EQ(scheduler->nextFiring(), local("2026-06-16 09:00"));
    EXPECT_THAT(at("2026-06-12 08:00"), IsEmpty());
    EXPECT_EQ(scheduler->nextFiring(), local("2026-06-12 09:00"));
    EXPECT_EQ(at("2026-06-12 09:00"), kRequest);
    EXPECT_THAT(at("2026-06-12 08:30"), IsEmpty());
    EXPECT_THAT(at("2026-06-12 09:00"), IsEmpty()) << "the same moment does not fire twice";
    EXPECT_THAT(at("2020-01-01 12:00"), IsEmpty()) << "not before the schedule begins";
    EXPECT_EQ(scheduler->nextFiring(), local("2026-06-10 09:00"));
}

TEST_F(SchedulerTest, AStoredScheduleIsArmedAgainAsThePopUpWas)
{
    save("2026-06-10 10:00", "2026-06-10", "2026-08-20", "09:00", 1);
    EXPECT_EQ(defaults.objectForKey("ScheduleTime"), PreferenceValue(32399.0));
    EXPECT_EQ(defaults.objectForKey("ScheduleType"), PreferenceValue(std::int64_t{1}));
    EXPECT_EQ(defaults.get(preferences::kScheduleStartDate), local("2026-06-10 00:00:01"));
    EXPECT_EQ(defaults.get(preferences::kScheduleEndDate), local("2026-08-20 23:59:59"));
    load();
    EXPECT_TRUE(scheduler->form().isScheduleOn);
    EXPECT_EQ(scheduler->form().timePicker, local("2026-06-10 09:00"));
    EXPECT_EQ(scheduler->nextFiring(), local("2026-06-17 09:00")) << "every week, as it was";
    ASSERT_TRUE(defaults.removeObject("ScheduleRepeat").ok()); // a store of an earlier version
    load();
    EXPECT_EQ(scheduler->nextFiring(), local("2026-06-11 09:00")) << "the pop-up says daily";

    scheduler->removeSchudlerData(false);
    EXPECT_FALSE(isOn());
    EXPECT_FALSE(scheduler->nextFiring());
    EXPECT_EQ(scheduler->nextFiringText(), "");
    EXPECT_EQ(scheduler->form().timePicker, local("2026-06-10 11:00"));
    clock.setNow(local("2026-06-10 23:10"));
    scheduler->schudlerAction();
    EXPECT_EQ(scheduler->form().timePicker, local("2026-06-10 23:59:59"));
    EXPECT_EQ(scheduler->form().minimumStart, clock.now());
}

TEST_F(SchedulerTest, AFormTakesEffectWhenItIsSavedAndSaysBeforeWhatItWillDo)
{
    clock.setNow(local("2026-11-22 08:00")); // a Sunday
    load();
    const auto said = [&] { return scheduler->formSentence(); };
    EXPECT_EQ(said(), "No scan is scheduled.");
    scheduler->setScheduleOn(true);
    scheduler->setTimePicker(local("2026-11-22 20:44"));
    scheduler->setScheduleTypePopUp(1);
    EXPECT_EQ(said(), "Every Sunday at 20:44, next on Sunday, 22 November, the last time on "
                      "20 December.");
    EXPECT_FALSE(isOn()) << "nothing was saved";
    const auto save = [&] {
        alerts.answer(kAlertFirstButton);
        return scheduler->save();
    };
    EXPECT_TRUE(save());
    EXPECT_EQ(scheduler->nextFiring(), local("2026-11-22 20:44"));

    scheduler->setTimePicker(local("2026-11-22 21:44"));
    EXPECT_EQ(scheduler->nextFiring(), local("2026-11-22 20:44"));
    EXPECT_TRUE(save());
    EXPECT_EQ(scheduler->nextFiring(), local("2026-11-22 21:44"));

    scheduler->setEndDatePicker(local("2026-11-22 00:00"));
    scheduler->setScheduleTypePopUp(0);
    EXPECT_EQ(said(), "Once, on Sunday, 22 November, at 21:44.");
    scheduler->setTimePicker(local("2026-11-22 07:00"));
    EXPECT_EQ(said(), "That time has passed, so nothing would be scanned.");
    EXPECT_FALSE(save());
    EXPECT_TRUE(scheduler->form().isScheduleOn) << "it can be mended";
    EXPECT_EQ(scheduler->nextFiring(), local("2026-11-22 21:44")) << "as it was";
    scheduler->schudlerAction(); // cancelled
    EXPECT_EQ(scheduler->form().timePicker, local("2026-11-22 21:44"));
    EXPECT_EQ(scheduler->form().scheduleTypePopUp, 1);

    scheduler->setScheduleOn(false);
    EXPECT_TRUE(isOn());
    EXPECT_TRUE(scheduler->save());
    EXPECT_FALSE(isOn());
}

TEST_F(SchedulerTest, TheSystemStartsTheSameScansWhileTheProgramIsClosed)
{
    using Standing = ClosedScans::Standing;
    const Standing off{Standing::Kind::Off}, on{Standing::Kind::On}, none{};
    const ScheduledDisk mac{"/mnt/mac \xff", "alice", true};
    clock.setNow(local("2026-06-10 08:00"));
    const struct {
        Standing standing;
        std::optional<bool> ticked; ///< none: left as it was
        bool isOn;
        Texts calls;
        Result<Done> outcome = Done{};
    } rows[] = {
        {off, {}, true, {"cancel"}},
        {off, true, true, {"arrange 31"}},
        {on, {}, true, {"arrange 31", "arrange 31"}}, // mended at the start, then saved
        {on, false, true, {"arrange 31", "cancel"}},
        {on, {}, false, {"arrange 31", "cancel"}},
        {none, {}, true, {}},
        {off, true, true, {"arrange 31"}, Error{"refused"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        desktop.closedScans.standing = row.standing;
        desktop.closedScans.calls.clear();
        desktop.closedScans.outcome = row.outcome;
        scheduler = std::make_unique<SchedulerVC>(services(), desktop.services(), delegate, mac);
        scheduler->viewDidLoad();
        scheduler->setScheduleOn(row.isOn);
        const ClosedScansRow shown = scheduler->closedScansRow();
        EXPECT_EQ(shown.isEnabled, row.isOn && row.standing.kind != Standing::Kind::Unavailable);
        EXPECT_EQ(shown.line.find("at these times") != shown.line.npos, shown.isEnabled);
        if (row.ticked)
            scheduler->setAlsoWhenClosed(*row.ticked);
        alerts.answer(kAlertFirstButton);
        alerts.answer(kAlertFirstButton);
        EXPECT_TRUE(scheduler->save());
        EXPECT_EQ(desktop.closedScans.calls, row.calls);
        EXPECT_EQ(storedScheduledDisk(defaults).value_or(mac), mac);
    }
    EXPECT_THAT(alerts.asked().back().informativeText, testing::EndsWith("changed: refused"));

    clock.setNow(local("2026-06-10 09:00")); // the scan is done without the window
    EXPECT_TRUE(takeScheduled(defaults, clock.now(), clock.now()));
    EXPECT_THAT(at("2026-06-10 09:00"), IsEmpty());
    EXPECT_EQ(at("2026-06-11 09:00"), kRequest);
    EXPECT_FALSE(takeScheduled(defaults, clock.now(), clock.now())) << "by the window";
    EXPECT_TRUE(takeScheduled(defaults, local("2031-01-01 09:00"), local("2031-01-01 09:00")));
    EXPECT_EQ(at("2026-06-12 09:00"), kRequest) << "that clock was wrong";
}

TEST_F(SchedulerTest, DamagedValuesNeitherHangNorOverflow)
{
    using Limits = std::numeric_limits<double>;
    const std::pair<Date, Date> dates[] = {
        {Date::min(), Date::max()}, {Date::max(), Date::min()}, {Date::min(), Date::min()}};
    for (const auto& [start, end] : dates) {
        for (const double time : {-1e300, Limits::infinity(), Limits::quiet_NaN()}) {
            ASSERT_TRUE(defaults.set(preferences::kScheduleOn, "Yes").ok());
            ASSERT_TRUE(defaults.set(preferences::kScheduleStartDate, start).ok());
            ASSERT_TRUE(defaults.set(preferences::kScheduleEndDate, end).ok());
            ASSERT_TRUE(defaults.set(preferences::kScheduleTime, time).ok());
            load();
            EXPECT_EQ(isOn(), end == Date::max() && start == Date::min());
        }
    }
}

TEST_F(SchedulerTest, AClockTimeThatSummerTimeLeavesOutComesLater)
{
    EXPECT_EQ(localClock(local("2026-03-29 12:00"), 2, 30, 0), local("2026-03-29 03:30"));
    EXPECT_EQ(localHour(local("2026-10-25 23:59:59")), 23);
    EXPECT_EQ(SchedulerVC::getTimeAt0Date(local("2026-06-10 00:00")), -1.0);
}

} // namespace
} // namespace pryvane
