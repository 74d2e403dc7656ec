// An unpaced quick scan against the bare cost of its system calls, and its growth with the entries.
#include "Medians.h"
#include "QuickFloor.h"
#include "findings/ScanCoverage.h"
#include "hosts/posix/SystemClock.h"
#include "scan/CheckSequence.h"
#include "signatures/Catalogue.h"
#include "signatures/CheckRunner.h"
#include "store/MemoryUserDefaults.h"
#include "support/ForwardingDisk.h"
#include "support/TemporaryFolder.h"
#include "volume/VolumeFileSystem.h"

#include <cstdlib>
#include <iostream>

namespace {

using namespace pryvane;

constexpr const char* kUser = "alice";

class CountingSink final : public FindingSink {
public:
    long findings = 0;
    void addIfAvail(const FileURL&, std::string_view, std::string_view, std::string_view,
                    std::int64_t) override
    {
        ++findings;
    }
    void append(const FileURL&, std::string_view, std::string_view, std::string_view,
                std::int64_t) override
    {
        ++findings;
    }
};

/// A disk with so many entries in its default locations; every hundredth is a finding if wanted.
void fill(const test::TemporaryFolder& volume, int entries, bool findings)
{
    const auto folders = catalogue::defaultFolders();
    for (int i = 0; i < entries; ++i) {
        const std::string folder =
            catalogue::filled(folders[static_cast<std::size_t>(i) % folders.size()], {kUser});
        const bool hit = findings && i % 100 == 0;
        volume.file(folder + (hit ? "/com.refog.agent" : "/com.example.product.helper") +
                        std::to_string(i) + ".plist",
                    "");
    }
    for (const char* folder :
         {"/usr/bin", "/usr/lib", "/usr/local", "/Applications", "/private/tmp",
          "/System/Library/Extensions", "/Library/Internet Plug-Ins"})
        volume.folder(folder);
    volume.link("/tmp", "private/tmp");
}

/// The locations that the floor asks for: one for each existence test of the scan.
class RecordingDisk final : public test::ForwardingDisk {
public:
    using ForwardingDisk::ForwardingDisk;
    std::vector<std::string> asked;
    Presence presence(const FileURL& url) override
    {
        asked.push_back(url.relativePath());
        return m_disk.presence(url);
    }
};

long scan(FileSystem& disk, const std::vector<std::string>& users = {kUser})
{
    MemoryUserDefaults defaults;
    CountingSink sink;
    ScanCoverage coverage;
    UnpacedClock clock;
    const StopFlag stop;
    CheckRunner checks(disk, defaults, users, sink, coverage);
    CheckSequence sequence(checks, clock, stop, [](std::string_view, int) {});
    static_cast<void>(sequence.scan4SpywareStart());
    return sink.findings;
}

/// Milliseconds of the scan and of its floor on a disk with so many entries.
std::pair<double, double> measure(int entries, bool findings, int rounds)
{
    const test::TemporaryFolder volume;
    fill(volume, entries, findings);
    auto disk = VolumeFileSystem::open(volume.path(), {});
    if (!disk) {
        std::cerr << disk.error().message << "\n";
        std::exit(2);
    }
    RecordingDisk recording(**disk);
    scan(recording);
    std::vector<std::string> folders;
    for (const std::string_view folder : catalogue::defaultFolders())
        folders.push_back(catalogue::filled(folder, {kUser}));

    long used = 0;
    std::vector<bench::Contender> contenders{
        {"scan", [&] { used += scan(**disk); }},
        {"floor", [&] { used += bench::quickScanFloor(volume.path(), folders, recording.asked); }}};
    bench::race(contenders, rounds);
    std::printf("%7d entries%s: scan %.3f ms, floor %.3f ms (%zu existence tests)\n", entries,
                findings ? ", 1 in 100 a finding" : "", contenders[0].median(),
                contenders[1].median(), recording.asked.size());
    return {contenders[0].median(), contenders[1].median()};
}

/// Milliseconds of the scan of so many homes, each with a finding.
double measureHomes(int homes, int rounds)
{
    const test::TemporaryFolder volume;
    std::vector<std::string> users;
    for (int i = 0; i < homes; ++i) {
        users.push_back("user" + std::to_string(i));
        const std::string library = "/Users/" + users.back() + "/Library";
        for (const char* file : {"/LaunchAgents/com.refog.agent.plist", "/Caches/a", "/Caches/b",
                                 "/Preferences/c.plist", "/Containers/d", "/Application Support/e"})
            volume.file(library + file, "");
    }
    auto disk = VolumeFileSystem::open(volume.path(), {});
    if (!disk) {
        std::cerr << disk.error().message << "\n";
        std::exit(2);
    }
    long used = 0;
    std::vector<bench::Contender> contenders{{"scan", [&] { used += scan(**disk, users); }}};
    bench::race(contenders, rounds);
    std::printf("%7d homes: scan %.3f ms\n", homes, contenders[0].median());
    return contenders[0].median();
}

} // namespace

/// `homes N TIMES` scans so many homes so many times, for a count of instructions; without
/// arguments all is measured.
int main(int argc, char** argv)
{
    if (argc == 4 && std::string_view(argv[1]) == "homes") {
        measureHomes(std::atoi(argv[2]), std::atoi(argv[3]));
        return 0;
    }
    const auto [small, smallFloor] = measure(2'000, false, 101);
    const auto [large, largeFloor] = measure(200'000, false, 7);
    const auto [smallFound, smallFoundFloor] = measure(2'000, true, 31);
    const auto [largeFound, largeFoundFloor] = measure(200'000, true, 7);
    bool met = bench::row("quick scan, 2,000 entries / its system calls", small / smallFloor, 2.5);
    met &= bench::row("time per entry, 200,000 / 2,000 entries", large / small / 100, 1.1);
    met &= bench::row("the same with findings", largeFound / smallFound / 100, 1.1);
    const double fewHomes = measureHomes(50, 15), manyHomes = measureHomes(500, 5);
    met &= bench::row("time per home, 500 / 50 homes", manyHomes / fewHomes / 10, 1.2);
    std::printf("%-64s %8.2f\n", "quick scan, 200,000 entries / its system calls",
                large / largeFloor);
    std::printf("%-64s %8.2f\n", "quick scan with findings, 200,000 / its system calls",
                largeFound / largeFoundFloor);
    static_cast<void>(smallFoundFloor);
    return met ? 0 : 1;
}
