#include "scan/ThreatRemoval.h"

#include "scan/SessionFixture.h"
#include "support/ForwardingDisk.h"

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

std::vector<std::string> paths(const SpywareList& list)
{
    std::vector<std::string> texts;
    for (const auto& record : list)
        texts.push_back(record->url.relativePath());
    return texts;
}

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

    ASSERT_EQ(alerts.asked().size(), 1U);
    EXPECT_EQ(alerts.asked()[0].messageText, "Alert");
    EXPECT_EQ(alerts.asked()[0].informativeText,
              "Are you sure you want to delete selected threats?");
    EXPECT_THAT(paths(lists.unDeletedSpyware), ElementsAre(kRefog));
    EXPECT_THAT(paths(lists.deletedSpyware), ElementsAre(kMdsa, kMdworker));
    EXPECT_THAT(paths(lists.notActionSpyware), ElementsAre(kAobo));
    EXPECT_EQ(lists.deletedCount, 2U);
    const auto flags = [](const Spyware& record) {
        return std::pair(record.isDeleted, record.isNoAction);
    };
    EXPECT_EQ(flags(*lists.unDeletedSpyware[0]), std::pair(false, false));
    EXPECT_EQ(flags(*lists.deletedSpyware[0]), std::pair(true, false));
    EXPECT_EQ(flags(*lists.notActionSpyware[0]), std::pair(false, true));
    EXPECT_EQ(lists.unDeletedSpyware[0]->removalFailure,
              obstacleText(RemovalObstacle::LinkOnTheWay));
    EXPECT_EQ(lists.deletedSpyware[0]->removalFailure, "");
    EXPECT_FALSE(volume.contains(kMdworker));
    EXPECT_TRUE(volume.contains("/Users/alice/Agents/com.refog.agent.plist"));
    EXPECT_TRUE(volume.contains("/Users/alice/Library/.A_o_b_o/deep/inside"));

    EXPECT_THAT(paths(*controller.report()->spyWareList),
                ElementsAre(kRefog, kMdsa, kMdworker, kAobo));
    EXPECT_EQ(paths(state.arrSpywareList.records()).size(), 4U);
    EXPECT_EQ(controller.removal().summary(), removalSummary({2, 1, 1}));
    EXPECT_TRUE(controller.display().reportBox);
    EXPECT_FALSE(controller.display().scanBox);

    // What was left alone can be taken next, with all it holds.
    controller.selectThreat(0, true);
    controller.selectThreat(1, false);
    deleteSelected();
    EXPECT_THAT(paths(lists.deletedSpyware), ElementsAre(kMdsa, kMdworker, kAobo));
    EXPECT_THAT(paths(lists.notActionSpyware), ElementsAre(kRefog));
    for (const auto& record : lists.deletedSpyware)
        EXPECT_EQ(flags(*record), std::pair(true, false)) << record->name();
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
    EXPECT_THAT(paths(lists.notActionSpyware), ElementsAre(kMdworker));
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
    EXPECT_THAT(paths(*controller.report()->spyWareList),
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
    struct Exchanged final : test::ForwardingDisk {
        using ForwardingDisk::ForwardingDisk;
        std::string identity() const override { return exchanged ? "B" : "A"; }
        bool exchanged = false;
    } exchangedDisk(*disk);
    volume.plant(kMdworker);
    PlatformServices others{exchangedDisk, defaults,     notifications, mainQueue,    clock,
                            alerts,        folderPicker, workspace,     userNotifier, log};
    ScanViewController other(others, state, access, store, remover,
                             ScanOptions{"alice", FileURL::fileURLWithPath("/")});
    other.SpywareScanStart();
    ASSERT_TRUE(
        mainQueue.runUntil([&] { return !other.isScanning() && !other.arrThreats().empty(); }));
    mainQueue.drain();
    exchangedDisk.exchanged = true;
    alerts.answer(kYes);
    other.deleteSelectedThreat();
    ASSERT_TRUE(mainQueue.runUntil([&] { return !other.removal().isRemoving(); }));
    EXPECT_EQ(other.lists().unDeletedSpyware.at(0)->removalFailure,
              obstacleText(RemovalObstacle::OtherVolume));
    EXPECT_TRUE(volume.contains(kMdworker));
}

TEST_F(ThreatRemovalTest, TheRemoveButtonDoesNotCountTheRemoteDesktopRow)
{
    scanWith({kMdworker, kRemoteDesktop});
    EXPECT_TRUE(lists.ARDDetect);
    EXPECT_TRUE(controller.removal().removeButtonEnabled());
    EXPECT_EQ(controller.arrThreats().back()->name(), "ARD");
    controller.selectThreat(0, false);
    EXPECT_FALSE(state.arrSpywareList.records()[0]->isChecked);
    EXPECT_FALSE(controller.removal().removeButtonEnabled());
    controller.selectThreat(0, true);
    controller.selectThreat(0, true);
    controller.selectThreat(7, true);
    EXPECT_EQ(controller.arrThreats().size(), 2U);
    EXPECT_TRUE(controller.removal().removeButtonEnabled());

    volume.remove(kRemoteDesktop);
    scan();
    EXPECT_FALSE(lists.ARDDetect);
    EXPECT_TRUE(controller.removal().removeButtonEnabled());
}

TEST_F(ThreatRemovalTest, RemoveSpywareAsksNothingAndSelectsTheWholeListAgain)
{
    scanWith({kRefog, kMdworker});
    controller.selectThreat(0, false);
    removal([this] { controller.removeSpyware(); });
    EXPECT_FALSE(volume.contains(kMdworker));
    EXPECT_TRUE(volume.contains(kRefog));
    EXPECT_THAT(paths(controller.arrThreats()), ElementsAre(kRefog, kMdworker));
    EXPECT_TRUE(controller.threatFound());
    EXPECT_EQ(lists.deletedCount, 1U);
    EXPECT_THAT(paths(*controller.report()->spyWareList), ElementsAre(kRefog, kMdworker));
}

TEST_F(ThreatRemovalTest, RemoteDesktopIsNeitherPlannedNorRemoved)
{
    scanWith({kAobo, kMdworker, kRemoteDesktop});
    controller.removal().planSelectedThreats();
    ASSERT_TRUE(mainQueue.runUntil([&] { return !controller.removal().isPlanning(); }));
    EXPECT_EQ(controller.removal().plan().rows.size(), 2U);
    expectUntouched({kAobo, kMdworker, kRemoteDesktop});
    deleteSelected();
    EXPECT_THAT(paths(lists.deletedSpyware), ElementsAre(kAobo, kMdworker));
    EXPECT_THAT(paths(lists.notActionSpyware), ElementsAre(kRemoteDesktop));
    EXPECT_EQ(controller.report()->spyWareList->size(), 3U);
    removal([this] { controller.removeSpyware(); });
    removal([this] { controller.removeThisSpyware(state.arrSpywareList.records()); });
    EXPECT_TRUE(volume.contains(kRemoteDesktop));
}

/// Waits, before it removes, until it is let go.
class GatedRemover final : public Remover {
public:
    explicit GatedRemover(Remover& remover) : m_remover(remover) {}
    void plan(std::span<const RemovalItem> items, const StopFlag& stop,
              const RemovalForecasts& told) override
    {
        m_remover.plan(items, stop, told);
    }
    void remove(std::span<const RemovalItem> items, const StopFlag& stop,
                const RemovalResults& told) override
    {
        entered = true;
        while (!open && !stop.requested())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        m_remover.remove(items, stop, told);
    }
    std::atomic<bool> entered{false}, open{false};

private:
    Remover& m_remover;
};

TEST_F(ThreatRemovalTest, NothingElseStartsMeanwhile)
{
    GatedRemover gate(remover);
    ScanViewController gated(services(), state, access, store, gate,
                             ScanOptions{"alice", FileURL::fileURLWithPath("/")});
    const auto toldOfEnd = gated.scanEnded.listen([this] { ++ended; });
    const auto toldOfRemoval = gated.removalEnded.listen([this] { ++removals; });
    volume.plant(kMdworker);
    gated.SpywareScanStart();
    ASSERT_TRUE(mainQueue.runUntil([&] { return ended == 1; }));
    alerts.answer(kYes);
    gated.deleteSelectedThreat();
    ASSERT_TRUE(mainQueue.runUntil([&] { return gate.entered.load(); }));
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
    gate.open = true;
    ASSERT_TRUE(mainQueue.runUntil([&] { return removals == 1; }));
    EXPECT_FALSE(volume.contains(kMdworker));
    EXPECT_EQ(gated.removal().progress().done, 1U);
    gated.SpywareScanStart();
    EXPECT_TRUE(mainQueue.runUntil([&] { return ended == 2; }));
}

} // namespace
} // namespace pryvane
