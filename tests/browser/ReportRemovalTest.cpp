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
    using Paths = std::set<std::string>;
    for (const Paths& stubborn : {Paths{}, {"/tmp/a"}, {"/tmp/a", "/tmp/b"}}) {
        for (const auto form : {FailedText::Plain, FailedText::Indented}) {
            remover.stubborn = stubborn;
            openReportOf({"/tmp/a", "/tmp/b", "/tmp/c"});
            if (form == FailedText::Plain) {
                remove();
            } else { // what the panel of browsers carries on with
                notifications.post(NotificationName::ReloadReport);
                settle();
            }
            const std::size_t failed = stubborn.size();
            EXPECT_EQ(browser.removal().banner(), removalSummary({3 - failed, failed}, form));
            EXPECT_EQ(browser.removal().isFileListPresented(), failed > 0);
            EXPECT_EQ(browser.selection().quarantineBtnHide, failed == 0);
            for (const auto& threat : threats()) {
                const bool stays = stubborn.contains(threat->url.relativePath());
                EXPECT_EQ(volume.contains(threat->url.relativePath()), stays);
                EXPECT_EQ(threat->isAvail(), stays);
                EXPECT_EQ(threat->isDeleted, !stays);
            }
        }
    }
}

TEST_F(ReportRemovalTest, RemovesOnlyWhatIsCheckedAndLeavesTheStoreAlone)
{
    const std::string chrome = "/Users/alice/Library/Application Support/Google/Chrome/x";
    openReportOf({chrome, "/tmp/b", "/tmp/b"});
    workspace.running = {"Google Chrome"}; // of no concern, as its finding is not checked
    browser.checkClicked(0, false);
    volume.remove("/tmp/b"); // gone already counts as removed, and a twin once
    const auto before = defaults.getBytes(preferences::kSaveReport);
    alerts.answer(kAlertFirstButton + 1);
    browser.removeSelected();
    EXPECT_FALSE(browser.removal().isRemoving());
    remove();
    EXPECT_TRUE(volume.contains(chrome));
    EXPECT_EQ(browser.removal().deletedCount(), 1U);
    EXPECT_TRUE(threats()[1]->isDeleted && threats()[2]->isDeleted);
    EXPECT_EQ(browser.removal().banner(), removalSummary({1, 0, 1}, FailedText::Plain));
    EXPECT_EQ(defaults.getBytes(preferences::kSaveReport), before);
    browser.backtoReportList();
    EXPECT_FALSE(browser.removal().banner());

    // The browser stands in the way of its own finding alone.
    openReportOf({chrome});
    remove();
    EXPECT_TRUE(browser.removal().panel().isPresented());
    workspace.running.clear();
    browser.removal().panel().retryCleaningAction();
    settle();
    EXPECT_FALSE(volume.contains(chrome));
}

TEST_F(ReportRemovalTest, TheWholeListIsRemovedButForRemoteDesktop)
{
    const std::string desktop = "/Library/Preferences/com.apple.RemoteDesktop.plist";
    openReportOf({"/tmp/a", "/tmp/b", desktop});
    threats()[2]->infections = "Apple Remote Desktop";
    browser.checkAllAction(false);
    for (const bool whole : {false, true}) {
        remover.stubborn.clear();
        if (whole)
            alerts.answer(kAlertFirstButton);
        else
            remover.stubborn = {"/tmp/b"};
        browser.removeSpyware();
        settle();
        EXPECT_FALSE(volume.contains("/tmp/a"));
        EXPECT_EQ(volume.contains("/tmp/b"), !whole);
        EXPECT_TRUE(volume.contains(desktop));
        EXPECT_EQ(browser.removal().isFileListPresented(), !whole);
        ASSERT_EQ(alerts.asked().size(), whole ? 1U : 0U);
    }
    EXPECT_THAT(host.asked, ElementsAre("instructions", "instructions"));
    EXPECT_EQ(alerts.asked()[0].informativeText, "Selected malware successfully removed.");
}

} // namespace
} // namespace pryvane
