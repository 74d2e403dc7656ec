// The sheet that asks what to look at, over a window of its own.
#include "app/views/VolumeSheet.h"

#include "app/views/OpeningWindow.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

namespace pryvane::test {

namespace {

class VolumeSheetTest : public testing::Test {
protected:
    VolumeSheetTest()
    {
        window.resize(900, 600);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        VolumeSheet::Asks asks;
        asks.pickFolder = [](const std::string&) { return std::optional<std::string>("/mnt/mac"); };
        asks.pickFile = [](const std::string&) { return std::optional<std::string>("/x/mac.img"); };
        asks.look = [this](const std::string& place, const std::string& password,
                           VolumeSheet::Told told) {
            asked.push_back(place + ":" + password);
            pending = std::move(told);
            if (place != "/x/mac.img")
                pending({{"alice", "bob"}, std::nullopt, false});
        };
        asks.progress = [] { return "Reading names: 17 entries"; };
        asks.stop = [this] { ++stopped; };
        asks.open = [this](const std::string& place, const std::string& user,
                           const std::string& password) {
            opened = place + ":" + user + ":" + password;
        };
        sheet = new VolumeSheet(&window, std::move(asks), "/mnt/other", "bob");
        sheet->present();
    }

    template <typename Widget>
    Widget* find(const char* name)
    {
        return sheet->findChild<Widget*>(QLatin1String(name));
    }

    bool says(const QString& words)
    {
        const auto labels = sheet->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) {
            return label->isVisible() && label->text().contains(words);
        });
    }

    QWidget window;
    VolumeSheet* sheet = nullptr;
    VolumeSheet::Told pending;
    std::vector<std::string> asked;
    std::string opened;
    int stopped = 0;
};

TEST_F(VolumeSheetTest, KeepsTheUserThatWasLookedAt)
{
    find<QPushButton>("openChosen")->click();
    EXPECT_EQ(opened, "/mnt/other:bob:");
}

TEST_F(VolumeSheetTest, ShowsHowFarReadingIsAndAsksForThePasswordOfALockedImage)
{
    auto* open = find<QPushButton>("openChosen");
    auto* password = find<QLineEdit>("password");
    auto* bar = sheet->findChild<QProgressBar*>();
    EXPECT_FALSE(password->isVisible());
    EXPECT_FALSE(bar->isVisible());
    find<QPushButton>("chooseFile")->click();
    EXPECT_TRUE(bar->isVisible());
    EXPECT_TRUE(says("17 entries"));
    EXPECT_FALSE(open->isEnabled());

    pending({{}, "its volume is encrypted", true});
    EXPECT_FALSE(bar->isVisible());
    EXPECT_TRUE(password->isVisible());
    EXPECT_EQ(password->echoMode(), QLineEdit::Password);
    EXPECT_TRUE(says("encrypted"));
    EXPECT_FALSE(open->isEnabled());
    QTest::keyClicks(password, "wrong");
    QTest::keyClick(password, Qt::Key_Return);
    EXPECT_TRUE(bar->isVisible());
    pending({{}, "its volume is encrypted", true});
    EXPECT_TRUE(says("does not unlock"));
    password->setText("right");
    find<QPushButton>("unlock")->click();
    pending({{"alice"}, std::nullopt, false});
    EXPECT_FALSE(password->isVisible());
    EXPECT_TRUE(open->isEnabled());
    EXPECT_EQ(asked.back(), "/x/mac.img:right");
    open->click();
    EXPECT_EQ(opened, "/x/mac.img::right"); // no bob on it
}

TEST_F(VolumeSheetTest, WhatIsToldAfterItWasClosedIsDropped)
{
    find<QPushButton>("chooseFile")->click();
    QTest::keyClick(sheet, Qt::Key_Escape);
    EXPECT_EQ(stopped, 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    pending({{"alice"}, std::nullopt, false});
    EXPECT_EQ(opened, "");
}

/// The window that opens a file when there is none to lay a sheet over.
TEST(OpeningWindow, AsksForThePasswordOnlyOfADiskThatIsLocked)
{
    OpeningWindow window("/x/mac.img");
    QStringList given;
    int cancelled = 0;
    QObject::connect(&window, &OpeningWindow::passwordGiven,
                     [&](const QString& password) { given.push_back(password); });
    QObject::connect(&window, &OpeningWindow::cancelled, [&] { ++cancelled; });
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto* password = window.findChild<QLineEdit*>("password");
    auto* bar = window.findChild<QProgressBar*>();
    window.showProgress("Reading names: 17 entries");
    EXPECT_TRUE(bar->isVisible());
    EXPECT_FALSE(password->isVisible());
    window.askForPassword(false);
    EXPECT_FALSE(bar->isVisible());
    QTest::keyClicks(QApplication::focusWidget(), "wrong");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    window.askForPassword(true);
    QTest::keyClicks(QApplication::focusWidget(), "right"); // in place of it
    window.findChild<QPushButton*>("unlock")->click();
    EXPECT_EQ(given, (QStringList{"wrong", "right"}));
    window.close();
    EXPECT_EQ(cancelled, 1);
}

} // namespace

} // namespace pryvane::test
