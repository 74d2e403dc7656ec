// Writing and reading the report list, 10,000 reports of 20 findings, against Qt's streaming CBOR
// classes over the same bytes; both readers test each distinct path once.
//   store_bench --large               five reports of 1,000,000 findings, through the store alone
//   store_bench --make DATA VOLUME    makes a store with one of them (for bench/run store)

#include "Medians.h"
#include "PeakMemory.h"
#include "StoreBenchPeer.h"
#include "hosts/posix/SystemClock.h"
#include "platform/FileSystem.h"
#include "platform/Messages.h"
#include "reports/DefaultMethods.h"
#include "reports/RecordAvailability.h"
#include "reports/ReportCodec.h"
#include "signatures/Catalogue.h"
#include "store/SqliteUserDefaults.h"
#include "volume/VolumeFileSystem.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace pryvane::bench {

namespace {

constexpr int kReports = 10'000, kFindings = 20, kDistinctPaths = 10'000, kRuns = 9;

bool existsOnHost(const char* path)
{
    return access(path, F_OK) == 0;
}

/// The host's root, for existence tests alone.
class HostDisk final : public FileSystem {
public:
    Presence presence(const FileURL& url) override
    {
        return existsOnHost(url.relativePath().c_str()) ? Presence::Present : Presence::Absent;
    }
    FileKind kind(const FileURL&) override { return FileKind::Unknown; }
    std::optional<Sighting> sighting(const FileURL&) override { return {}; }
    FolderListing list(const FileURL&) override { return {}; }
    std::int64_t allocatedSize(const FileURL&) override { return 0; }
    int openFolder(const FileURL&) override { return -1; }
    bool writable(const FileURL&) override { return false; }
    Result<std::string> readSmallFile(const FileURL&, std::size_t) override { return Error{}; }
    std::string identity() const override { return "host"; }
    void forgetListings() override {}
};

ReportList sampleReports()
{
    const std::string_view families[] = {"Okaz Installer", "Backdoor.OSX.Mokes.a", "Spyware"};
    ReportList reports;
    int number = 0;
    for (int i = 0; i < kReports; ++i) {
        auto list = std::make_shared<SpywareList>();
        for (int j = 0; j < kFindings; ++j) {
            auto record = std::make_shared<Spyware>();
            const std::string path = "/Users/jane/Library/Application Support/com.vendor.product-" +
                                     std::to_string(number++ * 7919 % kDistinctPaths) + "/Helper";
            record->url = FileURL::fileURLWithPath(path);
            record->setName(record->url.lastPathComponent());
            record->infections = families[j % 3];
            record->size = 4096L * j;
            record->risk = kHighRisk;
            list->push_back(std::move(record));
        }
        const Date date(std::chrono::milliseconds(1'700'000'000'123 + i * 60'000L));
        reports.push_back(SpywareScanReport::ScanReportWithSpywareList(list, date, " 12 seconds",
                                                                       "Quick Scan", date));
        reports.back()->volume = "host";
    }
    return reports;
}

template <typename Work>
double milliseconds(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "store_bench: %s\n", what);
    std::exit(1);
}

bool codecAgainstQt(const ReportList& reports)
{
    const QtPeer peer(reports);
    HostDisk disk;
    std::vector<double> write, peerWrite, read, peerRead;
    std::string bytes, peerBytes;
    for (int run = 0; run < kRuns; ++run) {
        write.push_back(milliseconds([&] { bytes = encodeReports(reports); }));
        peerWrite.push_back(milliseconds([&] { static_cast<void>(peer.write(peerBytes)); }));
        require(bytes.size() == peerBytes.size(), "the two writers disagree");
        read.push_back(milliseconds([&] {
            const auto list = decodeReports(bytes);
            require(list.ok(), "our own bytes cannot be read");
            followDisk(*list, disk);
        }));
        peerRead.push_back(
            milliseconds([&] { static_cast<void>(QtPeer::readAndFollow(bytes, existsOnHost)); }));
    }
    std::printf("%d reports x %d findings, %.1f MiB, %d runs\n", kReports, kFindings,
                static_cast<double>(bytes.size()) / (1 << 20), kRuns);
    std::printf("%-34s %8s %8s %7s\n", "median, ms", "ours", "Qt", "ratio");
    const auto line = [](const char* name, double ours, double qt) {
        std::printf("%-34s %8.1f %8.1f %7.2f\n", name, ours, qt, ours / qt);
    };
    line("write", median(write), median(peerWrite));
    line("read + one test a distinct path", median(read), median(peerRead));
    line("both", median(write) + median(read), median(peerWrite) + median(peerRead));
    const double writing = median(write) / median(peerWrite);
    const double reading = median(read) / median(peerRead);
    const bool met = row("reports written / by Qt's JSON", writing, 0.80);
    return row("read, and each distinct path tested / by Qt's", reading, 0.40) && met;
}

void wholeStore(const ReportList& reports)
{
    std::string folder = (std::filesystem::temp_directory_path() / "store-bench-XXXXXX").string();
    require(mkdtemp(folder.data()) != nullptr, "cannot make a temporary folder");
    {
        SilentLog log;
        HostDisk disk;
        SystemClock clock;
        auto opened = SqliteUserDefaults::open(folder, log);
        require(opened.ok(), "cannot open the store");
        DefaultMethods store(*opened->defaults, disk, clock, log);
        std::vector<double> save, load, update;
        for (int run = 0; run < kRuns; ++run) {
            save.push_back(milliseconds([&] {
                require(store.saveListReport(reports, preferences::kSaveReport).ok(), "no save");
            }));
            load.push_back(milliseconds([&] {
                require(store.loadListReportWithKey(preferences::kSaveReport).size() == kReports,
                        "no load");
            }));
            update.push_back(milliseconds([&] {
                require(store.updateReportInDefaults(reports[kReports / 2]).ok(), "no update");
            }));
        }
        std::printf("through SQLite, ms: save %.1f, load %.1f, update one %.1f\n", median(save),
                    median(load), median(update));
    }
    std::filesystem::remove_all(folder);
}

constexpr int kLargeReports = 5, kLargeFindings = 1'000'000;

/// As a deep scan finds them.
std::shared_ptr<SpywareScanReport> largeReport(int findings)
{
    auto list = std::make_shared<SpywareList>();
    for (int i = 0; i < findings; ++i) {
        auto record = std::make_shared<Spyware>();
        record->url =
            FileURL::fileURLWithPath("/Users/jane/Library/Manager/" + std::to_string(i / 1000) +
                                     "/component-" + std::to_string(i));
        record->setName(record->url.lastPathComponent());
        record->setSpelling(record->url.absolutePath());
        record->user = "jane";
        record->infections = catalogue::kFullSystem;
        record->risk = kHighRisk;
        list->push_back(std::move(record));
    }
    const Date date(std::chrono::milliseconds(1'700'000'000'123));
    auto report =
        SpywareScanReport::ScanReportWithSpywareList(list, date, " 12 seconds", "Deep Scan", date);
    report->volume = "host";
    return report;
}

/// Opens the store anew in a process of its own, does the work, and says what that took, in
/// milliseconds.
template <typename Work>
double measured(const char* name, const std::string& folder, Work work)
{
    std::fflush(stdout);
    int ends[2] = {-1, -1};
    require(pipe(ends) == 0, "no pipe");
    const pid_t child = fork();
    if (child == 0) {
        const double taken = milliseconds([&] {
            SilentLog log;
            HostDisk disk;
            SystemClock clock;
            auto opened = SqliteUserDefaults::open(folder, log);
            require(opened.ok(), "cannot open the store");
            DefaultMethods store(*opened->defaults, disk, clock, log);
            work(store, opened->defaults->reports());
        });
        require(write(ends[1], &taken, sizeof taken) == sizeof taken, "nothing was told");
        std::printf("%-34s %8.0f ms %8.0f MB at most\n", name, taken,
                    static_cast<double>(peakMemory()) / 1000);
        std::fflush(stdout);
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    require(status == 0, "a process of the large store failed");
    double taken = 0;
    require(read(ends[0], &taken, sizeof taken) == sizeof taken, "nothing was told");
    close(ends[0]);
    close(ends[1]);
    return taken;
}

bool largeStore()
{
    std::string folder = (std::filesystem::temp_directory_path() / "store-bench-XXXXXX").string();
    require(mkdtemp(folder.data()) != nullptr, "cannot make a temporary folder");
    std::printf("%d reports x %d findings\n", kLargeReports, kLargeFindings);
    measured("make it", folder, [](DefaultMethods& store, ReportStore&) {
        const auto report = largeReport(kLargeFindings);
        for (int i = 0; i < kLargeReports; ++i) {
            report->reportId = "large-" + std::to_string(i);
            require(store.updateReportInDefaults(report).ok(), "no save");
        }
    });
    std::printf("%-34s %8.0f MB\n", "the file",
                static_cast<double>(std::filesystem::file_size(folder + "/Pryvane.sqlite")) / 1e6);
    const double opening = measured("open", folder, [](DefaultMethods&, ReportStore&) {});
    measured("list", folder, [](DefaultMethods& store, ReportStore&) {
        require(store.listReports()->size() == kLargeReports, "no list");
    });
    measured("save a small report", folder, [](DefaultMethods& store, ReportStore&) {
        require(store.updateReportInDefaults(largeReport(20)).ok(), "no save");
    });
    const double loading =
        measured("load one of a million", folder, [](DefaultMethods& store, ReportStore&) {
            require(store.loadReport("large-2").ok(), "no load");
        });
    const double making =
        measured("  its records alone", folder, [](DefaultMethods&, ReportStore&) {
            const auto report = largeReport(kLargeFindings);
            HostDisk disk;
            followDisk({report}, disk);
        });
    measured("delete one of a million", folder, [](DefaultMethods& store, ReportStore&) {
        require(store.deleteReport("large-3").value(), "no deletion");
    });
    std::filesystem::remove_all(folder);
    return row("large: loading a million / making them and testing their paths",
               (loading - opening) / (making - opening), 1.50);
}

/// Makes a store with one large report of the disk in that folder, for other programs to read.
void makeStore(const std::string& folder, const std::string& volume)
{
    SilentLog log;
    SystemClock clock;
    auto disk = VolumeFileSystem::open(volume);
    auto opened = SqliteUserDefaults::open(folder, log);
    require(disk.ok() && opened.ok(), "cannot open the store or the disk");
    const auto report = largeReport(kLargeFindings);
    report->volume = (*disk)->identity();
    DefaultMethods store(*opened->defaults, **disk, clock, log);
    require(store.updateReportInDefaults(report).ok(), "no save");
}

} // namespace

} // namespace pryvane::bench

int main(int argc, char** argv)
{
    if (argc > 1 && std::string_view(argv[1]) == "--large") {
        return pryvane::bench::largeStore() ? 0 : 1;
    }
    if (argc == 4 && std::string_view(argv[1]) == "--make") {
        pryvane::bench::makeStore(argv[2], argv[3]);
        return 0;
    }
    const auto reports = pryvane::bench::sampleReports();
    const bool met = pryvane::bench::codecAgainstQt(reports);
    pryvane::bench::wholeStore(reports);
    return met ? 0 : 1;
}
