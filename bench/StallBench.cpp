// How long the main thread is held at a time during a deep scan with 100,000 findings, from its
// start to its stored report.
#include "TimedMainQueue.h"
#include "core/NotificationCenter.h"
#include "engine/DiskAccess.h"
#include "engine/ScanViewController.h"
#include "engine/records/ScanState.h"
#include "platform/UserNotifier.h"
#include "platform/posix/SqliteUserDefaults.h"
#include "platform/posix/SystemClock.h"
#include "platform/posix/VolumeFileSystem.h"
#include "reports/DefaultMethods.h"
#include "signatures/MakersApplications.h"
#include "support/Fakes.h"
#include "support/TemporaryFolder.h"

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
    DefaultMethods reports(*store->defaults, **disk, clock, log);
    ScanViewController controller({**disk, *store->defaults, notifications, queue, clock, alerts,
                                   picker, workspace, notifier, log},
                                  state, access, reports,
                                  {"alice", FileURL::fileURLWithPath("/"), {}});
    QObject::connect(&controller, &ScanViewController::scanEnded, &controller,
                     [&] { queue.inner.quit(); });
    controller.SpywareScanStart();
    queue.inner.run();

    std::vector<double>& held = queue.held;
    std::sort(held.begin(), held.end());
    std::printf("%zu findings, %zu pieces of work on the main thread\n",
                state.arrSpywareList.records().size(), held.size());
    std::printf("median %.2f ms, longest %.2f ms\n", held[held.size() / 2], held.back());
    return held.back() <= 50 ? 0 : 1;
}
