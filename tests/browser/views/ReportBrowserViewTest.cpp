#include "browser/views/WindowFixture.h"
#include "support/ContextMenu.h"

#include <QComboBox>
#include <QMenu>
#include <QPushButton>

#include <filesystem>
#include <map>

namespace pryvane::test {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

class ReportBrowserViewTest : public ReportWindowFixture {
protected:
    /// A custom scan of yesterday, a clean one, and one of just now that found more.
    void storeThree()
    {
        store({"/Users/alice/.mdworker", "/tmp/old"}, "/Users/alice/Doc\numents",
              " 1 minute  4 seconds");
        clock.advance(25h);
        store({});
        clock.advance(1h);
        store({"/Users/alice/.mdworker", "/Users/alice/Library/LaunchAgents/com.\xff<b>bold.plist",
               "/tmp/new"});
        clock.advance(5min);
    }
};

TEST_F(ReportBrowserViewTest, ListsFiltersAndCompares)
{
    storeThree();
    show();
    auto* list = table("reportList");
    ASSERT_EQ(list->model()->rowCount(), 3);
    EXPECT_THAT(
        rowText("reportList", 0),
        AllOf(StartsWith("Found | "), HasSubstr("Quick Scan | not known | 12 seconds | 3 | Open")));
    EXPECT_THAT(rowText("reportList", 1),
                AllOf(StartsWith("Clean | "), HasSubstr(" | 12 seconds | 0 | Delete")));
    EXPECT_THAT(rowText("reportList", 2), HasSubstr("/Users/alice/Doc\\numents")) << "escaped";

    for (const bool scanning : {true, false}) {
        notifications.post(NotificationName::ScanStatusChange, scanning);
        settle();
        EXPECT_EQ(isShown("scanningSpinner"), scanning);
    }
    view->focusFilter();
    QTest::keyClicks(QApplication::focusWidget(), "zip");
    EXPECT_FALSE(list->isVisible()) << "that nothing fits is said instead";
    find<QLineEdit>("searchReports")->clear();
    find<QComboBox>("filterReports")->setCurrentIndex(2);
    EXPECT_EQ(list->model()->rowCount(), 1);
    find<QComboBox>("filterReports")->setCurrentIndex(0);

    list->selectionModel()->select(list->model()->index(0, 0), QItemSelectionModel::Clear);
    for (const int row : {0, 2})
        list->selectionModel()->select(list->model()->index(row, 0),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
    click("compareReports");
    ASSERT_EQ(table("comparison")->model()->rowCount(), 4);
    for (const auto& [row, start, place] :
         {std::tuple{0, "new | ", "com.\\xff<b>bold.plist"}, std::tuple{1, "new | ", "/tmp/new"},
          std::tuple{2, "gone | ", "/tmp/old"}, std::tuple{3, "as before | ", ".mdworker"}})
        EXPECT_THAT(rowText("comparison", row), AllOf(StartsWith(start), HasSubstr(place)));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    runFor(20ms);
    EXPECT_FALSE(isShown("comparison"));
    list->sortByColumn(2, Qt::AscendingOrder);
    EXPECT_THAT(rowText("reportList", 0), HasSubstr("numents")) << "the oldest first";
}

TEST_F(ReportBrowserViewTest, ThePreviousReportIsThatOfTheSameMac)
{
    store({"/tmp/before"});
    for (const char* identity : {"another", ""}) { // one that cannot be told from others, too
        clock.advance(1h);
        const auto other = store({"/tmp/elsewhere"});
        other->volume = identity;
        ASSERT_TRUE(methods().updateReportInDefaults(other).ok());
    }
    clock.advance(1h);
    store({"/tmp/after"});
    show();
    for (const int row : {3, 2, 1, 0}) {
        table("reportList")->selectRow(row);
        EXPECT_EQ(find<QPushButton>("compareReports")->isEnabled(), row == 0) << row;
    }
    click("compareReports");
    ASSERT_EQ(table("comparison")->model()->rowCount(), 2);
    EXPECT_THAT(rowText("comparison", 1), AllOf(StartsWith("gone | "), HasSubstr("/tmp/before")));
}

TEST_F(ReportBrowserViewTest, OpensAReportAndExportsIt)
{
    storeThree();
    volume.remove("/tmp/old");
    show();
    press("reportList", 2, Qt::Key_Return);
    ASSERT_TRUE(isShown("findings"));
    EXPECT_EQ(textOf("reportKind") + "|" + textOf("infectionCount") + "|" + textOf("duration"),
              "Custom Scan|2|1 minute 4 seconds");
    EXPECT_THAT(rowText("findings", 0), HasSubstr("still there"));
    EXPECT_THAT(rowText("findings", 1), HasSubstr("gone"));
    EXPECT_FALSE(table("findings")->model()->index(1, 0).flags() & Qt::ItemIsUserCheckable);

    const struct {
        int kind;
        const char *file, *written, *start, *content;
    } kinds[] = {{0, "a.pdf", "a.pdf", "%PDF-", "%%EOF"},
                 {1, "b.json", "b.json", "{", "file:///tmp/old"},
                 {2, "c", "c.csv", "", "/tmp/old"},
                 {3, "d.html", "d.html", "<!DOCTYPE html>", "/tmp/old"}};
    const auto exportAs = [&](int kind, const std::string& path) {
        browser->say({});
        saveTo(path);
        find<QMenu>("exportMenu")->actions()[kind]->trigger();
        ASSERT_TRUE(runUntil([&] { return isShown("notice"); }));
    };
    for (const auto& kind : kinds) {
        exportAs(kind.kind, exports.hostPath(kind.file));
        EXPECT_THAT(contentOf(exports.hostPath(kind.written)),
                    AllOf(StartsWith(kind.start), HasSubstr(kind.content)))
            << textOf("notice");
    }
    exportAs(1, "/proc/x.json");
    EXPECT_THAT(textOf("notice"), StartsWith("The report was not exported: "));
    const auto* words = find<QLabel>("notice");
    EXPECT_EQ(words->palette().color(QPalette::WindowText),
              ui::colorOf(ui::Meaning::Found, QGuiApplication::palette()));
    for (const auto* shown : words->parentWidget()->findChildren<QLabel*>())
        EXPECT_TRUE(shown->isVisible()) << "the icon beside the words";

    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QTest::keyClick(find("findings"), Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(runUntil([&] { return isShown("reportList"); }));
    EXPECT_EQ(table("reportList")->currentIndex().row(), 2) << "where one came from";
}

TEST_F(ReportBrowserViewTest, SeveralReportsAreExportedAndDeletedTogether)
{
    storeThree();
    show();
    auto* list = table("reportList");
    list->setCurrentIndex(list->model()->index(0, 1));
    list->selectionModel()->select(list->model()->index(2, 0),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    for (int round = 0; round < 2; ++round) {
        saveTo(exports.path());
        browser->say({});
        chooseFromMenu(list, "As JSON…");
        ASSERT_TRUE(runUntil(
            [&] { return textOf("notice").find("2 of 2 reports exported") != std::string::npos; }));
    }
    std::string content;
    for (const auto& entry : std::filesystem::directory_iterator(exports.path()))
        content += contentOf(entry.path());
    for (const char* path : {"file:///tmp/old", "file:///tmp/new"}) {
        EXPECT_NE(content.find(path), content.rfind(path)) << "a second time replaces nothing";
    }
    alerts.answer(kAlertFirstButton);
    chooseFromMenu(list, "Delete These 2…");
    settle();
    ASSERT_EQ(list->model()->rowCount(), 1);
    EXPECT_THAT(rowText("reportList", 0), StartsWith("Clean | "));
}

TEST_F(ReportBrowserViewTest, RemovesWhatAnOldReportStillLists)
{
    storeThree();
    show();
    remover.stubborn = {"/tmp/new"};
    press("reportList", 0, Qt::Key_Return);
    press("findings", 0, Qt::Key_Space);
    EXPECT_FALSE((*browser->report()->spyWareList)[0]->isChecked);
    click("quarantineBtn");
    ASSERT_TRUE(runUntil([&] { return isShown("plan"); }));
    ASSERT_TRUE(runUntil([&] { return isShown("keepRecord"); }));
    EXPECT_TRUE(isShown("safetyNote"));
    saveTo(exports.path());
    click("keepRecord");
    ASSERT_TRUE(runUntil([&] { return textOf("safetyNote").starts_with("The record is in "); }))
        << textOf("safetyNote");
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(exports.path()))
        files[entry.path().extension()] = contentOf(entry.path());
    ASSERT_EQ(files.size(), 2U);
    EXPECT_THAT(files[".pdf"], AllOf(StartsWith("%PDF-"), HasSubstr("%%EOF")));
    EXPECT_THAT(files[".json"], HasSubstr("file:///tmp/new"));
    EXPECT_FALSE(find("removeForGood")->isEnabled()) << "no rule fits, so nothing starts ticked";
    press("plan", 1, Qt::Key_Space); // behind the group's heading
    press("plan", 2, Qt::Key_Space);
    EXPECT_TRUE(runUntil([&] { return find("removeForGood")->isEnabled(); }));
    alerts.answer(kAlertFirstButton);
    click("removeForGood");
    settle();
    EXPECT_EQ(alerts.asked().size(), 1U);
    EXPECT_TRUE(volume.contains("/Users/alice/.mdworker"));
    EXPECT_FALSE(volume.contains("/Users/alice/Library/LaunchAgents/com.\xff<b>bold.plist"));
    ASSERT_TRUE(isShown("reasonsSheet"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(isShown("reasonsSheet"));
    EXPECT_EQ(window->focusWidget()->objectName(), "findings");
    EXPECT_THAT(rowText("findings", 0), HasSubstr("still there"));
    EXPECT_THAT(rowText("findings", 1), HasSubstr("removed"));
    EXPECT_THAT(rowText("findings", 2), HasSubstr("not removed"));
    EXPECT_EQ(stored()[0]->spyWareCount, 3U) << "the stored report is as it was";
    EXPECT_THAT(remover.concluded, testing::ElementsAre(RemovalTally{1, 1, 1}));

    click("quarantineBtn");
    ASSERT_TRUE(runUntil([&] { return isShown("plan"); }));
    EXPECT_FALSE(isShown("keepRecord")) << "it is not the first removal any more";
}

TEST_F(ReportBrowserViewTest, AReportOfAnotherVolumeOffersNoRemoval)
{
    const auto report = store({"/tmp/a", "/Library/Preferences/com.apple.RemoteDesktop.plist"});
    (*report->spyWareList)[1]->infections = "Apple Remote Desktop";
    ASSERT_TRUE(methods().updateReportInDefaults(report));
    show();
    press("reportList", 0, Qt::Key_Return);
    EXPECT_TRUE(isShown("ARDCell"));
    EXPECT_FALSE(isShown("ignoreARD")) << "that is for scans";
    press("findings", 1, Qt::Key_Space);
    EXPECT_FALSE((*browser->report()->spyWareList)[1]->isChecked) << "it is never removed";
    QSignalSpy help(view, &ReportBrowserView::remoteDesktopHelpWanted);
    click("removeARD");
    EXPECT_EQ(help.count(), 1);
    click("backToReports");

    report->volume = "another";
    ASSERT_TRUE(methods().updateReportInDefaults(report));
    browser->viewWillAppear();
    settle();
    press("reportList", 0, Qt::Key_Return);
    EXPECT_THAT(rowText("findings", 0), HasSubstr("not known"));
    EXPECT_FALSE(isShown("quarantineBtn"));
}

} // namespace
} // namespace pryvane::test
