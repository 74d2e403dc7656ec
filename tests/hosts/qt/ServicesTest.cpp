#include "hosts/linux/XdgLoginItem.h"
#include "hosts/posix/FolderGrants.h"
#include "hosts/posix/SystemClock.h"
#include "hosts/qt/EventLoop.h"
#include "hosts/qt/QtMainLoop.h"
#include "support/Fakes.h"
#include "support/Volumes.h"

#include <QEventLoop>
#include <QTimer>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <thread>

namespace pryvane::test {
namespace {

using std::chrono::milliseconds;
namespace fs = std::filesystem;

TEST(FolderGrantsTest, aGrantIsForOneFolderAsItStood)
{
    const TemporaryFolder volume;
    volume.folder("Users/alice/Documents");
    volume.folder("Users/bo\xff");
    const auto disk = VolumeFileSystem::open(volume.path()).value();
    FolderGrants grants(*disk);
    EXPECT_FALSE(grants.writable(at("/Users/alice")));
    const Bytes home = grants.make(at("/Users/alice/")).value();
    const Bytes bytes = grants.make(at("/Users/bo\xff")).value();
    EXPECT_TRUE(grants.writable(at("/Users/alice/Documents")));
    EXPECT_FALSE(grants.make(at("/Users/nobody")).ok());

    const auto reopens = [&](const Bytes& token) {
        FolderGrants later(*disk);
        const bool reopened = later.reopen(token);
        EXPECT_EQ(later.writable(at("/Users")), reopened);
        return reopened;
    };
    EXPECT_TRUE(reopens(home));
    EXPECT_TRUE(reopens(bytes));
    for (const std::string& damaged :
         {std::string(), home.data.substr(0, 20), "x" + home.data, home.data + "/Documents",
          home.data + std::string("\0", 1), std::string(4096, '/')})
        EXPECT_FALSE(reopens(Bytes{damaged})) << damaged;

    const auto host = [&](const char* path) { return volume.hostPath(path); };
    fs::rename(host("Users/alice"), host("Users/moved"));
    EXPECT_FALSE(reopens(home));
    volume.folder("Users/alice"); // may well get the inode of something gone before
    EXPECT_FALSE(reopens(home));
    fs::remove(host("Users/alice"));
    volume.link("Users/alice", "/Users/moved");
    EXPECT_TRUE(reopens(home)) << "the same folder, by a link inside the volume";
    fs::remove_all(host("Users/moved"));
    fs::remove(host("Users/alice"));
    volume.folder("Users/alice");
    EXPECT_FALSE(reopens(home)) << "a fresh folder with, it may be, the old inode";
}

TEST(XdgLoginItemTest, writesAndRemovesAValidEntry)
{
    const TemporaryFolder folder;
    folder.file("he lp\"er$`\\100%", "#!/bin/sh\n");
    const std::string helper = folder.hostPath("he lp\"er$`\\100%");
    chmod(helper.c_str(), 0755);
    const std::string places = folder.hostPath("config/autostart");
    XdgLoginItem item({places, helper, "/opt/Pry vane/pryvane", folder.path()});
    EXPECT_TRUE(item.setEnabled(false).ok());
    EXPECT_FALSE(folder.contains("config"));
    ASSERT_TRUE(item.setEnabled(true).ok());
    EXPECT_NE(contentOf(item.entryPath())
                  .find("Exec=\"" + folder.path() +
                        R"(/he lp\\"er\\$\\`\\\\100%%" )"
                        R"("/opt/Pry vane/pryvane")"),
              std::string::npos)
        << contentOf(item.entryPath());
    if (std::system("command -v desktop-file-validate >/dev/null") == 0) {
        EXPECT_EQ(std::system(("desktop-file-validate '" + item.entryPath() + "'").c_str()), 0);
    }

    const auto written = fs::last_write_time(item.entryPath());
    EXPECT_TRUE(item.setEnabled(true).ok());
    EXPECT_EQ(fs::last_write_time(item.entryPath()), written) << "nothing to change, none written";
    EXPECT_TRUE(item.setEnabled(false).ok());
    EXPECT_FALSE(fs::exists(item.entryPath()));

    folder.file("config/blocked");
    EXPECT_FALSE(XdgLoginItem({folder.hostPath("config/blocked"), helper, "/x", folder.path()})
                     .setEnabled(true)
                     .ok());
    fs::create_directories(item.entryPath());
    EXPECT_FALSE(item.setEnabled(true).ok());
    EXPECT_FALSE(item.setEnabled(false).ok());
    EXPECT_FALSE(
        XdgLoginItem({places, "/nowhere/helper", "/x", folder.path()}).setEnabled(true).ok());
    for (const char* unfit : {"/opt/\xff", "/opt/a\nb", "/opt/a=b"})
        EXPECT_FALSE(execValue({unfit}).ok()) << unfit;
}

TEST(QtMainQueueTest, runsInOrderOnTheMainThreadAndNeverEarly)
{
    std::string order;
    milliseconds waited{0};
    {
        QtMainQueue queue;
        EXPECT_TRUE(queue.isMainThread());
        const auto start = std::chrono::steady_clock::now();
        std::thread([&] {
            EXPECT_FALSE(queue.isMainThread());
            queue.postAfter(milliseconds(60), [&] {
                EXPECT_TRUE(queue.isMainThread());
                order += 'd';
                waited = std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() -
                                                                  start);
            });
            for (const char c : std::string("abc"))
                queue.post([&order, c] { order += c; });
        }).join();
        EXPECT_EQ(order, "");
        ASSERT_TRUE(runUntil([&] { return order.size() == 4; }));
        queue.postAfter(milliseconds(20), [&] { order += 'x'; });
        queue.post([&] { order += 'e'; });
        ASSERT_TRUE(runUntil([&] { return order.size() == 5; }));
    }
    runFor(milliseconds(60));
    EXPECT_EQ(order, "abcde") << "what waits ends with the queue";
    EXPECT_GE(waited, milliseconds(60));
}

TEST(QtTimersTest, fireBySteadyTimeAndStop)
{
    SystemClock clock;
    QtTimers timers(clock);
    std::vector<std::chrono::nanoseconds> fired;
    std::unique_ptr<Timers::Timer> timer;
    const auto start = clock.steadyNow();
    timer = timers.every(milliseconds(40), [&] {
        fired.push_back(clock.steadyNow() - start);
        if (fired.size() == 3)
            timer.reset();
    });
    const auto left = *timer->nextFireDate() - clock.now();
    EXPECT_LE(left, milliseconds(41));
    EXPECT_GE(left + (clock.steadyNow() - start), milliseconds(39));
    ASSERT_TRUE(runUntil([&] { return fired.size() == 3; }));
    for (std::size_t i = 0; i < fired.size(); ++i)
        EXPECT_GE(fired[i], milliseconds(40) * (i + 1)) << "never early";
    runFor(milliseconds(100));
    EXPECT_EQ(fired.size(), 3U);
}

TEST(QtTimersTest, noticeThatTheWallClockWasSet)
{
    FakeClock clock;
    QtTimers timers(clock, milliseconds(20));
    int fired = 0;
    const auto day = std::chrono::hours(24);
    const auto timer = timers.at(clock.now() + std::chrono::hours(1), day, [&] { ++fired; });
    runFor(milliseconds(60));
    EXPECT_EQ(fired, 0);
    clock.setNow(clock.now() + 3 * day + std::chrono::hours(2)); // slept through three of them
    ASSERT_TRUE(runUntil([&] { return fired > 0; }));
    runFor(milliseconds(60));
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(*timer->nextFireDate() - clock.now(), std::chrono::hours(23));
    const auto once = timers.at(clock.now(), milliseconds(0), [&] { ++fired; });
    ASSERT_TRUE(runUntil([&] { return fired == 2; }));
    EXPECT_FALSE(once->nextFireDate());
}

TEST(QtTimersTest, waitWhileAPanelHoldsTheLoop)
{
    SystemClock clock;
    QtTimers timers(clock);
    int fired = 0;
    int firedBehindPanel = -1;
    const auto timer = timers.every(milliseconds(30), [&] { ++fired; });
    QEventLoop mainLoop;
    QTimer::singleShot(0, [&] {
        QEventLoop panel;
        QTimer::singleShot(200, &panel, &QEventLoop::quit);
        panel.exec();
        firedBehindPanel = fired;
        QTimer::singleShot(300, &mainLoop, &QEventLoop::quit);
    });
    mainLoop.exec();
    EXPECT_EQ(firedBehindPanel, 0);
    EXPECT_GT(fired, 0);
}

} // namespace
} // namespace pryvane::test
