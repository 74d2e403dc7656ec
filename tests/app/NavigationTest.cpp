#include "app/AppFixture.h"
#include "app/DetailsViewController.h"

#include <gmock/gmock.h>

namespace pryvane {
namespace {

using testing::ElementsAre;

/// Screens that write down what happens to them.
class RecordingScreens final : public ScreenFactory {
public:
    std::vector<std::string> calls;
    std::unique_ptr<Screen> makeScreen(Row row) override
    {
        struct Recorded final : Screen {
            Recorded(std::vector<std::string>& log, std::string title)
                : calls(log), name(std::move(title))
            {
            }
            void viewWillAppear() override { calls.push_back("appear " + name); }
            void SpywareScanStart() override { calls.push_back("start " + name); }
            std::vector<std::string>& calls;
            std::string name;
        };
        const std::string name(kRowTitles.at(static_cast<std::size_t>(rowIndex(row))));
        calls.push_back("make " + name);
        return std::make_unique<Recorded>(calls, name);
    }
    std::vector<std::string> take() { return std::exchange(calls, {}); }
};

class NavigationTest : public test::AppFixture {
protected:
    RecordingScreens screens;
    TableViewController table{notifications};
    std::unique_ptr<DetailsViewController> details =
        std::make_unique<DetailsViewController>(services(), delegate, screens);
};

TEST_F(NavigationTest, TheUserOnlySwitchesScreensWhichAreMadeOnceAndKept)
{
    details->viewDidLoad();
    table.selectRow(3);
    delegate.setPrintAction([] {});
    table.selectRow(0);
    table.selectRow(0);
    table.selectRow(4);
    table.selectRow(-1);
    mainQueue.drain();
    EXPECT_THAT(screens.take(), ElementsAre("make Dashboard", "appear Dashboard", "make Reports",
                                            "appear Reports", "appear Dashboard"));
    EXPECT_THAT(notes,
                ElementsAre("MainTableSelectionChange 3 0 0", "MainTableSelectionChange 0 0 0"));
    EXPECT_FALSE(delegate.canPrint()) << "the reports' print action went with their screen";
    EXPECT_EQ(table.selectedRow(), Row::Dashboard);
}

TEST_F(NavigationTest, ARequestShowsTheScanScreenAndStartsItALittleLater)
{
    details->viewDidLoad();
    screens.take();
    delegate.requestScan();
    EXPECT_EQ(table.selectedRow(), Row::Scan);
    EXPECT_EQ(details->currentRow(), Row::Scan);
    EXPECT_THAT(screens.take(), ElementsAre("make Scan", "appear Scan"));
    mainQueue.drain();
    EXPECT_THAT(screens.take(), ElementsAre("start Scan"));
    EXPECT_TRUE(takeWindowCalls().empty());

    delegate.requestScan();
    notifications.post(NotificationName::MainTableChangedManually, std::int64_t{99});
    notifications.post(NotificationName::MainTableSelectionChange, SelectionChange{99, true, true});
    details.reset();
    mainQueue.drain();
    EXPECT_THAT(screens.take(), ElementsAre("appear Scan")) << "the window has gone meanwhile";
}

} // namespace
} // namespace pryvane
