#include "hosts/qt/EventLoop.h"
#include "hosts/qt/FakeServices.h"
#include "hosts/qt/bus/BusClosedScans.h"
#include "hosts/qt/bus/BusDistributedNotifications.h"
#include "hosts/qt/bus/BusFileViewer.h"
#include "hosts/qt/bus/BusTaskProgress.h"
#include "hosts/qt/bus/BusUserNotifier.h"
#include "support/Fakes.h"
#include "support/PrivateBus.h"
#include "support/Volumes.h"

#include <gtest/gtest.h>

namespace pryvane::test {
namespace {

using std::chrono::milliseconds;

struct BusTest : testing::Test {
    void SetUp() override
    {
        if (!bus)
            GTEST_SKIP() << "dbus-daemon is not installed or does not start";
    }
    std::unique_ptr<PrivateBus> bus = PrivateBus::start();
    RecordingLog log;
};

TEST_F(BusTest, notificationsFollowWhatTheServiceCanShow)
{
    struct Row {
        QStringList capabilities;
        QString shown;
    };
    const Row rows[] = {
        {{"body", "body-markup"}, "Pry\\x1b|&lt;img src=\"x\"&gt; a&amp;b \\n\\xff"},
        {{"body"}, "Pry\\x1b|<img src=\"x\"> a&b \\n\\xff"},
        {{"actions"}, "Pry\\x1b: <img src=\"x\"> a&b \\n\\xff|"},
    };
    for (const Row& row : rows) {
        FakeNotifications service(row.capabilities);
        BusUserNotifier notifier(connectionToBus(), log);
        notifier.deliver("Pry\x1b", "<img src=\"x\"> a&b \n\xff");
        notifier.deliver("second", "");
        ASSERT_TRUE(runUntil([&] { return service.shown.size() == 2; }));
        EXPECT_EQ(service.shown[0].toStdString(), row.shown.toStdString());
        EXPECT_TRUE(service.shown[1].startsWith("second"));
    }
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(BusTest, oneNotificationIsKeptUpToDate)
{
    FakeNotifications service({"body"});
    BusUserNotifier notifier(connectionToBus(), log);
    notifier.update("count", "0"); // before the service has said what it can
    for (int i = 1; i <= 40; ++i) {
        notifier.update("count", std::to_string(i));
        if (i % 10 == 0)
            notifier.deliver("single", std::to_string(i));
    }
    ASSERT_TRUE(runUntil([&] { return service.shown.contains(QStringLiteral("count|40")); }));
    EXPECT_TRUE(runUntil([&] { return service.shown.size() == 5; }))
        << "four by themselves, and one";
    notifier.update("count", "end");
    EXPECT_TRUE(runUntil([&] { return service.shown.contains(QStringLiteral("count|end")); }));
    EXPECT_EQ(service.shown.size(), 5);
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(BusTest, aScanEndsInOneNotificationThatShowsIt)
{
    for (const bool hasActions : {true, false}) {
        FakeNotifications service(hasActions ? QStringList{"body", "body-markup", "actions"}
                                             : QStringList{"body", "body-markup"});
        BusUserNotifier notifier(connectionToBus(), log);
        std::string token;
        notifier.setUp([](const std::string& text) { return QString::fromStdString("de " + text); },
                       [&](const std::string& told) { token = told; });
        int shown = 0;
        notifier.deliver("Pryvane", "first");
        notifier.deliver("Pryvane", "second");
        notifier.update("Pryvane", "4 findings so far");
        ASSERT_TRUE(runUntil([&] { return service.shown.size() == 3; }));
        notifier.conclude("Found", "<b>a</b> \\xff", [&] { ++shown; });
        ASSERT_TRUE(runUntil([&] { return service.closed.size() == 2; }));
        EXPECT_EQ(service.closed, (QList<uint>{1, 2})) << "the last one says it all";
        EXPECT_EQ(service.shown.size(), 3);
        EXPECT_EQ(service.shown.last(), "de Found|de &lt;b&gt;a&lt;/b&gt; \\xff");
        EXPECT_EQ(service.actions.last(),
                  hasActions ? (QStringList{"default", "de Show", "show", "de Show"})
                             : QStringList());
        service.press(2, "other");
        service.press(3, "token");
        service.press(3, "again");
        if (hasActions)
            EXPECT_TRUE(runUntil([&] { return shown > 0; }));
        runFor(milliseconds(50));
        EXPECT_EQ(shown, hasActions ? 1 : 0);
        EXPECT_EQ(token, hasActions ? "token" : "");
        notifier.withdraw();
        EXPECT_TRUE(runUntil([&] { return service.closed.contains(3U); }));
    }
}

TEST_F(BusTest, progressComesAtMostTenTimesASecondAndGoes)
{
    ProgressListener listener;
    runFor(milliseconds(50));
    {
        BusTaskProgress progress(connectionToBus());
        progress.hide();
        for (int i = 0; i < 100; ++i)
            progress.show(i / 100.0);
        EXPECT_TRUE(runUntil([&] { return listener.shares.contains(0.99); }));
        EXPECT_EQ(listener.shares, (QList<double>{0, 0.99}));
        progress.hide();
        progress.show(0.5);
    } // as at the program's end
    EXPECT_TRUE(runUntil([&] { return listener.shares.size() == 5; }));
    EXPECT_EQ(listener.shares, (QList<double>{0, 0.99, -1, 0.5, -1}));
}

TEST_F(BusTest, timersStandWholeOrNotAtAll)
{
    const TemporaryFolder folder;
    const std::string units = folder.hostPath("units"), name = TimerUnits::kTimer;
    const TimerUnits files({units, "/bin/true", folder.path()});
    BusClosedScans scans(connectionToBus(), {units, "/bin/true", folder.path()});
    using Kind = ClosedScans::Standing::Kind;
    const auto stands = [&] {
        std::optional<Kind> kind;
        scans.look([&](const ClosedScans::Standing& standing) { kind = standing.kind; });
        EXPECT_TRUE(runUntil([&] { return kind.has_value(); }));
        return kind.value_or(Kind::Unavailable);
    };
    const auto outcomeOf = [&](const auto& begin) {
        std::optional<Result<Done>> outcome;
        begin([&](const Result<Done>& told) { outcome = told; });
        EXPECT_TRUE(runUntil([&] { return outcome.has_value(); }));
        return outcome && outcome->ok();
    };
    const auto arrange = [&](Date at) {
        return outcomeOf([&](auto told) { scans.arrange({at}, told); });
    };
    const auto cancel = [&] { return outcomeOf([&](auto told) { scans.cancel(told); }); };
    const Date one{std::chrono::hours(24 * 365 * 60)}, two = one + std::chrono::hours(1);

    EXPECT_EQ(stands(), Kind::Unavailable);
    EXPECT_FALSE(arrange(one)) << "no systemd";
    EXPECT_TRUE(cancel());
    EXPECT_EQ(files.found().value(), TimerUnits::Texts{});
    FakeManager manager(units);
    const QString of = " " + QString::fromStdString(name);
    const struct {
        const char* refused;
        std::optional<Date> at; ///< none: switched off
        QStringList calls;
        Kind kind;
        bool isDone = true;
    } rows[] = {
        {"EnableUnitFiles",
         one,
         {"Reload", "EnableUnitFiles" + of, "DisableUnitFiles" + of, "Reload"},
         Kind::Off,
         false},
        {"", one, {"Reload", "EnableUnitFiles" + of, "Reload", "RestartUnit" + of}, Kind::On},
        {"", one, {}, Kind::On}, // it stands so already
        {"RestartUnit",
         two,
         {"Reload", "EnableUnitFiles" + of, "Reload", "RestartUnit" + of, "Reload",
          "RestartUnit" + of},
         Kind::On,
         false},
        {"", two, {"Reload", "EnableUnitFiles" + of, "Reload", "RestartUnit" + of}, Kind::On},
        {"", {}, {"StopUnit" + of, "DisableUnitFiles" + of, "Reload"}, Kind::Off},
    };
    TimerUnits::Texts before;
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        manager.calls.clear();
        manager.refused = row.refused;
        EXPECT_EQ(row.at ? arrange(*row.at) : cancel(), row.isDone);
        manager.refused.clear();
        EXPECT_EQ(manager.calls, row.calls);
        if (row.isDone)
            before = row.at ? files.wanted({*row.at}).value() : TimerUnits::Texts{};
        EXPECT_EQ(files.found().value(), before);
        EXPECT_EQ(stands(), row.kind);
    }
    folder.file("units/" + name, "[Timer]\n");
    EXPECT_EQ(stands(), Kind::Unavailable) << "somebody else's";
}

TEST_F(BusTest, nothingWaitsForASilentService)
{
    FakeNotifications service({"body"});
    service.silent = true;
    BusUserNotifier notifier(connectionToBus(), log, 100);
    EXPECT_LT(timeOf([&] {
                  for (int i = 0; i < 1000; ++i)
                      notifier.deliver("title", "text");
              }),
              std::chrono::seconds(5))
        << "far less than to wait for each";
    ASSERT_TRUE(runUntil([&] { return log.lines().size() == 2; }));

    service.silent = false;
    notifier.deliver("later", "");
    EXPECT_TRUE(runUntil([&] { return !service.shown.isEmpty(); })) << "it is asked again";
    service.silent = true;
    for (int i = 0; i < 1000; ++i)
        notifier.deliver("title", "text");
    runFor(milliseconds(300));
    EXPECT_LE(service.shown.size(), 1 + static_cast<qsizetype>(BusUserNotifier::kWaiting));
    EXPECT_LE(log.lines().size(), 4U) << "the log is not flooded";
}

TEST_F(BusTest, messagesReachTheirObservers)
{
    BusDistributedNotifications sender(connectionToBus(), log);
    BusDistributedNotifications receiver(connectionToBus(), log);
    std::vector<std::string> heard;
    std::unique_ptr<DistributedNotifications::Observation> once;
    once = receiver.observe("One", [&](const std::string& object) {
        heard.push_back("once " + object);
        once.reset();
    });
    const auto always = receiver.observe(
        "One", [&](const std::string& object) { heard.push_back("always " + object); });
    runFor(milliseconds(50));
    sender.post("Other", "ignored");
    sender.post("One", "first \xc3\xa9");
    sender.post("One", "second");
    ASSERT_TRUE(runUntil([&] { return heard.size() == 3; }));
    runFor(milliseconds(50));
    EXPECT_EQ(heard.size(), 3U);
    EXPECT_EQ(std::count(heard.begin(), heard.end(), "always second"), 1);
    EXPECT_EQ(std::count(heard.begin(), heard.end(), "once first \xc3\xa9"), 1);

    BusDistributedNotifications nowhere(QDBusConnection(QStringLiteral("none")), log);
    nowhere.post("One", "");
    EXPECT_EQ(log.lines().size(), 1U);
}

TEST_F(BusTest, theFileViewerStaysInTheVolume)
{
    const TemporaryFolder host;
    host.folder("outside/Library");
    host.file("outside/Library/secret");
    const auto root = [&](const std::string& path) { return "volume/" + path; };
    host.file(root("private/Users/alice/a\xff &%41"));
    host.link(root("Users"), "/private/Users");
    host.link(root("Library"), host.hostPath("outside/Library"));
    host.link(root("dangling"), "nowhere");
    const auto volume = VolumeFileSystem::open(host.hostPath("volume")).value();
    const std::string base = "file://" + host.hostPath("volume");
    std::vector<std::string> opened;
    const auto open = [&](const QUrl& folder) {
        opened.push_back(folder.toEncoded().toStdString());
        return true;
    };

    BusFileViewer viewer(connectionToBus(), *volume, log, open);
    EXPECT_TRUE(viewer.reveal(at("/Users/alice/a\xff &%41")).ok());
    EXPECT_TRUE(runUntil([&] { return !opened.empty(); })) << "no viewer on the bus";
    EXPECT_EQ(opened, std::vector{base + "/private/Users/alice"});

    FakeFileManager manager;
    const struct {
        const char* path;
        std::string shown;
    } rows[] = {
        {"/Users/alice/a\xff &%41", "items " + base + "/private/Users/alice/a%FF%20%26%2541"},
        {"/USERS/Alice/", "items " + base + "/private/Users/alice"},
        {"/dangling", "items " + base + "/dangling"},
        {"/", "folders " + base},
    };
    for (const auto& row : rows) {
        manager.shown.clear();
        ASSERT_TRUE(viewer.reveal(at(row.path)).ok()) << row.path;
        ASSERT_TRUE(runUntil([&] { return !manager.shown.isEmpty(); }));
        EXPECT_EQ(QUrl(manager.shown[0]).toEncoded().toLower(),
                  QUrl(QString::fromStdString(row.shown)).toEncoded().toLower());
    }
    EXPECT_FALSE(viewer.reveal(at("/Library/secret")).ok()) << "the link leaves the volume";
    EXPECT_FALSE(viewer.reveal(at("/gone")).ok());
    EXPECT_EQ(opened.size(), 1U);

    BusFileViewer alone(QDBusConnection(QStringLiteral("none")), *volume, log,
                        [](const QUrl&) { return false; });
    EXPECT_FALSE(alone.reveal(at("/Users/alice")).ok());
}

} // namespace
} // namespace pryvane::test
