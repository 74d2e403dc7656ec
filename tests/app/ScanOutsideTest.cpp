#include "app/ScanOutside.h"

#include "app/AppFixture.h"
#include "platform/Remover.h"
#include "reports/DefaultMethods.h"
#include "scan/ScanViewController.h"

#include <algorithm>

namespace pryvane {
namespace {

using ScanOutsideTest = test::AppFixture;

TEST_F(ScanOutsideTest, TellsTheEndOnceUnlessItIsSeenOrRoutine)
{
    NoRemover remover;
    DefaultMethods store{defaults, *disk, clock, log};
    ScanViewController scan{services(), delegate.state(),
                            access,     store,
                            remover,    ScanOptions{"alice", FileURL::fileURLWithPath("/")}};
    Texts shown;
    const ScanOutside outside{services(),
                              desktop.services(),
                              delegate,
                              scan,
                              {.findings = [&] { shown.emplace_back("findings"); },
                               .report = [&](const auto&) { shown.emplace_back("report"); }}};
    delegate.makeUIForApp();
    const std::string clean = "No Potential Threats Detected: Clean: nothing found.";
    const std::string found = "Potential Threats Detected: Found: 1 potential threat.";
    const struct {
        bool isFound, isLookedAt, isRoutine;
        Texts told;
    } rows[] = {
        {false, false, false, {clean}}, {false, true, false, {}},      {false, false, true, {}},
        {true, true, false, {}},        {true, false, false, {found}}, {true, false, true, {found}},
    };
    bool hasEnded = false;
    const auto ended = scan.scanEnded.listen([&] { hasEnded = true; });
    std::function<void()> showEarlier;
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        if (row.isFound)
            volume.file("Users/alice/Library/mdsa1331");
        showEarlier = userNotifier.show;
        userNotifier = {};
        auto& shares = desktop.taskProgress.shown = {};
        desktop.windows.hasKeyboard = row.isLookedAt;
        delegate.requestScan();
        delegate.state().isRoutine = row.isRoutine;
        hasEnded = false;
        scan.SpywareScanStart();
        ASSERT_TRUE(mainQueue.runUntil([&] { return hasEnded; }));
        EXPECT_EQ(userNotifier.concluded, row.told);
        EXPECT_EQ(userNotifier.withdrawn, row.told.empty() ? 1 : 0);
        EXPECT_EQ(std::ranges::find(shares, -1), shares.end() - 1) << "hidden at its end, once";
    }
    takeWindowCalls();
    userNotifier.show();
    EXPECT_EQ(takeWindowCalls(), (Texts{"front main", "activate"}));
    showEarlier();
    EXPECT_EQ(shown, (Texts{"findings", "report"})) << "by then another scan has ended";
}

} // namespace
} // namespace pryvane
