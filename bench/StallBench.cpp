// How long the main thread is held at a time during a deep scan with 100,000 findings, from its
// start to its stored report, and then while all of them are planned and removed.
#include "Medians.h"
#include "TimedMainQueue.h"
#include "core/NotificationCenter.h"
#include "findings/ScanState.h"
#include "hosts/posix/SystemClock.h"
#include "platform/Messages.h"
#include "platform/Remover.h"
#include "removal/disk/VolumeRemover.h"
#include "reports/DefaultMethods.h"
#include "scan/DiskAccess.h"
#include "scan/ScanViewController.h"
#include "signatures/MakersApplications.h"
#include "store/SqliteUserDefaults.h"
#include "support/Fakes.h"
#include "support/TemporaryFolder.h"
#include "volume/VolumeFileSystem.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace pryvane;

constexpr int kFindings = 100'000;

class EverythingGranted final : public DiskAccess {
public:
    bool isHDAccessible() override { return true; }
    bool isUserAccessible() override { return true; }
    bool isWritable(const FileURL&) override { return true; }
    void confirmAccessAction() override {}
    Result<Bytes> makeBookmark(const FileURL&) override { return Bytes{}; }
};

/// Prints the times, starts them over, and tells whether none was too long.
bool report(const char* what, std::vector<double>& held)
{
    std::sort(held.begin(), held.end());
    std::printf("%s: %zu pieces of work on the main thread, median %.2f ms, longest %.2f ms\n",
                what, held.size(), held[held.size() / 2], held.back());
    const bool never =
        bench::row(std::string("100,000 findings, longest hold of the main thread: ") + what,
                   held.back(), 50, " ms");
    held.clear();
    return never;
}

} // namespace

int main()
{
    const test::TemporaryFolder volume, data;
    for (int i = 0; i < kFindings; ++i)
        volume.file("/Users/alice/dev/" + std::to_string(i / 1000) + "/file" + std::to_string(i),
                    "");
    auto disk = VolumeFileSystem::open(volume.path());
    test::RecordingLog log;
    auto store = SqliteUserDefaults::open(data.path(), log);
    if (!disk || !store)
        return 2;
    NotificationCenter notifications;
    TimedMainQueue queue;
    SystemClock clock;
    test::ScriptedAlerts alerts;
    test::ScriptedFolderPicker picker;
    test::FakeWorkspace workspace;
    SilentUserNotifier notifier;
    ScanState state;
    state.isDeepScan = true;
    EverythingGranted access;
    NoRemovalJournal journal;
    VolumeRemover remover(**disk, journal, {});
    DefaultMethods reports(*store->defaults, **disk, clock, log);
    ScanViewController controller({**disk, *store->defaults, notifications, queue, clock, alerts,
                                   picker, workspace, notifier, log},
                                  state, access, reports, remover,
                                  {"alice", FileURL::fileURLWithPath("/"), {}});
    const auto scanEnded = controller.scanEnded.listen([&] { queue.inner.quit(); });
    controller.SpywareScanStart();
    queue.inner.run();
    const bool scanned = report("scan", queue.held);

    ThreatRemoval& removal = controller.removal();
    auto planTold = controller.stateChanged.listen([&] {
        if (!removal.plan().rows.empty())
            queue.inner.quit();
    });
    queue.post([&] { removal.planSelectedThreats(); });
    queue.inner.run();
    const bool planned = report("plan", queue.held);

    planTold.reset();
    const auto removalEnded = controller.removalEnded.listen([&] { queue.inner.quit(); });
    alerts.answer(kAlertFirstButton);
    queue.post([&] { controller.deleteSelectedThreat(); });
    queue.inner.run();
    const bool removed = report("removal", queue.held);
    std::printf("%zu findings, %zu removed\n", state.arrSpywareList.records().size(),
                controller.lists().deletedCount);
    return scanned && planned && removed ? 0 : 1;
}
