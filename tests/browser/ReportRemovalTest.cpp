#include "browser/BrowserFixture.h"

namespace pryvane {
namespace {

using testing::ElementsAre;

class ReportRemovalTest : public test::BrowserFixture {
protected:
    void openReportOf(const std::vector<std::string>& paths)
    {
        store(paths);
        showList();
        open(0);
    }
    void remove()
    {
        alerts.answer(kAlertFirstButton);
        browser.removeSelected();
        settle();
    }
};

TEST_F(ReportRemovalTest, TheBannerTellsHowManyRemain)
{
    const struct {
        std::set<std::string> stubborn;
        const char *failed, *background, *information, *icon;
    } rows[] = {
        {{}, "", "no_threats_bg", "All threats are Removed", "icn_white_check"},
        {{"/tmp/a"}, "1 Failed", "report_bg", "One Threat Remaining", "icn_white"},
        {{"/tmp/a", "/tmp/b"}, "2 Failed", "report_bg", "Multiple Threats Remaining", "icn_white"},
    };
    for (const auto& row : rows) {
        for (const bool again : {false, true}) {
            remover.stubborn = row.stubborn;
            openReportOf({"/tmp/a", "/tmp/b", "/tmp/c"});
            if (again) {
                notifications.post(NotificationName::ReloadReport);
                settle();
            } else {
                remove();
            }
            const std::size_t failed = row.stubborn.size();
            const std::string text = (again && failed > 0 ? "  " : "") + std::string(row.failed);
            const auto& banner = browser.removal().banner();
            ASSERT_TRUE(banner);
            EXPECT_EQ(*banner, (RemovalSummary{text, row.background, row.information, row.icon,
                                               RemovalCounts{3 - failed, failed}.text()}));
            EXPECT_EQ(browser.removal().deletedCount(), 3 - failed);
            EXPECT_EQ(browser.removal().isFileListPresented(), failed > 0);
            EXPECT_EQ(browser.removal().listUnDeleted().size(), failed);
            EXPECT_EQ(browser.selection().quarantineBtnHide, failed == 0);
            for (const auto& threat : threats()) {
                const bool stays = row.stubborn.contains(threat->url.relativePath());
                EXPECT_EQ(volume.contains(threat->url.relativePath()), stays);
                EXPECT_EQ(threat->isAvail(), stays);
                EXPECT_EQ(threat->isDeleted, !stays);
                EXPECT_FALSE(threat->isNoAction);
                EXPECT_EQ(threat->removalFailure.empty(), !stays);
            }
        }
    }
}

TEST_F(ReportRemovalTest, RemovesOnlyWhatIsCheckedAndLeavesTheStoreAlone)
{
    openReportOf({"/tmp/a", "/tmp/b", "/tmp/b"});
    browser.checkClicked(0, false);
    volume.remove("/tmp/b"); // gone already counts as removed, and a twin once
    const auto before = defaults.getBytes(preferences::kSaveReport);
    alerts.answer(kAlertFirstButton + 1);
    browser.removeSelected();
    EXPECT_FALSE(browser.removal().isRemoving());
    remove();
    EXPECT_TRUE(volume.contains("/tmp/a"));
    EXPECT_EQ(browser.removal().deletedCount(), 1U);
    EXPECT_TRUE(threats()[1]->isDeleted && threats()[2]->isDeleted);
    ASSERT_TRUE(browser.removal().banner());
    EXPECT_EQ(browser.removal().banner()->informationText, "All threats are Removed");
    EXPECT_EQ(defaults.getBytes(preferences::kSaveReport), before);
    browser.backtoReportList();
    EXPECT_FALSE(browser.removal().banner());
}

TEST_F(ReportRemovalTest, OnlyTheBrowsersOfWhatIsCheckedInThisReportMatter)
{
    const std::string chrome = "/Users/alice/Library/Application Support/Google/Chrome/x";
    openReportOf({"/tmp/a", chrome});
    workspace.running = {"Google Chrome"};
    browser.checkClicked(1, false); // only what is selected counts
    remove();
    EXPECT_FALSE(volume.contains("/tmp/a"));

    openReportOf({chrome});
    remove();
    EXPECT_TRUE(browser.removal().panel().isPresented());
    workspace.running.clear();
    browser.removal().panel().retryCleaningAction();
    settle();
    EXPECT_FALSE(volume.contains(chrome));
    ASSERT_TRUE(browser.removal().banner());
    EXPECT_EQ(browser.removal().banner()->informationText, "All threats are Removed");
}

TEST_F(ReportRemovalTest, TheWholeListIsRemovedButForRemoteDesktop)
{
    const std::string desktop = "/Library/Preferences/com.apple.RemoteDesktop.plist";
    openReportOf({"/tmp/a", "/tmp/b", desktop});
    threats()[2]->infections = "Apple Remote Desktop";
    browser.checkAllAction(false);
    remover.stubborn = {"/tmp/b"};
    browser.removeSpyware();
    settle();
    EXPECT_THAT(host.asked, ElementsAre("instructions"));
    EXPECT_TRUE(volume.contains(desktop));
    EXPECT_FALSE(volume.contains("/tmp/a"));
    ASSERT_EQ(browser.removal().listUnDeleted().size(), 1U);
    EXPECT_TRUE(browser.removal().isFileListPresented());
    EXPECT_TRUE(alerts.asked().empty());

    remover.stubborn.clear();
    alerts.answer(kAlertFirstButton);
    browser.removeSpyware();
    settle();
    ASSERT_EQ(alerts.asked().size(), 1U);
    EXPECT_EQ(alerts.asked()[0].informativeText, "Selected malware successfully removed.");
    EXPECT_FALSE(volume.contains("/tmp/b"));
    EXPECT_TRUE(volume.contains(desktop));
}

} // namespace
} // namespace pryvane
