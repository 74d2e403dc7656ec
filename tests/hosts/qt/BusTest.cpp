#include "hosts/qt/EventLoop.h"
#include "hosts/qt/OwnConnection.h"
#include "hosts/qt/bus/BusClosedScans.h"
#include "hosts/qt/bus/BusDistributedNotifications.h"
#include "hosts/qt/bus/BusFileViewer.h"
#include "hosts/qt/bus/BusTaskProgress.h"
#include "hosts/qt/bus/BusUserNotifier.h"
#include "support/Fakes.h"
#include "support/PrivateBus.h"
#include "support/Volumes.h"

#include <QDBusContext>
#include <QDBusVirtualObject>
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

/// A notification service that records what it is to show.
class FakeNotifications final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    explicit FakeNotifications(QStringList capabilities) : m_capabilities(std::move(capabilities))
    {
        m_own.offer("org.freedesktop.Notifications", kPath, this);
    }

    /// Somebody presses the button of that message.
    void press(uint id)
    {
        for (const char* member : {"ActivationToken", "ActionInvoked"}) {
            auto signal =
                QDBusMessage::createSignal(kPath, "org.freedesktop.Notifications", member);
            m_own.bus.send(signal << id << "show");
        }
    }

    bool silent = false;
    QStringList lastActions;
    QList<uint> closed;
    QStringList shown; ///< "summary|body"; of those that were replaced what they were last

public Q_SLOTS:
    QStringList GetCapabilities()
    {
        setDelayedReply(silent);
        return m_capabilities;
    }
    uint Notify(const QString&, uint replaces, const QString&, const QString& summary,
                const QString& body, const QStringList& actions, const QVariantMap&, int)
    {
        setDelayedReply(silent);
        lastActions = actions;
        if (replaces == 0)
            shown << QString();
        const qsizetype number = replaces > 0 ? replaces : shown.size();
        shown[number - 1] = summary + '|' + body;
        return static_cast<uint>(number);
    }
    void CloseNotification(uint id) { closed << id; }

private:
    static constexpr const char* kPath = "/org/freedesktop/Notifications";
    OwnConnection m_own;
    QStringList m_capabilities;
};

TEST_F(BusTest, notificationsFollowWhatTheServiceCanShow)
{
    const struct {
        QStringList capabilities;
        QString shown;
    } rows[] = {
        {{"body", "body-markup"}, "Pry\\x1b|&lt;img src=\"x\"&gt; a&amp;b \\n\\xff"},
        {{"body"}, "Pry\\x1b|<img src=\"x\"> a&b \\n\\xff"},
        {{"actions"}, "Pry\\x1b: <img src=\"x\"> a&b \\n\\xff|"},
    };
    for (const auto& row : rows) {
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
        FakeNotifications service({"body", "body-markup", hasActions ? "actions" : "icon"});
        BusUserNotifier notifier(connectionToBus(), log);
        std::string token, expected = hasActions ? "show" : "";
        notifier.setUp([](const std::string& text) { return QString::fromStdString("de " + text); },
                       [&](const std::string& told) { token = told; });
        int shown = 0;
        notifier.deliver("Pryvane", "first");
        notifier.update("Pryvane", "4 findings so far");
        ASSERT_TRUE(runUntil([&] { return service.shown.size() == 2; }));
        notifier.conclude("Found", "<b>a</b> \\xff", [&] { ++shown; });
        ASSERT_TRUE(runUntil([&] { return service.closed == QList<uint>{1}; }));
        EXPECT_EQ(service.shown.last(), "de Found|de &lt;b&gt;a&lt;/b&gt; \\xff");
        EXPECT_EQ(service.lastActions.size(), hasActions ? 4 : 0);
        for (const uint pressed : {1U, 2U, 2U})
            service.press(pressed);
        runFor(milliseconds(100));
        EXPECT_EQ(shown, hasActions ? 1 : 0);
        EXPECT_EQ(token, expected);
        notifier.withdraw();
        EXPECT_TRUE(runUntil([&] { return service.closed.contains(2U); }));
    }
}

/// Hears progress, and is the file viewer, and the systemd of the session as far as timers go.
class Desk final : public QDBusVirtualObject {
    Q_OBJECT

public:
    Desk()
    {
        own.bus.registerVirtualObject("/org/freedesktop/systemd1", this);
        own.bus.registerVirtualObject("/org/freedesktop/FileManager1", this);
        own.bus.connect({}, {}, "com.canonical.Unity.LauncherEntry", "Update", this,
                        SLOT(heard(QString, QVariantMap)));
    }
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override
    {
        const QString name = call.member();
        if (name == "GetUnitFileState")
            return bus.send(call.createReply(isEnabled ? "enabled" : "disabled"));
        calls << name;
        if (name.startsWith("Show"))
            calls << call.arguments()[0].toStringList();
        isEnabled = (isEnabled || name == "EnableUnitFiles") && name != "DisableUnitFiles";
        return bus.send(name == refused ? call.createErrorReply("a.b", "no") : call.createReply());
    }

    OwnConnection own;
    bool isEnabled = false;
    QString refused;
    QStringList calls;
    QList<double> shares; ///< -1: hidden

public Q_SLOTS:
    void heard(const QString&, const QVariantMap& told)
    {
        shares << (told["progress-visible"].toBool() ? told["progress"].toDouble() : -1);
    }
};

TEST_F(BusTest, progressComesAtMostTenTimesASecondAndGoes)
{
    Desk desk;
    runFor(milliseconds(50));
    {
        BusTaskProgress progress(connectionToBus());
        progress.hide();
        for (int i = 0; i < 100; ++i)
            progress.show(i / 100.0);
        EXPECT_TRUE(runUntil([&] { return desk.shares.contains(0.99); }));
    } // as at the program's end
    EXPECT_TRUE(runUntil([&] { return desk.shares.contains(-1); }));
    EXPECT_EQ(desk.shares, (QList<double>{0, 0.99, -1}));
}

TEST_F(BusTest, timersStandWholeOrNotAtAll)
{
    const TemporaryFolder folder;
    const TimerUnits::Places places{folder.hostPath("units"), "/bin/true", folder.path()};
    const TimerUnits files(places);
    BusClosedScans scans(connectionToBus(), places);
    const Date one{std::chrono::hours(24 * 365 * 60)}, two = one + std::chrono::hours(1);
    const QStringList starts{"Reload", "EnableUnitFiles", "Reload", "RestartUnit"};
    const QStringList startedAgain = starts + QStringList{"Reload", "RestartUnit"};
    const struct {
        const char* refused; ///< null: no systemd
        std::optional<Date> wanted, stands;
        QStringList calls;
    } rows[] = {
        {nullptr, one, {}, {}},
        {"EnableUnitFiles", one, {}, {"Reload", "EnableUnitFiles", "DisableUnitFiles", "Reload"}},
        {"", one, one, starts},
        {"", one, one, {}},
        {"RestartUnit", two, one, startedAgain},
        {"", two, two, starts},
        {"", {}, {}, {"StopUnit", "DisableUnitFiles", "Reload"}},
    };
    Desk desk;
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        desk.calls.clear();
        desk.refused = row.refused;
        if (row.refused)
            desk.own.bus.registerService("org.freedesktop.systemd1");
        std::optional<bool> outcome;
        std::optional<ClosedScans::Standing::Kind> standing;
        const auto told = [&](const Result<Done>& done) { outcome = done.ok(); };
        row.wanted ? scans.arrange({*row.wanted}, told) : scans.cancel(told);
        scans.look([&](const ClosedScans::Standing& stands) { standing = stands.kind; });
        ASSERT_TRUE(runUntil([&] { return standing.has_value(); }));
        EXPECT_EQ(outcome, row.wanted == row.stands);
        EXPECT_EQ(*standing == ClosedScans::Standing::Kind::On, row.stands.has_value());
        EXPECT_EQ(desk.calls, row.calls);
        EXPECT_EQ(files.found().value(),
                  row.stands ? files.wanted({*row.stands}).value() : TimerUnits::Texts{});
    }
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

    Desk desk;
    desk.own.bus.registerService("org.freedesktop.FileManager1");
    const struct {
        const char *path, *call;
        std::string place; ///< inside the volume
    } rows[] = {
        {"/Users/alice/a\xff &%41", "ShowItems", "/private/Users/alice/a%FF%20%26%2541"},
        {"/USERS/Alice/", "ShowItems", "/private/Users/alice"},
        {"/dangling", "ShowItems", "/dangling"},
        {"/", "ShowFolders", ""},
    };
    for (const auto& row : rows) {
        desk.calls.clear();
        ASSERT_TRUE(viewer.reveal(at(row.path)).ok()) << row.path;
        ASSERT_TRUE(runUntil([&] { return !desk.calls.isEmpty(); }));
        EXPECT_EQ(desk.calls, QStringList({row.call, QString::fromStdString(base + row.place)}));
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

#include "BusTest.moc"
