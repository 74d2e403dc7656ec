// The printed report of 10,000 findings against QPdfWriter drawing the same rows: time, size,
// memory.
//   pdf_bench                 the measurements
//   pdf_bench peak FINDINGS   writes one such report, and prints this process's own peak memory
#include "Medians.h"
#include "PdfBenchPeer.h"
#include "PeakMemory.h"
#include "core/LoadedModule.h"
#include "platform/Machine.h"
#include "reports/pdf/PDFGenerate.h"
#include "reports/pdf/PageOps.h"
#include "reports/pdf/PdfPainter.h"
#include "reports/pdf/ReportTexts.h"
#include "support/ReportFixtures.h"
#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace {

using namespace pryvane;

constexpr int kFindings = 10'000, kRounds = 9;

class NamelessMachine final : public MachineInfo {
public:
    std::optional<std::string> computerName() override { return {}; }
    std::string loginName() override { return "jane"; }
    std::string machineModel() override { return "MacBookPro18,3"; }
    std::optional<std::string> serialNumber() override { return {}; }
};

void require(bool condition, const std::string& what)
{
    if (condition)
        return;
    std::fprintf(stderr, "pdf_bench: %s\n", what.c_str());
    std::exit(2);
}

std::shared_ptr<SpywareScanReport> reportWith(int findings)
{
    constexpr std::string_view families[] = {"Okaz Installer", "Backdoor.OSX.Mokes.a", "Spyware",
                                             "Refog Personal Monitor"};
    std::vector<std::string> paths;
    for (int i = 0; i < findings; ++i)
        paths.push_back("/Users/jane/Library/Application Support/com.vendor.product-" +
                        std::to_string(i * 7919L % findings) + (i % 3 == 0 ? "" : "/Helper"));
    auto report = test::reportOf(paths);
    for (std::size_t i = 0; i < paths.size(); ++i)
        (*report->spyWareList)[i]->infections = families[i % std::size(families)];
    return report;
}

void writeOurs(const SpywareScanReport& report, const std::string& path)
{
    test::CountingDisk disk;
    NamelessMachine machine;
    const auto written = PDFGenerate({}, disk, machine).createPDF(report, path);
    require(written.ok(), written.ok() ? "" : written.error().message);
}

double megabytesOf(const std::string& command)
{
    std::FILE* pipe = popen(command.c_str(), "r");
    long kilobytes = 0;
    require(pipe != nullptr && std::fscanf(pipe, "%ld", &kilobytes) == 1 && pclose(pipe) == 0,
            "cannot run " + command);
    return static_cast<double>(kilobytes) / 1024;
}

int peak(int findings)
{
    const test::TemporaryFolder folder;
    if (findings > 0)
        writeOurs(*reportWith(findings), folder.hostPath("Report.PDF"));
    std::printf("%ld\n", bench::peakMemory());
    return 0;
}

std::vector<pdf::Page> pagesOf(const SpywareScanReport& report)
{
    const auto module = loadedModule<pdf::PainterModule>();
    require(module.ok(), "no painter");
    const auto painter = (*module)->makePainter();
    require(painter.ok(), "no fonts");
    test::CountingDisk disk;
    NamelessMachine machine;
    return pdf::layOut(pdf::reportTexts(report, {}, disk, machine), **painter);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && std::string_view(argv[1]) == "peak")
        return peak(std::atoi(argv[2]));

    const bench::QtSession session(argc, argv);
    const test::TemporaryFolder folder;
    const std::string ours = folder.hostPath("ours.pdf"), large = folder.hostPath("large.pdf"),
                      theirs = folder.hostPath("theirs.pdf");
    const auto report = reportWith(kFindings), largeReport = reportWith(4 * kFindings);
    const auto pages = pagesOf(*report);
    std::vector<bench::Contender> contenders{
        {"ours", [&] { writeOurs(*report, ours); }},
        {"four times", [&] { writeOurs(*largeReport, large); }},
        {"Qt", [&] { bench::writeWithQt(pages, theirs); }}};
    bench::race(contenders, kRounds);

    const auto size = [](const std::string& path) {
        return static_cast<double>(std::filesystem::file_size(path));
    };
    const double time = contenders[0].median(), largeTime = contenders[1].median(),
                 peerTime = contenders[2].median();
    std::printf("%d findings, %zu pages: ours %.0f ms (%.0f pages a second), %.0f KiB; QPdfWriter "
                "%.0f ms, %.0f KiB\n",
                kFindings, pages.size(), time, static_cast<double>(pages.size()) / time * 1000,
                size(ours) / 1024, peerTime, size(theirs) / 1024);
    bool met = bench::row("time: report / QPdfWriter with plain drawText", time / peerTime, 0.6);
    met &= bench::row("size: report / QPdfWriter's", size(ours) / size(theirs), 0.5);
    met &= bench::row("time a row: 40,000 / 10,000 findings", largeTime / time / 4, 1.15);
    const std::string self =
        "'" + std::filesystem::read_symlink("/proc/self/exe").string() + "' peak ";
    met &= bench::row("MB above an idle process at the peak",
                      megabytesOf(self + std::to_string(kFindings)) - megabytesOf(self + "0"), 64);
    return met ? 0 : 1;
}
