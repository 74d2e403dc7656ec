// How long the report browser holds the main thread at a time with 10,000 reports of 20 findings
// each, and with one report of 100,000; and what an opening costs beyond reading the store.
#include "Medians.h"
#include "TimedMainQueue.h"
#include "browser/ReportBrowserHost.h"
#include "browser/ReportViewController.h"
#include "core/NotificationCenter.h"
#include "hosts/posix/SystemClock.h"
#include "platform/DesktopPrograms.h"
#include "platform/Machine.h"
#include "platform/Messages.h"
#include "platform/Printer.h"
#include "platform/Remover.h"
#include "reports/pdf/PDFGenerate.h"
#include "reports/pdf/ReportPrinting.h"
#include "store/SqliteUserDefaults.h"
#include "support/Fakes.h"
#include "support/ReportFixtures.h"
#include "support/TemporaryFolder.h"
#include "volume/VolumeFileSystem.h"

#include <algorithm>
#include <cstdio>
#include <thread>

namespace {

using namespace pryvane;

/// Whatever this bench has no use for.
class Nothing final : public ReportBrowserHost,
                      public FileViewer,
                      public Printer,
                      public MachineInfo,
                      public Remover {
public:
    void checkForHDAccess() override {}
    void setPrintAction(std::function<void()>) override {}
    void openRemoteDesktopInstructions() override {}
    Result<Done> reveal(const FileURL&) override { return Done{}; }
    Result<std::vector<PrinterName>> printers() override { return Error{}; }
    Result<int> printFile(const std::string&, std::string_view, std::string_view,
                          const PrintSettings&) override
    {
        return Error{};
    }
    std::optional<std::string> computerName() override { return {}; }
    std::string loginName() override { return {}; }
    std::string machineModel() override { return {}; }
    std::optional<std::string> serialNumber() override { return {}; }
    void plan(std::span<const RemovalItem>, const StopFlag&, const RemovalForecasts&) override {}
    void remove(std::span<const RemovalItem>, const StopFlag&, const RemovalResults&) override {}
};

ReportList manyReports(const std::string& volume)
{
    ReportList list;
    for (int i = 0; i < 10'000; ++i) {
        std::vector<std::string> paths;
        for (int k = 0; k < 20; ++k)
            paths.push_back("/Users/alice/Library/LaunchAgents/com.example.agent" +
                            std::to_string((i * 7 + k) % 2'000) + ".plist");
        list.push_back(test::reportOf(paths));
        list.back()->volume = volume;
    }
    return list;
}

std::shared_ptr<SpywareScanReport> longReport(const std::string& volume)
{
    std::vector<std::string> paths;
    for (int i = 0; i < 100'001; ++i) // not a multiple of 256: its stored count would be 0
        paths.push_back("/Users/alice/dev/" + std::to_string(i / 1000) + "/file" +
                        std::to_string(i));
    auto report = test::reportOf(paths);
    report->volume = volume;
    return report;
}

} // namespace

int main()
{
    const test::TemporaryFolder volume, data;
    volume.folder("/Users/alice/Library/LaunchAgents");
    auto disk = VolumeFileSystem::open(volume.path());
    test::RecordingLog log;
    auto store = SqliteUserDefaults::open(data.path(), log);
    if (!disk || !store)
        return 2;
    SystemClock clock;
    DefaultMethods reports(*store->defaults, **disk, clock, log);
    ReportList list = manyReports((*disk)->identity());
    list.push_back(longReport((*disk)->identity()));
    if (!reports.saveListReport(list, preferences::kSaveReport))
        return 2;

    NotificationCenter notifications;
    TimedMainQueue queue;
    test::ScriptedAlerts alerts;
    test::ScriptedFolderPicker picker;
    test::FakeWorkspace workspace;
    SilentUserNotifier notifier;
    Nothing nothing;
    PDFGenerate pdf({}, **disk, nothing);
    ReportPrinting printing(pdf, nothing, log);
    ReportViewController browser({**disk, *store->defaults, notifications, queue, clock, alerts,
                                  picker, workspace, notifier, log},
                                 {nothing, nothing, printing, nothing, "alice"});
    double lastWhole = 0; // milliseconds
    const auto step = [&](const char* what, const MainQueue::Work& work) {
        queue.held.clear();
        const auto start = std::chrono::steady_clock::now();
        queue.timed(work);
        queue.inner.run([&] {
            if (!browser.isBusy())
                queue.inner.quit();
        });
        const std::chrono::duration<double, std::milli> whole =
            std::chrono::steady_clock::now() - start;
        const double longest = *std::max_element(queue.held.begin(), queue.held.end());
        std::printf("%-28s %8.1f ms, of which the main thread at most %6.1f ms at a time\n", what,
                    whole.count(), longest);
        lastWhole = whole.count();
        return longest;
    };
    // On a thread of its own, as the browser does it: its memory is as new.
    const auto readAlone = [&] {
        double taken = 0;
        std::thread([&] {
            const auto start = std::chrono::steady_clock::now();
            const auto read = reports.listReports();
            const auto end = std::chrono::steady_clock::now();
            taken = std::chrono::duration<double, std::milli>(end - start).count();
        }).join();
        return taken;
    };
    std::vector<double> beyondRead;
    double longest = 0;
    for (const char* what :
         {"first opening", "second opening", "third opening", "fourth opening", "fifth opening"}) {
        const double read = readAlone();
        longest = std::max(longest, step(what, [&] { browser.viewWillAppear(); }));
        beyondRead.push_back(lastWhole - read);
    }
    std::ranges::sort(beyondRead);
    const double opening = beyondRead[2];
    alerts.answer(kAlertFirstButton);
    longest = std::max({longest, step("first search", [&] { browser.setSearch("okaz"); }),
                        step("search", [&] { browser.setSearch("okaz 2023"); }),
                        step("open the long report", [&] { browser.openThisReport(10'000); }),
                        step("select all of it", [&] { browser.checkAllAction(true); }),
                        step("back to the list", [&] { browser.backtoReportList(); }),
                        step("open a short report", [&] { browser.openThisReport(5); }),
                        step("delete it", [&] { browser.trashReport(); })});
    const bool opens =
        bench::row("opening 10,000 reports, beyond the reading of the store", opening, 300, " ms");
    const bool yields = bench::row("the longest hold of the main thread", longest, 50, " ms");
    return opens && yields ? 0 : 1;
}
