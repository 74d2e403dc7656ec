#include "hosts/linux/TimerUnits.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <sys/stat.h>

namespace pryvane::test {
namespace {

TEST(TimerUnits, AreReadAsTheyAreMeantAndLeaveThoseOfOthersAlone)
{
    const TemporaryFolder folder;
    const std::string program = folder.hostPath("odd %n $HOME \xc3\xa9;#/cli"),
                      units = folder.hostPath("units");
    folder.file("odd %n $HOME \xc3\xa9;#/cli", "#!/bin/sh\n");
    chmod(program.c_str(), 0755);
    const std::pair<const char*, const char*> words[] = {
        {"/a b", "\"/a b\""},
        {"/100%n", "\"/100%%n\""},
        {"/$HOME", "\"/$HOME\""}, // not put in, as the lines begin with ":"
        {"/\"'\\", "\"/\\\"'\\\\\""},
        {"/line\nExecStart=/bin/x", ""},
        {"/\xff", ""},
    };
    for (const auto& [text, word] : words)
        EXPECT_EQ(unitWord(text).ok() ? *unitWord(text) : "", word);

    std::tm evening{};
    strptime("2026-11-09 20:44:17", "%Y-%m-%d %H:%M:%S", &evening);
    const Date first(std::chrono::seconds(std::mktime(&evening)));
    const std::chrono::hours week(7 * 24);
    const std::chrono::milliseconds part(350);
    EXPECT_EQ(calendarLines({first - part, first + 3 * week, first + 4 * week}),
              "OnCalendar=2026-11-09,30 20:44:17\nOnCalendar=2026-12-07 20:44:17\n");

    const TimerUnits files({units, program, "/data %h\"'\\"});
    const auto wanted = files.wanted({first}).value();
    ASSERT_TRUE(files.put(wanted).ok());
    EXPECT_EQ(files.found().value(), wanted);
    const std::string timer = units + "/" + TimerUnits::kTimer, said = folder.hostPath("said");
    EXPECT_EQ(std::filesystem::status(timer).permissions(), std::filesystem::perms(0644));
    if (std::system("command -v systemd-analyze >/dev/null") == 0) {
        const std::string verify = " systemd-analyze verify --user " + units + "/* >" + said;
        EXPECT_EQ(std::system(("XDG_RUNTIME_DIR=" + folder.path() + verify + " 2>&1").c_str()), 0);
        EXPECT_EQ(contentOf(said), "");
    }
    EXPECT_FALSE(TimerUnits({units, "/bin/\"", "/data"}).wanted({first}).ok());
    ASSERT_TRUE(files.put({}).ok());
    EXPECT_EQ(contentOf(timer), "");
    for (const std::string& theirs :
         {std::string("[Timer]\n"), wanted.timer + "Persistent=true\n"}) {
        folder.file(std::string("units/") + TimerUnits::kTimer, theirs);
        EXPECT_FALSE(files.put(wanted).ok());
        EXPECT_FALSE(files.put({}).ok());
        EXPECT_NE(files.obstacle().find("somebody else"), std::string::npos);
        EXPECT_EQ(contentOf(timer), theirs);
    }
}

} // namespace
} // namespace pryvane::test
