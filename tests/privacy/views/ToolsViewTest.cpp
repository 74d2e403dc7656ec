// The tools screen with its widgets, on a real volume, by keyboard and by mouse.
#include "privacy/views/ToolsView.h"

#include "hosts/qt/QtMainLoop.h"
#include "inventory/FactsController.h"
#include "inventory/InventoryController.h"
#include "privacy/ToolsViewController.h"
#include "support/CleanerFixture.h"
#include "support/ContextMenu.h"
#include "support/Fakes.h"
#include "ui/Sheet.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace pryvane::test {

namespace {

using State = ToolsViewController::State;

const std::string kHistory = kHome + "/Library/Safari/History.db";
const std::string kDownloads = kHome + "/Library/Safari/Downloads.plist";
const std::string kSession = kHome + "/Library/Safari/LastSession.plist";
const std::string kExtension = kChromeFolder + "/Default/Extensions/abc/1.2_0/";
const std::string kHostile = "/Library/LaunchAgents/a<b>\xff\n\xe2\x80\xae.plist";

class ToolsViewTest : public CleanerFixture {
protected:
    ToolsViewTest()
    {
        for (const char* name : {"Safari", "Google Chrome", "Mail"})
            volume.folder("/Applications/" + std::string(name) + ".app");
        volume.file(kHistory, std::string(901'120, 'x'));
        volume.file(kDownloads, std::string(53'248, 'x'));
        volume.file(kSession, std::string(50'000, 'x'));
        volume.file(kHome + "/Library/Safari/Bookmarks.plist");
        volume.file(kHome + "/Library/Logs/a.log", std::string(300'000, 'x'));
        volume.file(kHome + "/Library/Caches/b/c", std::string(2'000'000, 'x'));
        chromeProfiles(R"("Default": {"name": "Alice"})");
        volume.file(kChromeFolder + "/Default/Cookies", std::string(40'000, 'x'));
        volume.file(kExtension + "manifest.json", R"({"name": "Blocker", "version": "1.2"})");
        volume.file(kHostile);
        volume.file("/Library/LaunchDaemons/com.example.daemon.plist");
        workspace.running = {"Google Chrome"};
        view.resize(720, 560);
        QObject::connect(&view, &ToolsView::revealWanted, &view,
                         [this](const FileURL& url) { revealed.push_back(url.absolutePath()); });
        view.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    }
    ~ToolsViewTest() override { EXPECT_FALSE(HasFatalFailure()); }

    template <typename Widget = QPushButton>
    Widget* find(const char* name)
    {
        auto* widget = view.findChild<Widget*>(name);
        EXPECT_TRUE(widget) << name;
        return widget;
    }
    bool reaches(State state)
    {
        return QTest::qWaitFor([&] { return tools.state() == state; }, 30'000);
    }
    bool measures()
    {
        view.viewWillAppear();
        return reaches(State::Idle) && settle();
    }
    /// Lets the screen show what it was told.
    static bool settle()
    {
        QTest::qWait(20);
        return true;
    }
    QStringList columnOf(QAbstractItemView* list, int column)
    {
        QStringList texts;
        for (int row = 0; row < list->model()->rowCount(); ++row)
            texts += list->model()->index(row, column).data().toString();
        return texts;
    }
    /// Chooses the row of that text as the arrow keys would.
    void choose(QAbstractItemView* list, const QString& text, int column)
    {
        QTest::keyClick(list, Qt::Key_Home, Qt::ControlModifier);
        for (int row = 0; row < list->model()->rowCount(); ++row) {
            if (list->currentIndex().siblingAtColumn(column).data().toString() == text)
                return;
            QTest::keyClick(list, Qt::Key_Down);
        }
        FAIL() << text.toStdString() << " is not in "
               << columnOf(list, column).join('|').toStdString();
    }
    void tickItem(const QString& group, const QString& item)
    {
        choose(groups(), group, 0);
        choose(items(), item, 1);
        QTest::keyClick(items(), Qt::Key_Space);
        settle();
    }
    QAbstractItemView* groups() { return find<QAbstractItemView>("groups"); }
    QAbstractItemView* items() { return find<QAbstractItemView>("items"); }
    std::string words(const char* label) { return find<QLabel>(label)->text().toStdString(); }

    QtMainQueue queue;
    ScriptedAlerts alerts;
    FakeWorkspace workspace;
    ToolsViewController tools{{services(), remover(), queue, alerts, workspace}, "alice"};
    InventoryController inventoryController{{services(), queue}, "alice"};
    FactsController factsController{services().disk, queue};
    std::vector<std::string> revealed;
    ToolsView view{tools, inventoryController, factsController};
};

TEST_F(ToolsViewTest, ClearsWhatIsTickedButWhatThePreviewLeavesOut)
{
    EXPECT_EQ(words("statement"), "Not measured yet");
    ASSERT_TRUE(measures());
    EXPECT_EQ(columnOf(groups(), 0),
              QStringList({"Safari", "Chrome", "Browser Extensions", "System", "Mail"}));
    EXPECT_FALSE(find("previewSelected")->isEnabled());
    choose(items(), "Favicons", 1); // nothing is there, so Space does nothing
    QTest::keyClick(items(), Qt::Key_Space);
    EXPECT_TRUE(tools.toolsSelectedDic().empty());
    EXPECT_TRUE(words("explanation").ends_with("There is nothing to clear."));

    groups()->setFocus();
    QTest::keyClick(groups(), Qt::Key_Space);
    EXPECT_EQ(groups()->currentIndex().data(Qt::CheckStateRole).toInt(), Qt::Checked);
    tickItem("Safari", "LastSession");
    EXPECT_EQ(groups()->currentIndex().data(Qt::CheckStateRole).toInt(), Qt::PartiallyChecked);
    tickItem("Chrome", "Cookies (Alice)");
    EXPECT_EQ(words("total"), "995 KB ticked");

    QTest::keyClick(find("previewSelected"), Qt::Key_Space);
    ASSERT_TRUE(reaches(State::Previewing) && settle());
    EXPECT_EQ(QApplication::focusWidget(), find("cancelPreview"));
    auto* const preview = find<QAbstractItemView>("preview");
    choose(preview, QString::fromStdString(kDownloads), 1);
    QTest::keyClick(preview, Qt::Key_Space);
    for (const bool runs : {true, false}) {
        EXPECT_EQ(find<QWidget>("closeBrowsers")->isVisible(), runs);
        workspace.running = {};
        if (runs)
            find("retryButton")->click();
        ASSERT_TRUE(reaches(State::Previewing) && settle());
    }
    remover().stubborn = {kChromeFolder + "/Default/Cookies"};
    alerts.answer(kAlertFirstButton);
    find("clearForGood")->click();
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return alerts.asked().size() == 1 && tools.isMeasured(); }, 30'000) &&
        settle());
    EXPECT_FALSE(volume.contains(kHistory));
    EXPECT_TRUE(volume.contains(kDownloads) && volume.contains(kSession));
    EXPECT_TRUE(words("outcome").ends_with(" 1 location stayed.")) << words("outcome");
    EXPECT_EQ(words("total"), "Nothing is ticked");
    find("showLeftOvers")->click();
    EXPECT_EQ(columnOf(find<QAbstractItemView>("reasons"), 2).size(), 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    settle();
}

TEST_F(ToolsViewTest, EscapeLeavesEverythingWhereItIs)
{
    ASSERT_TRUE(measures());
    tickItem("System", "System Cache Files");
    find("cleanAndReloadData")->click();
    EXPECT_FALSE(find<QAbstractItemView>("preview")->isVisible());
    ASSERT_TRUE(reaches(State::Previewing) && settle());
    find("listLocations")->click();
    EXPECT_TRUE(find<QAbstractItemView>("preview")->isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(tools.state(), State::Idle);
    // Closed while the disk is still looked at.
    settle();
    find("previewSelected")->click();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    ASSERT_TRUE(reaches(State::Idle) && settle());
    EXPECT_FALSE(view.window()->findChild<ui::Sheet*>());
    EXPECT_TRUE(volume.contains(kHome + "/Library/Caches/b/c"));
}

TEST_F(ToolsViewTest, InventoryListsFiltersRevealsAndCopies)
{
    find("showInventory")->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return inventoryController.isWhole(); }, 30'000) && settle());
    auto* const table = find<QAbstractItemView>("inventory");
    const QStringList names = columnOf(table, 1);
    for (const char* planted : {"Blocker", "com.example.daemon.plist", "Mail.app", "Safari.app",
                                "a<b>\\xff\\n\\u{202e}.plist"})
        EXPECT_TRUE(names.contains(planted)) << planted << " in " << names.join('|').toStdString();
    for (int row = 0; row < table->model()->rowCount(); ++row)
        EXPECT_FALSE(table->model()->index(row, 0).flags() & Qt::ItemIsUserCheckable);

    QTest::keyClicks(find<QLineEdit>("filter"), "launchagents");
    EXPECT_EQ(table->model()->rowCount(), 2) << "its heading and the agent";
    choose(table, "a<b>\\xff\\n\\u{202e}.plist", 1);
    QTest::keyClick(table, Qt::Key_Return);
    EXPECT_EQ(revealed, std::vector{kHostile}) << "as bytes";
    chooseFromMenu(table, "Copy Path");
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              "/Library/LaunchAgents/a<b>\\xff\\n\\u{202e}.plist");
    find<QLineEdit>("filter")->setText("nothing like it");
    EXPECT_FALSE(table->isVisible());
}

} // namespace

} // namespace pryvane::test
