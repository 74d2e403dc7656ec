// The tools screen without its window: from the catalogue over the preview to a clean disk.
#include "privacy/ToolsViewController.h"

#include "inventory/InventoryController.h"
#include "support/CleanerFixture.h"
#include "support/Fakes.h"

#include <gmock/gmock.h>

namespace pryvane::test {

namespace {

using State = ToolsViewController::State;
using testing::ElementsAre;

class ToolsViewControllerTest : public CleanerFixture {
protected:
    ToolsViewControllerTest()
    {
        volume.folder("/Applications/Safari.app");
        volume.file(m_history, std::string(5000, 'x'));
        volume.file(m_log, std::string(5000, 'x'));
    }

    void makeController()
    {
        controller = std::make_unique<ToolsViewController>(
            ToolsViewController::Services{services(), remover(), queue, alerts, workspace},
            "alice");
        controller->resetAndAddavailbleApplications();
        ASSERT_TRUE(reaches(State::Idle));
    }
    bool reaches(State state)
    {
        return queue.runUntil([&] { return controller->state() == state; });
    }
    /// Ticks Safari's history and the system's logs.
    void tick()
    {
        for (std::size_t group = 0; group < controller->availbleApp().size(); ++group) {
            const auto& list = controller->availbleApp()[group].List;
            for (std::size_t item = 0; item < list.size(); ++item)
                controller->setChecked(group, item, list[item].NameText != "User preferences");
        }
    }

    const std::string m_history = kHome + "/Library/Safari/History.db";
    const std::string m_log = kHome + "/Library/Logs/a.log";
    ManualMainQueue queue;
    ScriptedAlerts alerts;
    FakeWorkspace workspace;
    std::unique_ptr<ToolsViewController> controller;
};

} // namespace

TEST_F(ToolsViewControllerTest, CleansWhatIsTickedSaysSoAndMeasuresAnew)
{
    makeController();
    controller->previewSelected(); // nothing is ticked
    EXPECT_EQ(controller->state(), State::Idle);
    tick();
    EXPECT_THAT(controller->toolsSelectedDic(),
                ElementsAre(testing::Pair("Safari", ElementsAre("History")),
                            testing::Pair("System", ElementsAre("System Log Files"))));
    EXPECT_TRUE(controller->availbleApp()[0].isChecked);

    controller->previewSelected();
    ASSERT_TRUE(reaches(State::Previewing));
    EXPECT_TRUE(controller->preview().openBrowsers().empty());
    EXPECT_TRUE(volume.contains(m_history));
    controller->cancelPreview();
    EXPECT_EQ(controller->state(), State::Idle);
    controller->cleanAndReloadData(); // nothing was previewed
    EXPECT_EQ(controller->state(), State::Idle);

    controller->previewSelected();
    ASSERT_TRUE(reaches(State::Previewing));
    ASSERT_EQ(controller->preview().rows.size(), 2U);
    controller->setPreviewTicked(0, false);
    alerts.answer(kAlertFirstButton);
    controller->cleanAndReloadData();
    ASSERT_TRUE(reaches(State::Scanning));
    ASSERT_TRUE(reaches(State::Idle));
    EXPECT_TRUE(volume.contains(m_history));
    EXPECT_FALSE(volume.contains(m_log));
    EXPECT_TRUE(controller->outcome().stayed.empty());
    ASSERT_EQ(alerts.asked().size(), 1U);
    EXPECT_EQ(alerts.asked()[0].messageText, "Alert");
    EXPECT_EQ(alerts.asked()[0].informativeText, "You have successfully cleared selected data.");
    EXPECT_EQ(controller->availbleApp().back().Size, "0 byte");
    EXPECT_TRUE(controller->toolsSelectedDic().empty());
    controller->setGroupChecked(0, true);
    EXPECT_EQ(controller->toolsSelectedDic().size(), 1U);
}

TEST_F(ToolsViewControllerTest, ListsWhatStayedAndWhy)
{
    remover().stubborn = {m_history};
    for (const bool runs : {false, true}) {
        workspace.running = runs ? std::vector<std::string>{"Safari"} : std::vector<std::string>();
        makeController();
        tick();
        controller->previewSelected();
        ASSERT_TRUE(reaches(State::Previewing));
        EXPECT_EQ(controller->preview().openBrowsers().size(), runs ? 1U : 0U);
        alerts.answer(kAlertFirstButton);
        controller->cleanAndReloadData();
        ASSERT_TRUE(reaches(State::Scanning));
        ASSERT_EQ(controller->outcome().stayed.size(), 1U);
        EXPECT_EQ(controller->outcome().stayed[0].item, "History");
        EXPECT_EQ(controller->outcome().stayed[0].reason.find("Safari is running"),
                  runs ? 0U : std::string::npos);
    }
}

TEST_F(ToolsViewControllerTest, MayBeScannedAnewAndDestroyedAtAnyMoment)
{
    for (int i = 0; i < 300; ++i)
        volume.file(kHome + "/Library/Caches/" + std::to_string(i) + "/file");
    for (int round = 0; round < 20; ++round) {
        controller = std::make_unique<ToolsViewController>(
            ToolsViewController::Services{services(), remover(), queue, alerts, workspace},
            "alice");
        controller->resetAndAddavailbleApplications();
        controller->resetAndAddavailbleApplications();
        if (round % 2) {
            ASSERT_TRUE(reaches(State::Idle));
            EXPECT_EQ(controller->availbleApp().size(), 3U) << "groups of both scans";
        }
        controller.reset();
        queue.drain();
        InventoryController inventory({services(), queue}, "alice");
        inventory.viewWillAppear();
        if (round % 2)
            inventory.stop();
        ASSERT_TRUE(round % 4 == 0 || queue.runUntil([&] { return !inventory.isGathering(); }));
        EXPECT_FALSE(round % 2 && inventory.isWhole());
    }
    queue.drain();
}

/// The message runs a loop of its own, in which the user may turn to another volume.
TEST_F(ToolsViewControllerTest, MayGoWhileItsMessageIsShown)
{
    struct LastAlert final : Alerts {
        std::function<void()> shown;
        int runModal(const Alert&) override
        {
            shown();
            return kAlertFirstButton;
        }
    } last;
    last.shown = [this] { controller.reset(); };
    controller = std::make_unique<ToolsViewController>(
        ToolsViewController::Services{services(), remover(), queue, last, workspace}, "alice");
    controller->resetAndAddavailbleApplications();
    ASSERT_TRUE(reaches(State::Idle));
    tick();
    controller->previewSelected();
    ASSERT_TRUE(reaches(State::Previewing));
    controller->cleanAndReloadData();
    ASSERT_TRUE(queue.runUntil([&] { return !controller; }));
    queue.drain();
    EXPECT_FALSE(volume.contains(m_log));
}

} // namespace pryvane::test
