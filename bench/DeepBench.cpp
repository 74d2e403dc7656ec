// One deep scan of /Users/alice on a volume, as the program does it, for bench/run to time:
//   deep_bench scan VOLUME [THREADS]   both passes, with findings through the scan's own inbox
//   deep_bench stop VOLUME             the longest of some waits between a stop and the end
//   deep_bench strings                 the full-system list, one a line
//   deep_bench idle VOLUME               nothing, for its memory
#include "PeakMemory.h"
#include "core/NotificationCenter.h"
#include "core/tasks/BlockingMainQueue.h"
#include "findings/ScanCoverage.h"
#include "findings/ScanState.h"
#include "hosts/posix/SystemClock.h"
#include "platform/PlatformServices.h"
#include "scan/FindingInbox.h"
#include "scan/walker/DeepWalk.h"
#include "scan/walker/WalkNotifications.h"
#include "signatures/Catalogue.h"
#include "signatures/PatternAutomaton.h"
#include "store/MemoryUserDefaults.h"
#include "support/Fakes.h"
#include "volume/VolumeFileSystem.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace pryvane;
using SteadyClock = std::chrono::steady_clock;

constexpr const char* kUser = "alice";
constexpr const char* kHome = "/Users/alice/";

std::vector<std::string> texts()
{
    return catalogue::fullSyatemScanPath(kUser);
}

/// A process as the program is while it scans, with a display that takes samples.
class Scan {
public:
    Scan(const std::string& volume, unsigned threads) : m_options{threads}
    {
        auto disk = VolumeFileSystem::open(volume);
        if (!disk) {
            std::fprintf(stderr, "%s\n", disk.error().message.c_str());
            std::exit(2);
        }
        m_disk = std::move(*disk);
        m_root = open((volume + kHome).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        m_inbox.emplace(services(), m_state, [] {});
    }

    /// Both passes on a thread of their own, the findings onto the list of this one.
    void run()
    {
        const auto progress = m_center.observe(NotificationName::ScanningProgress,
                                               [this](const Notification&) { ++m_progress; });
        const auto samples = m_center.observe(NotificationName::ScanningProgressURL,
                                              [this](const Notification&) { ++m_samples; });
        std::thread worker([this] {
            walk();
            m_inbox->whenEmpty([this] { m_mainQueue.quit(); });
        });
        m_mainQueue.run();
        worker.join();
    }

    void walk()
    {
        WalkNotifications observer(m_center, *m_inbox, m_coverage);
        const WalkRoot root{m_root, kHome};
        FileCount(m_state, observer, m_options).countNodes(root);
        const PatternAutomaton automaton(texts(), PatternAutomaton::Letters::Exact);
        scanDirectory(m_state, automaton, observer, m_options).scan(root);
    }

    void stop() { m_state.isScanStop.request(); }

    void print() const
    {
        std::printf("%lld entries, %zu findings, %d steps, %d samples, peak %ld kB\n",
                    static_cast<long long>(m_state.totalCount.load()),
                    m_state.arrSpywareList.records().size(), m_progress, m_samples,
                    bench::peakMemory());
    }

private:
    PlatformServices services()
    {
        return {*m_disk,  m_defaults, m_center,    m_mainQueue, m_clock,
                m_alerts, m_picker,   m_workspace, m_notifier,  m_log};
    }

    const WalkOptions m_options;
    std::unique_ptr<VolumeFileSystem> m_disk;
    int m_root = -1;
    MemoryUserDefaults m_defaults;
    NotificationCenter m_center;
    BlockingMainQueue m_mainQueue;
    SystemClock m_clock;
    test::ScriptedAlerts m_alerts;
    test::ScriptedFolderPicker m_picker;
    test::FakeWorkspace m_workspace;
    test::RecordingUserNotifier m_notifier;
    test::RecordingLog m_log;
    ScanState m_state;
    ScanCoverage m_coverage;
    std::optional<FindingInbox> m_inbox;
    int m_progress = 0;
    int m_samples = 0;
};

/// Milliseconds from a stop to the end of the walk, at several moments of it; the longest.
double longestStop(const std::string& volume, unsigned threads)
{
    double longest = 0;
    for (int after = 0; after <= 400; after += 40) {
        Scan scan(volume, threads);
        std::thread worker([&] { scan.walk(); });
        std::this_thread::sleep_for(std::chrono::milliseconds(after));
        const auto asked = SteadyClock::now();
        scan.stop();
        worker.join();
        const std::chrono::duration<double, std::milli> taken = SteadyClock::now() - asked;
        longest = std::max(longest, taken.count());
    }
    return longest;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string what = argc > 1 ? argv[1] : "";
    const std::string volume = argc > 2 ? argv[2] : "";
    const unsigned threads =
        argc > 3 ? static_cast<unsigned>(std::atoi(argv[3])) : WalkOptions().threads;
    if (what == "scan" && argc > 2) {
        Scan scan(volume, threads);
        scan.run();
        scan.print();
    } else if (what == "stop" && argc > 2) {
        std::printf("%.1f\n", longestStop(volume, threads));
    } else if (what == "idle" && argc > 2) {
        Scan(volume, threads).print();
    } else if (what == "strings") {
        for (const std::string& text : texts())
            std::printf("%s\n", text.c_str());
    } else {
        std::fprintf(stderr, "see the top of DeepBench.cpp\n");
        return 2;
    }
    return 0;
}
