#include "app/ScanOutside.h"

#include "app/AppFixture.h"
#include "platform/Remover.h"
#include "reports/DefaultMethods.h"
#include "scan/ScanViewController.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace pryvane {
namespace {

class ScanOutsideTest : public test::AppFixture {
protected:
    /// Runs a scan to its end and gives what the desktop was told of it.
    std::vector<std::string> scan()
    {
        userNotifier = {};
        desktop.taskProgress.shown.clear();
        bool hasEnded = false;
        const auto ended = controller.scanEnded.listen([&] { hasEnded = true; });
        controller.SpywareScanStart();
        EXPECT_TRUE(mainQueue.runUntil([&] { return hasEnded; }));
        return userNotifier.concluded;
    }

    NoRemover remover;
    DefaultMethods store{defaults, *disk, clock, log};
    ScanViewController controller{services(), delegate.state(),
                                  access,     store,
                                  remover,    ScanOptions{"alice", FileURL::fileURLWithPath("/")}};
    std::vector<std::string> shown;
    ScanOutside outside{services(), desktop.services(), delegate, controller,
                        {.findings = [this] { shown.emplace_back("findings"); },
                         .report = [this](const auto&) { shown.emplace_back("report"); }}};
};

TEST_F(ScanOutsideTest, TellsTheEndOnceUnlessItIsSeenOrRoutine)
{
    delegate.makeUIForApp();
    const std::string clean = "No Potential Threats Detected: Clean: nothing found.";
    const std::string found = "Potential Threats Detected: Found: 1 potential threat.";
    const struct {
        bool isFound, isLookedAt, isRoutine;
        std::vector<std::string> told;
    } rows[] = {
        {false, false, false, {clean}}, {false, true, false, {}}, {false, false, true, {}},
        {true, false, true, {found}},   {true, true, false, {}},  {true, false, false, {found}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        if (row.isFound)
            volume.file("Users/alice/Library/mdsa1331");
        desktop.windows.hasKeyboard = row.isLookedAt;
        delegate.requestScan();
        delegate.state().isRoutine = row.isRoutine;
        EXPECT_EQ(scan(), row.told);
        EXPECT_EQ(userNotifier.withdrawn, row.told.empty() ? 1 : 0);
        const auto& shares = desktop.taskProgress.shown;
        EXPECT_EQ(shares.back(), -1);
        EXPECT_EQ(std::ranges::count(shares, -1), 1);
        EXPECT_TRUE(std::ranges::is_sorted(shares.begin(), shares.end() - 1));
    }
    takeWindowCalls();
    userNotifier.show();
    EXPECT_EQ(takeWindowCalls(), (Texts{"front main", "activate"}));
    const auto earlier = userNotifier.show;
    scan();
    earlier();
    EXPECT_EQ(shown, (Texts{"findings", "report"})) << "by then another scan has ended";
}

TEST_F(ScanOutsideTest, WhatIsCountedHasNoShareAndAStopEndsIt)
{
    delegate.state().isDeepScan = true;
    std::size_t whileCounting = 1;
    const auto changed = controller.stateChanged.listen([&] {
        if (controller.display().scanTypeLabel == "Calculating Files:")
            whileCounting = desktop.taskProgress.shown.size();
        else
            delegate.state().isScanStop.request();
    });
    EXPECT_THAT(scan(), testing::SizeIs(1));
    EXPECT_EQ(whileCounting, 0U);
    EXPECT_TRUE(desktop.taskProgress.shown.empty() || desktop.taskProgress.shown.back() == -1);
}

} // namespace
} // namespace pryvane
