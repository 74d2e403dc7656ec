#include "app/AppFixture.h"

#include <gmock/gmock.h>

namespace pryvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AppDelegateTest : public test::AppFixture {};

TEST_F(AppDelegateTest, FirstStartAsksForAccessAndForTheSettingsFile)
{
    set(preferences::kScan, true);
    delegate.state().fullSystemScanPaths = {"left over"};
    delegate.setPrintAction([] {});
    desktop.windows.onOpen = [this] { // nothing is settled before the window is chosen
        EXPECT_EQ(desktop.settingsFile.asked, 0);
        EXPECT_TRUE(flag(preferences::kScan));
        EXPECT_TRUE(delegate.canPrint());
        EXPECT_EQ(delegate.state().fullSystemScanPaths.size(), 1U);
    };
    delegate.applicationDidFinishLaunching();

    EXPECT_THAT(desktop.windows.calls, ElementsAre("open access", "activate"));
    EXPECT_EQ(desktop.settingsFile.asked, 1);
    EXPECT_FALSE(flag(preferences::kScan));
    EXPECT_TRUE(flag(preferences::kLayoutDiagnostics));
    EXPECT_THAT(delegate.state().fullSystemScanPaths, IsEmpty());
    EXPECT_EQ(delegate.state().arrDefaultTorvellApp.size(), 4U);
    EXPECT_FALSE(delegate.canPrint());
    EXPECT_FALSE(AppDelegate::applicationShouldTerminateAfterLastWindowClosed());

    set(preferences::kScan, true);
    delegate.applicationWillTerminate();
    EXPECT_FALSE(flag(preferences::kScan));
}

TEST_F(AppDelegateTest, OnlyAGrantThatReopensLeadsToTheMainWindow)
{
    const struct {
        const char* name;
        bool stored, reopens, granted;
        const char* window;
    } rows[] = {
        {"nothing stored", false, false, false, "open access"},
        {"stale token", true, false, false, "open access"},
        {"token of this home", true, true, false, "open main"},
        {"home writable already", true, true, true, "open access"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        test::FakeDesktop fresh(clock);
        fresh.grantTokens.hostWritable = {"/Users/alice"};
        fresh.grantTokens.granted = row.granted;
        if (row.reopens)
            fresh.grantTokens.valid = {"token"};
        ASSERT_TRUE(defaults.removeObject(preferences::kSaveDirectory).ok());
        if (row.stored) {
            ASSERT_TRUE(defaults.setObject(preferences::kSaveDirectory, Bytes{"token"}).ok());
        }
        AppDelegate started(services(), fresh.services(), facts);
        started.applicationDidFinishLaunching();
        EXPECT_THAT(fresh.windows.calls, ElementsAre(row.window, "activate"));
    }
}

TEST_F(AppDelegateTest, OnlyTheExactBodyTurnsTheWholeDiskQuestionOn)
{
    const Result<std::string> noNetwork = Error{"no network"};
    const auto turnsOn = [&](const Result<std::string>& body) {
        delegate.applicationDidFinishLaunching();
        desktop.settingsFile.answer(body);
        EXPECT_TRUE(defaults.contains(preferences::kSandboxingDone));
        return flag(preferences::kSandboxingDone);
    };
    EXPECT_FALSE(turnsOn(noNetwork));
    for (const char* body : {"true\n", "TRUE", "", "\xef\xbb\xbftrue"})
        EXPECT_FALSE(turnsOn(std::string(body))) << body;
    EXPECT_TRUE(turnsOn(std::string("true")));
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(desktop.settingsFile.asked, 6) << "asked though YES";
    // A late reply meets nobody.
    ASSERT_TRUE(defaults.set(preferences::kSandboxingDone, false).ok());
    AppDelegate(services(), desktop.services(), facts).applicationDidFinishLaunching();
    desktop.settingsFile.answer(std::string("true"));
    EXPECT_FALSE(flag(preferences::kSandboxingDone));
}

TEST_F(AppDelegateTest, TheWindowMenuHoldsFiveOrSixEntries)
{
    delegate.applicationDidFinishLaunching();
    delegate.openMainWindow();
    for (int times = 0; times < 2; ++times) {
        notifications.post(NotificationName::RemoveMenuItem);
        EXPECT_EQ(delegate.windowMenu().size(), 5U);
    }
    takeWindowCalls();
    EXPECT_TRUE(delegate.applicationShouldHandleReopen());
    EXPECT_THAT(takeWindowCalls(), ElementsAre("front main", "activate"));
    delegate.applicationShouldHandleReopen();
    EXPECT_EQ(delegate.windowMenu().size(), 6U);
    EXPECT_FALSE(delegate.windowMenu().back().checked);
    delegate.bringAllAppToFront();
    EXPECT_EQ(delegate.windowMenu().size(), 6U);
    EXPECT_TRUE(delegate.windowMenu().back().checked);

    const auto performed = [&](const char* title) {
        takeWindowCalls();
        for (const WindowMenuEntry& entry : delegate.windowMenu())
            if (entry.title == title)
                delegate.perform(entry.command);
        return takeWindowCalls();
    };
    EXPECT_THAT(performed("Minimize"), ElementsAre("minimise main"));
    EXPECT_THAT(performed("Minimize"), ElementsAre("restore main"));
    EXPECT_THAT(performed("Zoom"), ElementsAre("zoom main"));
    EXPECT_THAT(performed("Bring All to Front"), ElementsAre("front main"));
}

TEST_F(AppDelegateTest, AWindowIsHiddenOnlyWhereTheStatusItemCanBringItBack)
{
    delegate.applicationDidFinishLaunching();
    delegate.closeButtonClicked(0);
    EXPECT_TRUE(desktop.windows.isMinimised(ShellWindow::Access)) << "there is no item yet";

    delegate.openMainWindow();
    desktop.statusItem.create("spywareStatus", 18);
    delegate.closeButtonClicked(0);
    EXPECT_FALSE(desktop.windows.isVisible(ShellWindow::Main));
    EXPECT_EQ(delegate.windowMenu().size(), 5U);
    delegate.keepReachable();
    EXPECT_FALSE(desktop.windows.isVisible(ShellWindow::Main));

    desktop.statusItem.setHasPlace(false);
    delegate.keepReachable();
    EXPECT_TRUE(desktop.windows.isVisible(ShellWindow::Main));
    delegate.closeButtonClicked(0);
    EXPECT_TRUE(desktop.windows.isVisible(ShellWindow::Main));
    EXPECT_TRUE(desktop.windows.isMinimised(ShellWindow::Main));
    delegate.minimizeTo();
    EXPECT_FALSE(desktop.windows.isMinimised(ShellWindow::Main));

    delegate.getHelp();
    delegate.closeButtonClicked(1);
    EXPECT_FALSE(desktop.windows.isVisible(ShellWindow::Help));
    EXPECT_TRUE(desktop.windows.isVisible(ShellWindow::Main));
}

} // namespace
} // namespace pryvane
