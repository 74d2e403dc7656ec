#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/Host.h"
#include "cli/InventoryFacts.h"
#include "cli/ManyDisks.h"
#include "cli/ReportText.h"
#include "cli/ScanArguments.h"
#include "cli/ScanSources.h"
#include "cli/ScheduledScan.h"
#include "core/Escape.h"
#include "core/Result.h"
#include "platform/Remover.h"
#include "platform/UserDefaults.h"
#include "reports/DefaultMethods.h"
#include "reports/JsonLines.h"
#include "reports/ReportExport.h"
#include "reports/pdf/PDFGenerate.h"
#include "scan/ScanViewController.h"
#include "scan/SchedulePlan.h"

#include <cerrno>
#include <filesystem>
#include <optional>
#include <ostream>
#include <unistd.h>

namespace pryvane::cli {

namespace {

/// One scan from start to report, on this thread's queue.
class ScanRun {
public:
    ScanRun(const Console& console, Host& host, const ScanArguments& arguments)
        : m_console(console), m_host(host), m_access(host.disk()),
          m_store(host.defaults(), host.disk(), host.clock(), host.log()),
          m_controller(host.services(), host.state(), m_access, m_store, m_remover,
                       options(host, arguments)),
          m_bar(console)
    {
        host.state().isDeepScan = arguments.deep;
        m_stopObservation =
            host.notifications().observe(NotificationName::StopScan, [this](const Notification&) {
                m_host.state().isScanStop.request();
            });
        m_ended = m_controller.scanEnded.listen([this] { m_host.mainQueue().quit(); });
        m_changed = m_controller.stateChanged.listen([this] {
            if (m_controller.isScanning())
                m_bar.show(m_controller.display());
        });
    }

    /// True when the scan came to its end.
    [[nodiscard]] bool run()
    {
        m_controller.SpywareScanStart();
        bool stopAsked = false;
        const auto obeyInterrupt = [&] {
            if (m_console.interrupted.requested() && !std::exchange(stopAsked, true))
                m_controller.stopScan();
        };
        obeyInterrupt();
        m_host.mainQueue().run(obeyInterrupt);
        m_bar.clear();
        // A stop that came when all was done has stopped nothing.
        return !stopAsked || m_controller.coverage().ended.how != ScanEnding::How::Stopped;
    }

    [[nodiscard]] const ScanViewController& controller() const { return m_controller; }

private:
    [[nodiscard]] static ScanOptions options(const Host& host, const ScanArguments& arguments)
    {
        ScanOptions options{host.whose(), {}, arguments.checkSubDir};
        options.grantedRoot =
            arguments.wholeDisk ? FileURL::fileURLWithPath("/") : options.homeRoot();
        options.labels = arguments.labels;
        options.hashFindings = arguments.volume.hash;
        return options;
    }

    const Console& m_console;
    Host& m_host;
    GrantedAccess m_access;
    DefaultMethods m_store;
    NoRemover m_remover;
    ScanViewController m_controller;
    ProgressBar m_bar;
    NotificationCenter::Observation m_stopObservation;
    Signal::Listening m_ended, m_changed;
};

void writeText(const Console& console, const SpywareScanReport& report, bool stored)
{
    console.out << verdictText(report, console) << "\n"
                << labelsText(report.labels) << "Mac:      " << subjectText(report.subject) << "\n";
    if (!report.spyWareList->empty())
        writeFindings(*report.spyWareList, console.out << "\n");
    console.out << "\n" << coverageText(report.coverage);
    if (stored)
        console.out << "Report: " << forTerminal(report.reportId)
                    << "  (pryvane-cli report show latest)\n";
}

void writeReport(const Console& console, const SpywareScanReport& report, const std::string& format,
                 bool stored, const ReportAppendix* facts)
{
    if (format == "json") {
        writeAsJson(report, console.sink(), facts);
    } else if (format == "jsonl") {
        writeReportLines(report, console.sink(), facts);
    } else {
        writeText(console, report, stored);
        if (facts)
            printAppendix(console, *facts);
    }
}

/// A document that cannot be written is better known before the scan than after it.
Result<Done> mayWriteDocument(const std::string& path)
{
    const std::string folder = std::filesystem::path(path).parent_path();
    if (path.empty() || access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) == 0)
        return Done{};
    return Error{"cannot write " + forTerminal(path) + ": " + errorText(errno)};
}

/// The document, where one is wanted; false where it could not be written, which has been said.
bool writeDocument(const Console& console, Host& host, const ScanArguments& arguments,
                   const SpywareScanReport& report, const ReportAppendix* facts)
{
    if (arguments.pdf.empty())
        return true;
    const auto written = host.pdf().createPDF(report, arguments.pdf, facts);
    if (!written)
        console.fail(written.error().message);
    return written.ok();
}

int runScan(const ScanArguments& arguments, const Console& console)
{
    auto host =
        Host::open(console, arguments.volume, arguments.noStore ? StoreUse::None : StoreUse::Write,
                   arguments.paced ? Pacing::Paced : Pacing::Unpaced, Asking::WhatScansAsk);
    if (!host)
        return console.fail(host.error().message);
    if (const auto holds = (*host)->mustHoldMac(); !holds)
        return console.fail(holds.error().message);
    // A store that cannot be written is better known before the scan than after it.
    if (const auto writable = (*host)->defaults().set(preferences::kScan, false); !writable)
        return console.fail(writable.error().message + " (--no-store scans without a store)");

    if (const auto writable = mayWriteDocument(arguments.pdf); !writable)
        return console.fail(writable.error().message);
    if (arguments.due &&
        !takeScheduled((*host)->defaults(), *arguments.due, (*host)->clock().now())) {
        console.say("the scan that was due has just been done");
        return kDone;
    }

    ScanRun scan(console, **host, arguments);
    const bool finished = scan.run();
    const bool madeReport = scan.controller().report() != nullptr;
    const bool lost = !scan.controller().storeError().empty();
    const bool kept = madeReport && !arguments.noStore && !lost;
    // However a scan ends, what it found by then is told, and in the same form.
    const auto report = scan.controller().reportForShowing();
    std::optional<ReportAppendix> facts;
    if (arguments.facts && finished)
        facts = factsAppendix((*host)->disk(), (*host)->whose(), console.interrupted);
    const ReportAppendix* const appendix = facts ? &*facts : nullptr;
    writeReport(console, *report, arguments.format, kept, appendix);
    const bool written = writeDocument(console, **host, arguments, *report, appendix);
    if (!scan.controller().givenUp().empty())
        return console.fail("the scan was given up: " + scan.controller().givenUp());
    if (!finished) {
        console.say(kept ? "interrupted; what was found so far stands above and is stored "
                           "(pryvane-cli report show latest)"
                         : "interrupted; what was found so far stands above, and no report was "
                           "stored");
        return kInterrupted;
    }
    if (!madeReport)
        console.say("a deep scan with --check-sub-dir n leaves no report");
    if (!written)
        return kFailed;
    if (lost)
        return console.fail("the report is not stored; what the scan found stands above alone");
    return wordsFor(report->verdict()).exitCode;
}

/// The disks that are named in place of a volume; empty where there are none.
Result<std::vector<ScanSource>> sourcesOf(const ScanArguments& arguments, std::istream& input)
{
    if (!arguments.from.empty())
        return readScanSources(arguments.from, input);
    std::vector<ScanSource> sources;
    sources.reserve(arguments.disks.size());
    for (const std::string& path : arguments.disks)
        sources.push_back({path.substr(0, kLongestLabel), path, recognisedKind(path)});
    return sources;
}

/// What is named alone is scanned as if an option had named it.
ScanArguments ofOneDisk(ScanArguments arguments, const ScanSource& source)
{
    switch (source.kind) {
    case ScanSource::Kind::Folder:
        arguments.volume.volume = source.path;
        break;
    case ScanSource::Kind::Image:
        arguments.volume.image = source.path;
        break;
    case ScanSource::Kind::Listing:
        arguments.volume.listing = source.path;
        break;
    }
    return arguments;
}

int runScheduledScan(ScanArguments arguments, const Console& console)
{
    const auto due = dueScan(console);
    if (!due)
        return console.fail(due.error().message);
    if (!*due)
        return kDone;
    arguments.volume = (*due)->volume;
    arguments.due = (*due)->moment;
    return runScan(arguments, console);
}

int runScans(const ScanArguments& arguments, const Console& console)
{
    if (arguments.scheduled)
        return runScheduledScan(arguments, console);
    const auto sources = sourcesOf(arguments, console.in);
    if (!sources)
        return console.fail(sources.error().message);
    if (sources->empty())
        return runScan(arguments, console);
    if (arguments.from.empty() && sources->size() == 1)
        return runScan(ofOneDisk(arguments, sources->front()), console);
    if (!arguments.labels.label.empty())
        return console.fail("--label is for one disk; name several in a file with --from, which "
                            "gives each its own");
    if (arguments.format == "json" || !arguments.pdf.empty())
        return console.fail("several disks are told with --format text or jsonl; make documents "
                            "of their reports with pryvane-cli report");
    return scanManyDisks(*sources, arguments, console);
}

} // namespace

void addScanCommand(CommandLine& line, CLI::App& app)
{
    auto arguments = std::make_shared<ScanArguments>();
    CLI::App* command = line.addCommand(
        app, "scan", "Look for spyware and store a report",
        [arguments](const Console& console) { return runScans(*arguments, console); });
    auto* quick = command->add_flag("--quick", arguments->quick,
                                    "Look in the places that known spyware uses (the default)");
    auto* deep = command->add_flag("--deep", arguments->deep,
                                   "Look there and at every file below the user's home");
    deep->excludes(quick);
    command
        ->add_flag("--whole-disk", arguments->wholeDisk,
                   "With --deep: look at every file of the disk")
        ->needs(deep);
    command
        ->add_option("--check-sub-dir", arguments->checkSubDir,
                     "With --deep: n counts every entry beforehand and leaves no report")
        ->check(CLI::IsMember({"y", "n"}))
        ->type_name("y|n")
        ->needs(deep);
    auto* disks = command->add_option("DISK", arguments->disks,
                                      "Folders, images and lists of names to scan, each by itself, "
                                      "in place of --volume, --image and --listing");
    auto* from = command
                     ->add_option("--from", arguments->from,
                                  "A file that names such disks, or - for standard input: a line "
                                  "for each with label, tab and path")
                     ->type_name("FILE")
                     ->excludes(disks);
    command
        ->add_option("--jobs", arguments->jobs,
                     "With several disks: how many at the same time (default: up to 4)")
        ->type_name("N")
        ->check(CLI::Range(1U, 64U));
    addVolumeOptions(*command, arguments->volume);
    auto* scheduled =
        command
            ->add_flag("--scheduled", arguments->scheduled,
                       "Do the scan that the window's schedule has for now, unless Pryvane runs "
                       "and does it; for the timer that the window sets up")
            ->excludes(deep)
            ->excludes(disks)
            ->excludes(from);
    for (const char* const other : {"--volume", "--image", "--listing"}) {
        disks->excludes(command->get_option(other));
        from->excludes(command->get_option(other));
        scheduled->excludes(command->get_option(other));
    }
    auto* paced = command->add_flag("--paced", arguments->paced,
                                    "Pause after each check, as the window does");
    command->add_flag("--no-pacing", arguments->noPacing, "Scan at full speed (the default)")
        ->excludes(paced);
    auto* store = command->add_flag("--store", arguments->store, "Store the report (the default)");
    command->add_flag("--no-store", arguments->noStore, "Store nothing; needs no data folder")
        ->excludes(store);
    addLabelOptions(*command, arguments->labels);
    addFormatOption(*command, arguments->format, {"text", "json", "jsonl"});
    command->add_option("--pdf", arguments->pdf, "Write the report as a PDF document as well")
        ->type_name("FILE");
    command->add_flag("--facts", arguments->facts, kFactsHelp);
    command->footer(
        "Exit code: 0 clean, 1 findings or an application that bears a known name, 2 error,\n"
        "3 nothing found but not everything could be looked at, 130 interrupted.\n"
        "Several disks are scanned each in a process of its own; their results come whole, then a\n"
        "line for each. The exit code is the worst: 130 before 2, 1, 3 and 0.\n"
        "Example: pryvane-cli scan --volume /mnt/mac --user alice --format json");
}

} // namespace pryvane::cli
