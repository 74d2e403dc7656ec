#include "scan/ThreatRemoval.h"

#include "scan/SessionFixture.h"
#include "support/StubbornRemover.h"
#include "support/WatchedDisk.h"

#include <gmock/gmock.h>

namespace pryvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kYes = kAlertFirstButton, kNo = kAlertFirstButton + 1;

// In the order in which a scan finds them.
constexpr const char* kAobo = "/Users/alice/Library/.A_o_b_o/";
constexpr const char* kRefog = "/Library/LaunchAgents/com.refog.agent.plist";
constexpr const char* kMdsa = "/Users/alice/Library/mdsa1331";
constexpr const char* kMdworker = "/tmp/.mdworker";
constexpr const char* kRemoteDesktop = "/Library/Preferences/com.apple.RemoteDesktop.plist";
constexpr const char* kFirefoxFind =
    "/Users/alice/Library/Application Support/Firefox/Profiles/profiled";
constexpr const char* kChromeFind = "/Users/alice/Library/Application Support/Google/Chrome/nacld";

class ThreatRemovalTest : public test::SessionFixture {
protected:
    ThreatRemovalTest()
    {
        listening = controller.removalEnded.listen([this] { ++removals; });
    }

    void scanWith(std::initializer_list<const char*> findings)
    {
        for (const char* finding : findings)
            volume.plant(finding);
        scan();
        ASSERT_EQ(controller.arrThreats().size(), findings.size());
    }

    /// Runs what starts a removal and waits for its end.
    template <typename Start>
    void removal(Start start)
    {
        const int before = removals;
        start();
        ASSERT_TRUE(mainQueue.runUntil([&] { return removals > before; }));
    }
    void deleteSelected()
    {
        alerts.answer(kYes);
        removal([this] { controller.deleteSelectedThreat(); });
    }
    /// Lets everything that is posted come to its end, and looks that nothing was removed.
    void expectUntouched(std::initializer_list<const char*> findings)
    {
        mainQueue.drain();
        EXPECT_FALSE(controller.removal().isRemoving());
        for (const char* finding : findings)
            EXPECT_TRUE(volume.contains(finding)) << finding;
    }
    int removals = 0;
    Signal::Listening listening;
    const ThreatLists& lists = controller.lists();
    FourceQuitBrowserView& panel = controller.removal().panel();
};

TEST_F(ThreatRemovalTest, SortsFindingsIntoRemovedFailedAndLeftAlone)
{
    scanWith({kAobo, kRefog, kMdsa, kMdworker});
    volume.file("/Users/alice/Library/.A_o_b_o/deep/inside");
    controller.selectThreat(0, false);
    volume.remove(kMdsa);
    // The folder is exchanged behind the scan's back for another that holds a file of that name.
    volume.file("/Users/alice/Agents/com.refog.agent.plist");
    volume.remove("/Library/LaunchAgents");
    volume.link("/Library/LaunchAgents", "/Users/alice/Agents");
    deleteSelected();

    EXPECT_EQ(alerts.asked().size(), 1U);
    EXPECT_THAT(pathsOf(lists.unDeletedSpyware), ElementsAre(kRefog));
    EXPECT_THAT(pathsOf(lists.deletedSpyware), ElementsAre(kMdsa, kMdworker));
    EXPECT_THAT(pathsOf(lists.notActionSpyware), ElementsAre(kAobo));
    EXPECT_EQ(lists.deletedCount, 2U);
    for (const auto& record : state.arrSpywareList.records()) {
        EXPECT_EQ(record->isDeleted,
                  record == lists.deletedSpyware[0] || record == lists.deletedSpyware[1]);
        EXPECT_EQ(record->isNoAction, record == lists.notActionSpyware[0]);
    }
    EXPECT_EQ(lists.unDeletedSpyware[0]->removalFailure,
              obstacleText(RemovalObstacle::LinkOnTheWay));
    EXPECT_EQ(lists.deletedSpyware[0]->removalFailure, "");
    EXPECT_FALSE(volume.contains(kMdworker));
    EXPECT_TRUE(volume.contains("/Users/alice/Agents/com.refog.agent.plist"));
    EXPECT_TRUE(volume.contains("/Users/alice/Library/.A_o_b_o/deep/inside"));

    EXPECT_THAT(pathsOf(*controller.report()->spyWareList),
                ElementsAre(kRefog, kMdsa, kMdworker, kAobo));
    EXPECT_EQ(pathsOf(state.arrSpywareList.records()).size(), 4U);
    EXPECT_EQ(controller.removal().summary(), removalSummary({2, 1, 1}));
    EXPECT_TRUE(controller.display().reportBox);
    EXPECT_FALSE(controller.display().scanBox);

    // What was left alone can be taken next, with all it holds.
    controller.selectThreat(0, true);
    controller.selectThreat(1, false);
    deleteSelected();
    EXPECT_THAT(pathsOf(lists.deletedSpyware), ElementsAre(kMdsa, kMdworker, kAobo));
    EXPECT_THAT(pathsOf(lists.notActionSpyware), ElementsAre(kRefog));
    EXPECT_TRUE(lists.deletedSpyware[2]->isDeleted && !lists.deletedSpyware[2]->isNoAction);
    EXPECT_EQ(controller.removal().summary(), removalSummary({3, 0, 1}));
    EXPECT_FALSE(volume.contains("/Users/alice/Library/.A_o_b_o"));
}

TEST_F(ThreatRemovalTest, DecliningOnlyMarksWhatWasNotSelected)
{
    scanWith({kRefog, kMdworker});
    controller.selectThreat(1, false);
    alerts.answer(kNo);
    controller.deleteSelectedThreat();
    expectUntouched({kRefog, kMdworker});
    EXPECT_THAT(pathsOf(lists.notActionSpyware), ElementsAre(kMdworker));
    EXPECT_TRUE(lists.notActionSpyware[0]->isNoAction);
    EXPECT_FALSE(state.arrSpywareList.records()[0]->isNoAction);
    EXPECT_THAT(lists.deletedSpyware, IsEmpty());
    EXPECT_FALSE(panel.isPresented());
    EXPECT_FALSE(controller.removal().summary());
}

TEST_F(ThreatRemovalTest, ARetryCarriesOnAndOrdersTheListsItsOwnWay)
{
    scanWith({kMdworker, kChromeFind, kFirefoxFind});
    controller.selectThreat(0, false);
    workspace.running = {"Firefox"};
    alerts.answer(kYes);
    controller.deleteSelectedThreat();
    EXPECT_TRUE(panel.isPresented());
    controller.deleteSelectedThreat(); // behind the sheet: nothing, not even a question
    expectUntouched({kMdworker, kChromeFind, kFirefoxFind});

    // A finding that cannot go, to see the order of the lists.
    volume.file("/other/nacld");
    volume.remove("/Users/alice/Library/Application Support/Google/Chrome");
    volume.link("/Users/alice/Library/Application Support/Google/Chrome", "/other");
    workspace.running = {"Safari"};
    removal([this] { panel.retryCleaningAction(); });
    EXPECT_THAT(pathsOf(*controller.report()->spyWareList),
                ElementsAre(kChromeFind, kMdworker, kFirefoxFind));
    EXPECT_EQ(controller.removal().summary(), removalSummary({1, 1, 1}));
    EXPECT_FALSE(volume.contains(kFirefoxFind));
    EXPECT_TRUE(volume.contains("/other/nacld"));
}

TEST_F(ThreatRemovalTest, AScanBehindThePanelEndsTheMatter)
{
    scanWith({kMdworker, kFirefoxFind});
    workspace.running = {"Firefox"};
    alerts.answer(kYes);
    controller.deleteSelectedThreat();
    volume.plant(kRefog);
    controller.SpywareScanStart(); // a timer's
    workspace.running.clear();
    panel.retryCleaningAction();
    EXPECT_FALSE(panel.isPresented());
    ASSERT_TRUE(mainQueue.runUntil([&] { return ended == 2; }));
    controller.reloadThreatDetails();
    expectUntouched({kMdworker, kFirefoxFind, kRefog});
    EXPECT_EQ(removals, 0);
}

TEST_F(ThreatRemovalTest, FindingsOfAnotherVolumeStay)
{
    test::WatchedDisk exchanged(*disk);
    volume.plant(kMdworker);
    ScanViewController other(servicesOn(exchanged), state, access, store, remover, options);
    other.SpywareScanStart();
    ASSERT_TRUE(
        mainQueue.runUntil([&] { return !other.isScanning() && !other.arrThreats().empty(); }));
    mainQueue.drain();
    exchanged.name = "B";
    alerts.answer(kYes);
    other.deleteSelectedThreat();
    ASSERT_TRUE(mainQueue.runUntil([&] { return !other.removal().isRemoving(); }));
    EXPECT_EQ(other.lists().unDeletedSpyware.at(0)->removalFailure,
              obstacleText(RemovalObstacle::OtherVolume));
    EXPECT_TRUE(volume.contains(kMdworker));
}

TEST_F(ThreatRemovalTest, RemoteDesktopIsListedAndNeverTaken)
{
    scanWith({kMdworker, kRemoteDesktop});
    EXPECT_TRUE(lists.ARDDetect);
    EXPECT_TRUE(controller.removal().removeButtonEnabled());
    EXPECT_EQ(controller.arrThreats().back()->name(), "ARD");
    controller.selectThreat(0, false);
    EXPECT_FALSE(state.arrSpywareList.records()[0]->isChecked);
    EXPECT_FALSE(controller.removal().removeButtonEnabled()) << "its row does not count";
    for (const std::size_t row : {0U, 0U, 7U})
        controller.selectThreat(row, true);
    controller.removal().planSelectedThreats();
    ASSERT_TRUE(mainQueue.runUntil([&] { return !controller.removal().isPlanning(); }));
    EXPECT_EQ(controller.removal().plan().rows.size(), 1U);
    expectUntouched({kMdworker, kRemoteDesktop});
    deleteSelected();
    EXPECT_THAT(pathsOf(lists.deletedSpyware), ElementsAre(kMdworker));
    EXPECT_THAT(pathsOf(lists.notActionSpyware), ElementsAre(kRemoteDesktop));
    EXPECT_EQ(controller.report()->spyWareList->size(), 2U);
    removal([this] { controller.removeSpyware(); });
    removal([this] { controller.removeThisSpyware(state.arrSpywareList.records()); });
    EXPECT_TRUE(volume.contains(kRemoteDesktop));
    volume.remove(kRemoteDesktop);
    scan();
    EXPECT_FALSE(lists.ARDDetect);
}

TEST_F(ThreatRemovalTest, RemoveSpywareAsksNothingAndSelectsTheWholeListAgain)
{
    scanWith({kRefog, kMdworker});
    controller.selectThreat(0, false);
    removal([this] { controller.removeSpyware(); });
    EXPECT_FALSE(volume.contains(kMdworker));
    EXPECT_TRUE(volume.contains(kRefog));
    EXPECT_THAT(pathsOf(controller.arrThreats()), ElementsAre(kRefog, kMdworker));
    EXPECT_TRUE(controller.threatFound());
    EXPECT_EQ(lists.deletedCount, 1U);
    EXPECT_THAT(pathsOf(*controller.report()->spyWareList), ElementsAre(kRefog, kMdworker));
}

TEST_F(ThreatRemovalTest, NothingElseStartsMeanwhile)
{
    std::atomic<bool> entered{false}, open{false};
    test::StubbornRemover gate(*disk);
    gate.onRemove = [&] {
        entered = true;
        while (!open)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    };
    ScanViewController gated(services(), state, access, store, gate, options);
    const auto toldOfEnd = gated.scanEnded.listen([this] { ++ended; });
    const auto toldOfRemoval = gated.removalEnded.listen([this] { ++removals; });
    volume.plant(kMdworker);
    gated.SpywareScanStart();
    ASSERT_TRUE(mainQueue.runUntil([&] { return ended == 1; }));
    alerts.answer(kYes);
    gated.deleteSelectedThreat();
    ASSERT_TRUE(mainQueue.runUntil([&] { return entered.load(); }));
    gated.SpywareScanStart();
    EXPECT_FALSE(gated.isScanning());
    EXPECT_EQ(notes.back(), "ScanStatusChange NO"); // for whoever made ready for it
    gated.deleteSelectedThreat();
    gated.removeSpyware();
    gated.selectThreat(0, false);
    gated.removal().planSelectedThreats();
    mainQueue.drain();
    EXPECT_TRUE(gated.removal().isRemoving());
    EXPECT_FALSE(gated.removal().isPlanning() || gated.removal().removeButtonEnabled());
    EXPECT_EQ(gated.arrThreats().size(), 1U);
    open = true;
    ASSERT_TRUE(mainQueue.runUntil([&] { return removals == 1; }));
    EXPECT_FALSE(volume.contains(kMdworker));
    EXPECT_EQ(gated.removal().progress().done, 1U);
    gated.SpywareScanStart();
    EXPECT_TRUE(mainQueue.runUntil([&] { return ended == 2; }));
}

} // namespace
} // namespace pryvane
