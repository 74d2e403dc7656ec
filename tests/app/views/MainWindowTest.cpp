// The main window in parts, each as narrow as the smallest window leaves it.
#include "app/views/MainWindow.h"

#include "app/AppFixture.h"
#include "app/DashBoardViewController.h"
#include "app/DetailsViewController.h"
#include "app/NotAccessVC.h"
#include "app/SchedulerVC.h"
#include "app/views/DashboardView.h"
#include "app/views/Faces.h"
#include "app/views/Looks.h"
#include "app/views/PlainWindows.h"
#include "findings/views/FindingsPane.h"
#include "reports/DefaultMethods.h"
#include "scan/ScanViewController.h"
#include "scan/views/ScanView.h"
#include "support/StubbornRemover.h"
#include "ui/Icons.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>

namespace pryvane {
namespace {

using testing::HasSubstr;
using namespace std::chrono_literals;

class MainWindowTest : public test::AppFixture {};

TEST_F(MainWindowTest, NamesALongDiskAndItsUserOnALineEach)
{
    Looks looks(defaults);
    TableViewController table(notifications);
    MainWindow window(delegate, table, new QStackedWidget,
                      {"Macintosh HD - Data backup of the studio's old machine", "/mnt/mac",
                       "anna-katharina.von-hohenstein", "its user"},
                      looks, MainWindow::Menus::Button);
    window.resize(900, 600);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window, 60'000));
    const auto* chip = window.findChild<QPushButton*>("openVolume");
    const QStringList lines = chip->text().split('\n');
    ASSERT_EQ(lines.size(), 2);
    for (const QString& line : lines)
        EXPECT_LE(chip->fontMetrics().horizontalAdvance(line) + chip->iconSize().width() + 16,
                  chip->width())
            << line.toStdString();
    EXPECT_THAT(lines[0].toStdString(), testing::StartsWith("Macint"));
    EXPECT_TRUE(lines[0].contains("…") && lines[0].endsWith("machine")) << lines[0].toStdString();
    EXPECT_THAT(lines[1].toStdString(), testing::StartsWith("anna"));
}

TEST_F(MainWindowTest, TheDashboardKeepsTheAgeOfTheLastReportRight)
{
    DefaultMethods store(defaults, *disk, clock, log);
    const auto report = SpywareScanReport::ScanReportWithSpywareList(
        std::make_shared<SpywareList>(), clock.now(), " 3 seconds", "Quick Scan", clock.now());
    report->volume = disk->identity();
    report->subject.users = {"alice"};
    ASSERT_TRUE(store.updateReportInDefaults(report).ok());
    clock.advance(2h);
    DashBoardViewController board(services(), desktop.services(), delegate, facts);
    SchedulerVC scheduler(services(), desktop.services(), delegate);
    board.viewDidLoad();
    DashboardView view(board, scheduler);
    view.show();
    ASSERT_TRUE(mainQueue.runUntil([&] { return board.lastScans().date.has_value(); }));
    EXPECT_THAT(test::textOf(view), HasSubstr("Last scan: 2 hours ago"));
    clock.advance(1h);
    for (auto* timer : view.findChildren<QTimer*>())
        if (timer->isActive())
            timer->start(1);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return test::textOf(view).find("Last scan: 3 hours ago") != std::string::npos;
    })) << test::textOf(view);
}

/// As on a computer that is no Mac.
TEST_F(MainWindowTest, TheFirstStartIsNoDeadEndWithoutTheUsersFolder)
{
    volume.remove("/Users");
    NotAccessVC welcome(services(), desktop.grantTokens, delegate);
    AccessWindow window(welcome, {"This computer", "/", "alice", "user alice"});
    window.show();
    QStringList open;
    for (const auto* choice : window.findChildren<QRadioButton*>())
        if (choice->isEnabled())
            open += choice->text() + (choice->isChecked() ? " chosen" : "");
    EXPECT_EQ(open, QStringList("The whole disk chosen"));
    window.findChild<QPushButton*>("confirmAccess")->click();
    EXPECT_TRUE(welcome.isGranted());
    EXPECT_THAT(folderPicker.asked(), testing::IsEmpty());
}

/// A disk that was attached for reading alone is no alarm, and is scanned without any question.
TEST_F(MainWindowTest, ADiskThatCannotBeWrittenIsCalmAndCanBeScanned)
{
    access.writable = false;
    ASSERT_TRUE(defaults.setObject(preferences::kSaveDirectory, Bytes{"token"}).ok());
    DefaultMethods store(defaults, *disk, clock, log);
    test::StubbornRemover remover(*disk);
    ScanViewController scan(services(), delegate.state(), access, store, remover,
                            ScanOptions{"alice", {}});
    ScanView view(scan, {"alice", {}, {}});
    view.show();
    EXPECT_THAT(test::textOf(view), HasSubstr("The Home Folder Cannot Be Written To\n"));
    EXPECT_THAT(test::textOf(view), HasSubstr("It can be scanned"));
    EXPECT_TRUE(view.findChild<QPushButton*>("scanNow")->isVisible());
    bool ended = false;
    const auto ending = scan.scanEnded.listen([&] { ended = true; });
    view.findChild<QPushButton*>("scanNow")->click();
    scan.SpywareScanStart();
    ASSERT_TRUE(mainQueue.runUntil([&] { return ended; }));
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return test::textOf(view).find("No Potential Threats") != std::string::npos;
    })) << test::textOf(view);
    EXPECT_THAT(folderPicker.asked(), testing::IsEmpty());
}

/// At the width that is left at 900 pixels.
TEST_F(MainWindowTest, TheTableCutsNoWordOfEvidence)
{
    auto records = std::make_shared<SpywareList>();
    const char* name = "dcba";
    for (const char* path :
         {"/Users/alice/Library/.A_o_b_o/", "/Library/LaunchAgents/com.refog.agent.plist",
          "/tmp/TypeRecorder.txt", "/Library/Preferences/com.okaz.x"})
        records->push_back(Spyware::SpyWareSeen({name++, 1}, "Aobo Keylogger Pro Edition",
                                                123456789, FileURL::fileURLWithPath(path),
                                                kHighRisk));
    FindingsPane pane(
        "alice", {}, [](const auto&, bool) {}, FindingsSource::Of::Scan);
    pane.showRecords(records);
    pane.resize(644, 400);
    pane.show();
    auto* table = pane.findChild<ui::RowTable*>("findings");
    const int icon = 18 + 2 * 8;
    for (int row = 0; row < table->model()->rowCount(); ++row) {
        const auto index = table->model()->index(row, FindingsSource::EvidenceColumn);
        EXPECT_GE(table->visualRect(index).width(),
                  table->fontMetrics().horizontalAdvance(index.data().toString()) + icon)
            << index.data().toString().toStdString();
        EXPECT_LT(table->visualRect(index).right(), table->viewport()->width());
        const auto threat = index.siblingAtColumn(FindingsSource::Threat);
        EXPECT_GT(table->visualRect(threat).width(),
                  table->fontMetrics().horizontalAdvance(threat.data().toString()));
    }
    // There the size stands at the end of the second line.
    EXPECT_TRUE(table->isColumnHidden(FindingsSource::Size));
    const QRect below = table->visualRect(table->model()->index(0, FindingsSource::EvidenceColumn));
    const QImage seen = table->viewport()->grab().toImage();
    int inked = 0;
    for (int x = seen.width() - 80; x < seen.width() - 16; ++x)
        for (int y = below.center().y() + 2; y < below.bottom() - 2; ++y)
            inked += seen.pixelColor(x, y).lightness() < 160 ? 1 : 0;
    EXPECT_GT(inked, 20);
    pane.resize(900, 400);
    EXPECT_FALSE(table->isColumnHidden(FindingsSource::Size));

    // The path has no column of its own: the name's title sorts by it, too.
    const auto click = [&] {
        auto* titles = table->horizontalHeader();
        const int x = titles->sectionViewportPosition(FindingsSource::Name) + 30;
        QTest::mouseClick(titles->viewport(), Qt::LeftButton, {}, {x, titles->height() / 2});
        return table->model()->headerData(FindingsSource::Name, Qt::Horizontal).toString() + " " +
               table->model()->index(0, FindingsSource::Location).data().toString();
    };
    QStringList told;
    for (int i = 0; i < 5; ++i)
        told += click();
    EXPECT_EQ(told, QStringList({"Name /Library/Preferences/com.okaz.x",
                                 "Name /Users/alice/Library/.A_o_b_o/",
                                 "Location /Library/LaunchAgents/com.refog.agent.plist",
                                 "Location /Users/alice/Library/.A_o_b_o/",
                                 "Name /Users/alice/Library/.A_o_b_o/"}));
}

/// A report that nothing can be ticked in is still filtered and grouped.
TEST_F(MainWindowTest, WhatCannotBeSelectedCanBeFiltered)
{
    auto records = std::make_shared<SpywareList>();
    for (const char* path : {"/tmp/a", "/tmp/b"}) {
        records->push_back(
            Spyware::SpyWareSeen("x", "Threat", 1, FileURL::fileURLWithPath(path), kHighRisk));
        records->back()->setPresence(Presence::Unknown, "of another disk");
    }
    FindingsPane pane(
        "alice", {}, [](const auto&, bool) {}, FindingsSource::Of::Report);
    pane.showRecords(records);
    pane.show();
    EXPECT_TRUE(pane.findChild<QComboBox*>()->isEnabled());
    QTest::keyClicks(pane.findChild<QLineEdit*>("filter"), "/tmp/b");
    EXPECT_EQ(pane.findChild<ui::RowTable*>("findings")->model()->rowCount(), 1);
    // Why nothing is known stands in the row, not in its tooltip alone.
    EXPECT_EQ(static_cast<ui::RowModel*>(pane.findChild<ui::RowTable*>("findings")->model())
                  ->remark(pane.findChild<ui::RowTable*>("findings")->model()->index(0, 1))
                  .text,
              "of another disk");
}

double contrast(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& colour) {
        const auto part = [](double value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
               0.0722 * part(colour.blueF());
    };
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

TEST(PanelIcon, StandsOutOnDarkPanelsAndOnLightOnes)
{
    for (const QColor panel : {QColor(0, 0, 0), QColor(40, 40, 40), QColor(255, 255, 255)}) {
        for (const int size : {16, 22, 48}) {
            const QImage drawn = ui::panelIcon("spywareStatus").pixmap(size, size).toImage();
            int seen = 0;
            for (int y = 0; y < drawn.height(); ++y)
                for (int x = 0; x < drawn.width(); ++x)
                    if (const QColor pixel = drawn.pixelColor(x, y);
                        pixel.alphaF() > 0.9F && contrast(pixel, panel) >= 2.2)
                        ++seen;
            EXPECT_GT(seen, drawn.width() * drawn.height() / 2)
                << panel.name().toStdString() << " at " << size;
        }
    }
}

} // namespace
} // namespace pryvane
