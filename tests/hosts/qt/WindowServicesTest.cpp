#include "hosts/linux/desktop/TaskbarDockIcon.h"
#include "hosts/linux/desktop/TrayHosts.h"
#include "hosts/linux/desktop/X11.h"
#include "hosts/qt/EventLoop.h"
#include "hosts/qt/OwnConnection.h"
#include "hosts/qt/widgets/DesktopWebBrowser.h"
#include "hosts/qt/widgets/TrayStatusItem.h"
#include "hosts/qt/widgets/WidgetAlerts.h"
#include "hosts/qt/widgets/WidgetFolderPicker.h"
#include "support/Fakes.h"
#include "support/PrivateBus.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QSemaphore>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <gtest/gtest.h>

namespace pryvane::test {
namespace {

/// Does that to the modal window as soon as it is shown.
template <typename Window, typename Work>
void whenShown(Work work)
{
    QTimer::singleShot(50, qApp, [work] {
        auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
        if (!window)
            whenShown<Window>(work);
        else
            work(window);
    });
}

void press(QWidget* window, Qt::Key key)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(window->focusWidget() ? window->focusWidget() : window, &event);
    }
}

TEST(WidgetAlertsTest, answersByButtonsAndKeys)
{
    WidgetAlerts alerts;
    const auto answerOf = [&](std::vector<std::string> buttons, auto act) {
        whenShown<QMessageBox>(act);
        return alerts.runModal({"Title", "Text", std::move(buttons)});
    };
    const auto pressing = [](Qt::Key key) { return [key](QMessageBox* box) { press(box, key); }; };
    EXPECT_EQ(answerOf({"Yes", "No"}, pressing(Qt::Key_Return)), kAlertFirstButton);
    EXPECT_EQ(answerOf({"Yes", "No"}, pressing(Qt::Key_Escape)), kAlertFirstButton + 1);
    EXPECT_EQ(answerOf({"OK"}, pressing(Qt::Key_Escape)), kAlertFirstButton);
    EXPECT_EQ(answerOf({"A & B", "Second", "Third"},
                       [](QMessageBox* box) {
                           press(box, Qt::Key_Escape);
                           ASSERT_TRUE(box->isVisible()) << "there is nothing to decline with";
                           EXPECT_EQ(box->buttons()[0]->text(), "A && B");
                           box->buttons()[2]->click();
                       }),
              kAlertFirstButton + 2);
}

TEST(WidgetAlertsTest, obeysNoMarkup)
{
    WidgetAlerts alerts;
    for (const bool alone : {false, true}) {
        const std::string text = "<b>x</b> <img src=\"/etc/hostname\"> &amp; %1";
        whenShown<QMessageBox>([&](QMessageBox* box) {
            int found = 0;
            for (const QLabel* label : box->findChildren<QLabel*>()) {
                EXPECT_EQ(label->textFormat(), Qt::PlainText);
                found += label->text().toStdString() == text ? 1 : 0;
            }
            EXPECT_EQ(found, alone ? 1 : 2);
            box->buttons()[0]->click();
        });
        alerts.runModal({alone ? "" : text, text, {"OK"}});
    }
}

TEST(WidgetFolderPickerTest, takesOnlyWhatIsAllowed)
{
    const TemporaryFolder host;
    host.folder("volume/Users/alice");
    host.folder("volume/Library");
    WidgetFolderPicker picker(host.hostPath("volume/"));
    const FolderQuestion question{"Confirm Access", "<b>Give</b> access",
                                  FileURL::fileURLWithPath("/Users/alice/not/there"),
                                  [](const FileURL& url) {
                                      return url == FileURL::fileURLWithPath("/") ||
                                             url == FileURL::fileURLWithPath("/Users");
                                  }};
    const auto pick = [&](const std::string& typed, bool refused) {
        whenShown<FolderPanel>([&, refused](FolderPanel* panel) {
            EXPECT_EQ(panel->directory().path().toStdString(), host.hostPath("volume/Users/alice"));
            panel->findChild<QLineEdit*>()->setText(QString::fromStdString(typed));
            panel->accept();
            EXPECT_EQ(panel->isVisible(), refused) << typed;
            EXPECT_EQ(panel->findChild<QLabel*>("refusal")->text().isEmpty(), !refused);
            panel->reject();
        });
        return picker.pickFolder(question);
    };
    EXPECT_EQ(pick(host.hostPath("volume/Users"), false)->absolutePath(), "/Users");
    EXPECT_EQ(pick(host.hostPath("volume"), false)->absolutePath(), "/");
    for (const char* refused : {"volume/Library", "volume/Users/alice", "", "volume/none"})
        EXPECT_FALSE(pick(host.hostPath(refused), true)) << refused;
    EXPECT_FALSE(pick("/", true)) << "outside the volume";
}

TEST(DesktopWebBrowserTest, opensOnlyWebAddresses)
{
    DesktopWebBrowser browser;
    for (const char* refused : {"", "file:///etc/passwd", "/bin/sh", "javascript:1", "https://",
                                "mailto:a@b", "https://exa mple/"})
        EXPECT_FALSE(browser.open(refused).ok()) << refused;
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "/nowhere");
    EXPECT_FALSE(browser.open("https://www.pryvane.example/").ok()) << "no browser there";
    qputenv("PATH", path);
}

TEST(ShownWindowsTest, asksAgainForAWindowThatNobodyMapped)
{
    const ShownWindows shownWindows;
    QWidget window;
    const auto id = static_cast<xcb_window_t>(window.winId());
    const auto isMapped = [&] { return window.windowHandle()->isExposed(); };
    window.show();
    ASSERT_TRUE(runUntil(isMapped));
    EXPECT_FALSE(x11::isOverlooked(id));
    // What a request that was lost leaves behind: shown, as far as the program knows.
    xcb_unmap_window(x11::connection(), id);
    xcb_flush(x11::connection());
    ASSERT_TRUE(runUntil([&] { return !isMapped() && x11::isOverlooked(id); }));
    QShowEvent shown;
    QCoreApplication::sendEvent(window.windowHandle(), &shown);
    EXPECT_TRUE(runUntil(isMapped));

    window.showMinimized();
    runFor(std::chrono::milliseconds(600));
    EXPECT_FALSE(x11::isOverlooked(id)) << "the window manager hides it";
}

/// The service that knows the hosts of status items.
class FakeItemWatcher final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hosted)

public:
    explicit FakeItemWatcher(std::atomic<int>& registered) : m_registered(registered)
    {
        m_own.offer("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", this);
    }
    [[nodiscard]] bool hosted() const { return true; }

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString&) { ++m_registered; }

private:
    OwnConnection m_own;
    std::atomic<int>& m_registered;
};

/// In a thread of its own, as Qt asks it waiting.
class ItemWatcherThread final : public QThread {
public:
    ItemWatcherThread()
    {
        start();
        m_offered.acquire();
    }
    ~ItemWatcherThread() override
    {
        quit();
        wait();
    }
    std::atomic<int> items{0};

private:
    void run() override
    {
        const FakeItemWatcher watcher(items);
        m_offered.release();
        exec();
    }
    QSemaphore m_offered;
};

QIcon square(std::string_view, int points)
{
    QPixmap pixmap(points, points);
    pixmap.fill(Qt::black);
    return pixmap;
}

TEST(TrayStatusItemTest, appearsAndVanishesWithItsPlace)
{
    TrayStatusItem item(std::make_unique<TrayHosts>(connectionToBus()), square);
    int changes = 0;
    item.whenAvailabilityChanges([&] { ++changes; });
    item.create("spywareStatus", 18);
    runFor(std::chrono::milliseconds(100));
    EXPECT_FALSE(item.available());
    for (int round = 1; round <= 2; ++round) {
        {
            ItemWatcherThread desktop; // a panel that starts after the program
            ASSERT_TRUE(runUntil([&] { return item.available(); }));
            EXPECT_TRUE(runUntil([&] { return desktop.items > 0; })) << "round " << round;
        }
        EXPECT_TRUE(runUntil([&] { return !item.available(); }));
        EXPECT_EQ(changes, 2 * round);
    }
}

/// A tray of X11, as far as it makes itself known.
struct X11Tray {
    X11Tray() : bus(xcb_connect(nullptr, nullptr))
    {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(bus)).data->root;
        const xcb_window_t window = xcb_generate_id(bus);
        xcb_create_window(bus, XCB_COPY_FROM_PARENT, window, root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        const xcb_atom_t selection = x11::atom("_NET_SYSTEM_TRAY_S0");
        xcb_set_selection_owner(bus, window, selection, XCB_CURRENT_TIME);
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = root;
        event.type = x11::atom("MANAGER");
        event.data.data32[1] = selection;
        event.data.data32[2] = window;
        xcb_send_event(bus, 0, root, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&event));
        xcb_flush(bus);
    }
    ~X11Tray() { xcb_disconnect(bus); }
    xcb_connection_t* bus;
};

TEST(TrayStatusItemTest, followsTraysOfX11)
{
    TrayStatusItem item(std::make_unique<TrayHosts>(connectionToBus()), square);
    item.create("spywareStatus", 18);
    for (int round = 0; round < 2; ++round) {
        {
            const X11Tray tray;
            EXPECT_TRUE(runUntil([&] { return item.available(); }));
        }
        EXPECT_TRUE(runUntil([&] { return !item.available(); }));
    }
    const X11Tray before;
    TrayStatusItem later(std::make_unique<TrayHosts>(connectionToBus()), square);
    later.create("spywareStatus", 18);
    EXPECT_TRUE(runUntil([&] { return later.available(); }));
}

TEST(TrayStatusItemTest, anActionMayReplaceTheMenu)
{
    TrayStatusItem item(std::make_unique<TrayHosts>(connectionToBus()), square);
    std::string ran;
    std::function<void()> rebuild = [&] {
        ran += 'r';
        item.setMenu({{"A & B", true, rebuild}, {"", {}, {}}, {"Last", {}, {}}});
    };
    item.setMenu({{"First", {}, rebuild}});
    item.menu().actions()[0]->trigger();
    const auto actions = item.menu().actions();
    ASSERT_EQ(actions.size(), 3);
    EXPECT_EQ(actions[0]->text(), "A && B");
    EXPECT_TRUE(actions[0]->isChecked());
    EXPECT_TRUE(actions[1]->isSeparator());
    actions[2]->trigger();
    actions[0]->trigger();
    runFor(std::chrono::milliseconds(20));
    EXPECT_EQ(ran, "rr");
}

} // namespace
} // namespace pryvane::test

#include "WindowServicesTest.moc"

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const auto bus = pryvane::test::PrivateBus::start(); // before Qt looks for one
    if (!bus)
        return 1;
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
