#include "hosts/linux/TimerUnits.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <sys/stat.h>

namespace pryvane::test {
namespace {

Date utc(const char* text)
{
    std::tm parts{};
    EXPECT_TRUE(strptime(text, "%Y-%m-%d %H:%M:%S", &parts)) << text;
    return Date(std::chrono::seconds(timegm(&parts)));
}

/// With the clock of Berlin, where winter time begins on 2026-10-25.
struct TimerUnitsTest : testing::Test {
    TimerUnitsTest()
    {
        setenv("TZ", "Europe/Berlin", 1);
        tzset();
        folder.file("odd %n $HOME \"'\\ é/pryvane-cli", "#!/bin/sh\n");
        chmod(program.c_str(), 0755);
    }
    ~TimerUnitsTest() override
    {
        unsetenv("TZ");
        tzset();
    }
    [[nodiscard]] std::string held(const char* name) const
    {
        return contentOf(folder.hostPath("units") + "/" + name);
    }

    TemporaryFolder folder;
    const std::string program = folder.hostPath("odd %n $HOME \"'\\ é/pryvane-cli");
    const TimerUnits units{{folder.hostPath("units"), program, "/data %h"}};
    const std::vector<Date> moments = {utc("2026-10-23 18:44:16") + std::chrono::milliseconds(350),
                                       utc("2026-10-30 18:44:17"), utc("2026-11-06 18:44:17")};
};

TEST_F(TimerUnitsTest, WordsAndTimesReadAsTheyAreMeant)
{
    const struct {
        const char *text, *word;
    } words[] = {
        {"/usr/bin/pryvane-cli", "\"/usr/bin/pryvane-cli\""},
        {"/a b", "\"/a b\""},
        {"/100%n", "\"/100%%n\""},
        {"/$HOME", "\"/$HOME\""}, // not put in, as the lines begin with ":"
        {"/\"'\\", "\"/\\\"'\\\\\""},
        {"/\xc3\xa9;#", "\"/\xc3\xa9;#\""},
        {"/line\nExecStart=/bin/x", nullptr},
        {"/\xff", nullptr},
    };
    for (const auto& row : words) {
        const auto word = unitWord(row.text);
        EXPECT_EQ(word.ok(), row.word != nullptr) << row.text;
        if (word && row.word)
            EXPECT_EQ(*word, row.word);
    }
    // The steps are of seconds, so that an hour is lost with summer time.
    EXPECT_EQ(calendarLines(moments), "OnCalendar=2026-10-23 20:44:17\n"
                                      "OnCalendar=2026-10-30 19:44:17\n"
                                      "OnCalendar=2026-11-06 19:44:17\n");
    EXPECT_EQ(calendarLines({utc("2026-11-09 19:44:00"), utc("2026-11-30 19:44:00"),
                             utc("2026-12-07 19:44:00")}),
              "OnCalendar=2026-11-09,30 20:44:00\nOnCalendar=2026-12-07 20:44:00\n");
}

TEST_F(TimerUnitsTest, OnlyFilesOfItsOwnAreChanged)
{
    const auto wanted = units.wanted(moments).value();
    EXPECT_EQ(units.found().value(), TimerUnits::Texts{});
    ASSERT_TRUE(units.put(wanted).ok());
    EXPECT_EQ(units.found().value(), wanted);
    struct stat data {};
    ASSERT_EQ(stat(folder.hostPath(std::string("units/") + TimerUnits::kTimer).c_str(), &data), 0);
    EXPECT_EQ(data.st_mode & 0777, 0644U);
    ASSERT_TRUE(units.put({}).ok());
    EXPECT_EQ(held(TimerUnits::kTimer) + held(TimerUnits::kService), "");

    const std::string timer = std::string("units/") + TimerUnits::kTimer;
    for (const std::string& theirs : {std::string("[Timer]\n"), wanted.timer + "Persistent=true\n"}) {
        folder.file(timer, theirs);
        EXPECT_FALSE(units.put(wanted).ok());
        EXPECT_FALSE(units.put({}).ok());
        EXPECT_NE(units.obstacle().find("somebody else"), std::string::npos);
        EXPECT_EQ(held(TimerUnits::kTimer), theirs);
        folder.remove(timer);
    }
    folder.link(timer, "/dev/null"); // as systemd masks a unit
    EXPECT_FALSE(units.put(wanted).ok());
    EXPECT_EQ(held(TimerUnits::kService), "");
    EXPECT_FALSE(TimerUnits({folder.hostPath("units"), "/none", "/data"}).wanted(moments).ok());
}

TEST_F(TimerUnitsTest, SystemdReadsThem)
{
    if (std::system("systemd-analyze --version >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "systemd-analyze is not installed";
    ASSERT_TRUE(units.put(units.wanted(moments).value()).ok());
    const std::string all = folder.hostPath("units") + "/com.torvell.Pryvane.scan.*";
    const std::string said = folder.hostPath("said");
    EXPECT_EQ(std::system(("systemd-analyze verify --user " + all + " >" + said + " 2>&1").c_str()),
              0);
    EXPECT_EQ(contentOf(said), "");
    EXPECT_EQ(std::system("systemd-analyze calendar --base-time='2026-11-01' "
                          "'2026-11-09,30 20:44:00' | grep -q 'Next elapse: Mon 2026-11-09 20:44:00'"),
              0);
}

} // namespace
} // namespace pryvane::test
