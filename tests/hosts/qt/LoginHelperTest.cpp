#include "hosts/linux/LoginHelper.h"

#include "hosts/qt/EventLoop.h"
#include "hosts/qt/OwnConnection.h"
#include "hosts/qt/bus/BusDistributedNotifications.h"
#include "platform/DesktopPrograms.h"
#include "support/Fakes.h"
#include "support/PrivateBus.h"
#include "support/UnixSocket.h"

#include <QProcess>
#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <sys/stat.h>

namespace pryvane::test {
namespace {

using std::chrono::milliseconds;

/// The helper with a program that leaves its process number in the folder and then stays.
struct LoginHelperTest : testing::Test {
    LoginHelperTest()
    {
        folder.file("program", "#!/bin/sh\necho $$ > \"$1/pid.new\"\nmv \"$1/pid.new\" \"$1/pid\"\n"
                               "exec sleep 60\n");
        chmod(folder.hostPath("program").c_str(), 0700);
        chmod(folder.path().c_str(), 0700);
        helper.setProcessChannelMode(QProcess::MergedChannels);
    }

    ~LoginHelperTest() override
    {
        if (programRuns())
            kill(programPid(), SIGKILL);
        helper.kill();
        helper.waitForFinished();
    }

    void start(const QStringList& options, const std::string& busAddress)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_RUNTIME_DIR", QString::fromStdString(folder.path()));
        environment.insert("DBUS_SESSION_BUS_ADDRESS", QString::fromStdString(busAddress));
        helper.setProcessEnvironment(environment);
        const QString own = QString::fromStdString(folder.path());
        helper.start(PRYVANE_LOGIN_HELPER, options + QStringList{own + "/program", own});
    }

    [[nodiscard]] pid_t programPid() const
    {
        pid_t pid = 0;
        std::ifstream(folder.hostPath("pid")) >> pid;
        return pid;
    }
    [[nodiscard]] bool programRuns() const
    {
        return programPid() > 0 && kill(programPid(), 0) == 0;
    }
    [[nodiscard]] bool helperEnds(milliseconds limit = milliseconds(60'000))
    {
        return runUntil([&] { return helper.state() == QProcess::NotRunning; }, limit);
    }

    TemporaryFolder folder;
    QProcess helper;
};

TEST_F(LoginHelperTest, startsTheProgramAndQuitsWhenItIsTold)
{
    const auto bus = PrivateBus::start();
    if (!bus)
        GTEST_SKIP() << "dbus-daemon is not installed or does not start";
    start({}, bus->address());
    ASSERT_TRUE(runUntil([&] { return programRuns(); }));
    EXPECT_TRUE(loginHelperLockIsHeld(folder.path()));
    QProcess second;
    second.setProcessEnvironment(helper.processEnvironment());
    second.start(PRYVANE_LOGIN_HELPER, {"/bin/false"});
    ASSERT_TRUE(second.waitForFinished());
    EXPECT_TRUE(second.readAllStandardError().contains("another one"));

    RecordingLog log;
    BusDistributedNotifications sender(connectionToBus(), log);
    sender.post("SomethingElse", "com.torvell.Pryvane");
    EXPECT_FALSE(helperEnds(milliseconds(200)));
    sender.post(kTerminateHelper, "com.torvell.Pryvane");
    EXPECT_TRUE(helperEnds());
    EXPECT_EQ(helper.exitCode(), 0);
    EXPECT_FALSE(loginHelperLockIsHeld(folder.path()));
    EXPECT_TRUE(programRuns()) << "the program goes on without it";
}

TEST_F(LoginHelperTest, quitsWithItsProgramOrAfterAWhile)
{
    const auto bus = PrivateBus::start();
    if (!bus)
        GTEST_SKIP() << "dbus-daemon is not installed or does not start";
    start({}, bus->address());
    ASSERT_TRUE(runUntil([&] { return programRuns(); }));
    kill(programPid(), SIGKILL);
    EXPECT_TRUE(helperEnds());

    start({"--limit", "3"}, bus->address());
    EXPECT_FALSE(helperEnds(milliseconds(500)));
    EXPECT_TRUE(helperEnds());
    EXPECT_TRUE(programRuns());
}

TEST_F(LoginHelperTest, needsNoBus)
{
    start({}, "");
    ASSERT_TRUE(helperEnds());
    EXPECT_EQ(helper.exitCode(), 0);
    EXPECT_TRUE(helper.readAll().contains("has no bus"));
    EXPECT_TRUE(runUntil([&] { return programRuns(); }));
    kill(programPid(), SIGKILL);
    folder.remove("pid");

    // One that listens and says nothing.
    const UniqueFd silent = listeningAt(folder.hostPath("silent"));
    start({}, "unix:path=" + folder.hostPath("silent"));
    EXPECT_TRUE(helperEnds());
    EXPECT_TRUE(helper.readAll().contains("does not answer"));
    EXPECT_TRUE(runUntil([&] { return programRuns(); }));

    const auto endsWith = [this](const char* argument) {
        helper.start(PRYVANE_LOGIN_HELPER, {argument});
        EXPECT_TRUE(helperEnds());
        return helper.exitCode();
    };
    EXPECT_EQ(endsWith("/nowhere/pryvane"), 1);
    EXPECT_TRUE(helper.readAll().contains("/nowhere/pryvane cannot be started"));
    for (const char* bad : {"--limit", "--limit=1", "--unknown"})
        EXPECT_EQ(endsWith(bad), 2) << bad;
}

} // namespace
} // namespace pryvane::test
