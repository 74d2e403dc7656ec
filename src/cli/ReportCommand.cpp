#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/Host.h"
#include "cli/InventoryFacts.h"
#include "cli/ReportText.h"
#include "core/Escape.h"
#include "removal/disk/RemovalJournalFile.h"
#include "reports/DefaultMethods.h"
#include "reports/JsonLines.h"
#include "reports/RecordAvailability.h"
#include "reports/ReportBundle.h"
#include "reports/ReportCompare.h"
#include "reports/ReportExport.h"
#include "reports/pdf/PDFGenerate.h"
#include "reports/pdf/ReportPrinting.h"

#include <ostream>
#include <string_view>
#include <unordered_map>

namespace pryvane::cli {

namespace {

struct ReportArguments {
    VolumeArguments volume;
    std::string id;
    std::string otherId;
    std::string format;
    std::string file;
    std::string bundle;
    std::string printer;
    bool yes = false;
    bool facts = false;
};

using Arguments = std::shared_ptr<ReportArguments>;

/// Opens the store and hands it to `work`.
template <typename Work>
int withStore(const Console& console, const ReportArguments& arguments, StoreUse use, Work work)
{
    auto host = Host::open(console, arguments.volume, use);
    if (!host)
        return console.fail(host.error().message);
    DefaultMethods store((*host)->defaults(), (*host)->disk(), (*host)->clock(), (*host)->log());
    return work(**host, store);
}

/// Opens the store and hands the named report to `work`.
template <typename Work>
int withReport(const Console& console, const ReportArguments& arguments, Work work)
{
    return withStore(console, arguments, StoreUse::Read, [&](Host& host, DefaultMethods& store) {
        const auto report = findReport(store, arguments.id, arguments.volume.named(host.disk()));
        return report ? work(host, store, **report) : console.fail(report.error().message);
    });
}

std::string stateOf(const ReportFacts& report)
{
    const std::string word = wordsFor(report.verdict).machine;
    return report.findings > 0 ? word + ' ' + std::to_string(report.findings) : word;
}

int listReports(const ReportArguments& arguments, const Console& console)
{
    return withStore(console, arguments, StoreUse::Read, [&](Host& host, DefaultMethods& store) {
        using Align = TextTable::Align;
        TextTable table({Align::Left, Align::Left, Align::Left, Align::Left, Align::Left,
                         Align::Left, Align::Left, Align::Left});
        const auto list = store.listReports();
        if (!list)
            return console.fail(list.error().message);
        const Date now = host.clock().now();
        const auto of = arguments.volume.named(host.disk());
        const bool canBeTold = of && !of->empty();
        std::size_t others = 0;
        for (const ReportFacts& report : *list) {
            if (canBeTold && !isSameVolume(report.volume, *of)) {
                ++others;
                continue;
            }
            table.addRow({forTerminal(report.reportId), localDateText(report.scanDate),
                          forTerminal(report.reportType), stateOf(report),
                          forTerminal(diskName(report.subject, report.labels)),
                          forTerminal(userNames(report.subject)), sinceText(report.scanDate, now),
                          forTerminal(report.scanDuration)});
        }
        console.out << table.text();
        if (list->empty() && host.hasLogged())
            return int{kFailed}; // the list could not be read, and that has been said
        if (list->empty())
            console.say("no reports yet; pryvane-cli scan makes one");
        if (others > 0)
            console.say(countedText(others, "report", "reports") +
                        " of other disks left out; without --volume all are listed");
        if (of && !canBeTold && !list->empty())
            console.say("this disk cannot be told from others, so all reports are listed");
        return int{kDone};
    });
}

/// What the journal last said of each record of the report since that was made.
RemovalRecords removalsOf(const SpywareScanReport& report, const std::string& dataFolder)
{
    std::unordered_map<std::string, RemovalRecord> last;
    readRemovalJournal(dataFolder, [&](const RemovalRecord& record) {
        if (isSameVolume(record.volume, report.volume) && record.time >= report.scanDate)
            last.insert_or_assign(record.key, record);
    });
    RemovalRecords records;
    for (std::size_t i = 0; !last.empty() && i < report.spyWareList->size(); ++i) {
        if (auto of = last.extract(journalKey((*report.spyWareList)[i]->url)))
            records.emplace(i, std::move(of.mapped()));
    }
    return records;
}

void writeRemovals(const Console& console, const SpywareScanReport& report,
                   const std::string& dataFolder)
{
    const std::string text = removalsText(removalsOf(report, dataFolder));
    if (!text.empty())
        console.out << "\nRemovals since:\n"
                    << text << "Journal:  " << forTerminal(removalJournalPath(dataFolder)) << "\n";
}

void writeReport(const Console& console, const SpywareScanReport& report,
                 const std::string& dataFolder, Date now)
{
    console.out << "Report:   " << forTerminal(report.reportId) << "\n"
                << "Date:     " << localDateText(report.scanDate) << " ("
                << sinceText(report.scanDate, now) << ")\n"
                << "Kind:     " << forTerminal(report.reportType) << "\n"
                << "Duration: " << forTerminal(report.scanDuration) << "\n"
                << labelsText(report.labels) << "Mac:      " << subjectText(report.subject)
                << "\n\n"
                << verdictText(report, console) << "\n";
    if (!report.spyWareList->empty())
        writeFindings(*report.spyWareList, console.out << "\n");
    writeRemovals(console, report, dataFolder);
    console.out << "\n" << coverageText(report.coverage);
}

/// Says why it is not known of some findings whether they are still there.
void sayWhatIsNotKnown(const Console& console, Host& host, const SpywareScanReport& report)
{
    if (report.spyWareList->empty())
        return;
    const std::string here = host.disk().identity();
    if (const auto why = whyNotAsked(report, here); !why.empty()) {
        const bool canBeTold = !report.volume.empty() && !here.empty();
        console.say(std::string(why) + ", so what is still there is not known; " +
                    (canBeTold ? "name its volume with --volume DIR" : "scan it again"));
        return;
    }
    std::size_t unknown = 0;
    for (const auto& record : *report.spyWareList)
        unknown += record->presence == Presence::Unknown ? 1 : 0;
    if (unknown > 0)
        console.say("of " + countedText(unknown, "finding", "findings") +
                    " it is not known whether it is still there: " + std::string(kUnsearchable));
}

int showReport(const ReportArguments& arguments, const Console& console)
{
    const auto show = [&](Host& host, DefaultMethods&, const SpywareScanReport& report) {
        sayWhatIsNotKnown(console, host, report);
        writeReport(console, report, host.dataFolder(), host.clock().now());
        return int{kDone};
    };
    return withReport(console, arguments, show);
}

/// The facts of the report's own disk, where they are wanted. The error says why that disk cannot
/// be asked: another one's would stand there as if they were its own.
Result<std::optional<ReportAppendix>> wantedFacts(const ReportArguments& arguments, Host& host,
                                                  const SpywareScanReport& report,
                                                  const Console& console)
{
    if (!arguments.facts)
        return std::optional<ReportAppendix>();
    if (const auto why = whyNotAsked(report, host.disk().identity()); !why.empty())
        return Error{std::string(why) +
                     ", so its facts cannot be read; name its volume with --volume DIR, or leave "
                     "--facts out"};
    return std::optional(
        factsAppendix(host.disk(), UserChoice(report.subject.users), console.interrupted));
}

int writeBundle(const std::string& folder, Host& host, const SpywareScanReport& report,
                const ReportAppendix* appendix, const Console& console)
{
    const auto written = writeReportBundle(folder, report, appendix, [&](const std::string& path) {
        return host.pdf().createPDF(report, path, appendix);
    });
    return written ? int{kDone} : console.fail(written.error().message);
}

int exportReport(const ReportArguments& arguments, const Console& console)
{
    const bool isTable = arguments.format == "csv" || arguments.format == "timeline";
    if (arguments.facts && isTable && arguments.bundle.empty())
        return console.fail("a table of findings has no room for facts; --facts goes with html, "
                            "json and jsonl");
    return withReport(console, arguments,
                      [&](Host& host, DefaultMethods&, const SpywareScanReport& report) {
                          const auto facts = wantedFacts(arguments, host, report, console);
                          if (!facts)
                              return console.fail(facts.error().message);
                          const ReportAppendix* const appendix = *facts ? &**facts : nullptr;
                          sayWhatIsNotKnown(console, host, report);
                          if (!arguments.bundle.empty())
                              return writeBundle(arguments.bundle, host, report, appendix, console);
                          if (arguments.format == "csv")
                              writeAsCsv(report, console.sink());
                          else if (arguments.format == "timeline")
                              writeAsTimeline(report, console.sink());
                          else if (arguments.format == "jsonl")
                              writeReportLines(report, console.sink(), appendix);
                          else if (arguments.format == "html")
                              writeAsHtml(report, console.sink(), appendix);
                          else
                              writeAsJson(report, console.sink(), appendix);
                          return int{kDone};
                      });
}

int writePdf(const ReportArguments& arguments, const Console& console)
{
    const auto write = [&](Host& host, DefaultMethods&, const SpywareScanReport& report) {
        const auto facts = wantedFacts(arguments, host, report, console);
        if (!facts)
            return console.fail(facts.error().message);
        const auto written =
            host.pdf().createPDF(report, arguments.file, *facts ? &**facts : nullptr);
        if (!written)
            return console.fail(written.error().message);
        sayWhatIsNotKnown(console, host, report);
        return int{kDone};
    };
    return withReport(console, arguments, write);
}

int printReport(const ReportArguments& arguments, const Console& console)
{
    const auto print = [&](Host& host, DefaultMethods&, const SpywareScanReport& report) {
        const PrintOutcome outcome = host.printing().makeAndPrintPDF(report, arguments.printer);
        switch (outcome.state) {
        case PrintOutcome::State::Failed:
            if (console.interrupted.requested()) {
                console.say(outcome.reason);
                return int{kInterrupted};
            }
            return console.fail(outcome.reason);
        case PrintOutcome::State::NothingToPrint:
            return console.fail("the document is gone; nothing was printed");
        case PrintOutcome::State::Sent:
            break;
        }
        sayWhatIsNotKnown(console, host, report);
        console.out << "Print job " << outcome.job << "\n";
        return int{kDone};
    };
    return withReport(console, arguments, print);
}

int deleteReport(const ReportArguments& arguments, const Console& console)
{
    return withStore(console, arguments, StoreUse::Write, [&](Host& host, DefaultMethods& store) {
        const auto report = findFacts(store, arguments.id, arguments.volume.named(host.disk()));
        if (!report)
            return console.fail(report.error().message);
        if (!console.confirmed("Delete the report of " + localDateText(report->scanDate) + "?",
                               arguments.yes))
            return int{kFailed};
        const auto deleted = store.deleteReport(report->reportId);
        return deleted ? int{kDone} : console.fail(deleted.error().message);
    });
}

void printChanges(const Console& console, const char* sign, const SpywareList& list)
{
    for (const auto& record : list) {
        console.out << sign << ' ' << forTerminal(record->infections) << "  "
                    << forTerminal(record->url.relativePath()) << "\n";
    }
}

int compareReports(const ReportArguments& arguments, const Console& console)
{
    return withStore(console, arguments, StoreUse::Read, [&](Host& host, DefaultMethods& store) {
        const auto of = arguments.volume.named(host.disk());
        const auto older = findReport(store, arguments.id, of);
        const auto newer = findReport(store, arguments.otherId, of);
        if (!older)
            return console.fail(older.error().message);
        if (!newer)
            return console.fail(newer.error().message);
        const ReportComparison changes = pryvane::compareReports(**older, **newer);
        if (const std::string remark = comparisonRemark(**older, **newer); !remark.empty())
            console.say(remark);
        printChanges(console, "+", changes.added);
        printChanges(console, "-", changes.gone);
        console.out << changes.added.size() << " new, " << changes.gone.size() << " gone, "
                    << changes.kept.size() << " in both\n"
                    << "before: " << (*older)->verdictLine() << "\n"
                    << "after:  " << (*newer)->verdictLine() << "\n";
        return int{kDone};
    });
}

CLI::App* addOne(CommandLine& line, CLI::App& parent, const std::string& name,
                 const std::string& description,
                 int (*work)(const ReportArguments&, const Console&), const Arguments& arguments)
{
    CLI::App* command =
        line.addCommand(parent, name, description, [work, arguments](const Console& console) {
            return work(*arguments, console);
        });
    addVolumeOptions(*command, arguments->volume);
    return command;
}

void addId(CLI::App& command, std::string& target, const char* name = "ID")
{
    command.add_option(name, target, "A report's identity, or the beginning of it, or \"latest\"")
        ->required();
}

} // namespace

void addReportCommand(CommandLine& line, CLI::App& app)
{
    CLI::App* parent =
        app.add_subcommand("report", "Show, export, print, compare and delete reports");
    parent->require_subcommand(1);
    const auto arguments = std::make_shared<ReportArguments>();

    addOne(line, *parent, "list",
           "Reports, newest first, each behind its identity; of one disk where it is named",
           listReports, arguments);
    addId(*addOne(line, *parent, "show", "One report, with what is still there", showReport,
                  arguments),
          arguments->id);

    CLI::App* exported = addOne(line, *parent, "export", "One report in a file format, on stdout",
                                exportReport, arguments);
    addId(*exported, arguments->id);
    addFormatOption(*exported, arguments->format, {"json", "jsonl", "csv", "html", "timeline"});
    exported
        ->add_option("--bundle", arguments->bundle,
                     "Make this folder and write the report into it in every form, with a file of "
                     "SHA-256 sums")
        ->type_name("DIR")
        ->excludes("--format");
    exported->add_flag("--facts", arguments->facts, kFactsHelp);

    CLI::App* pdf =
        addOne(line, *parent, "pdf", "One report as a PDF document", writePdf, arguments);
    addId(*pdf, arguments->id);
    pdf->add_option("FILE", arguments->file, "Where to write it; an older file is replaced")
        ->required();
    pdf->add_flag("--facts", arguments->facts, kFactsHelp);

    CLI::App* printed =
        addOne(line, *parent, "print", "One report on paper", printReport, arguments);
    addId(*printed, arguments->id);
    printed->add_option("--printer", arguments->printer, "The queue (default: the default printer)")
        ->type_name("NAME");

    CLI::App* deleted =
        addOne(line, *parent, "delete", "Delete one report", deleteReport, arguments);
    addId(*deleted, arguments->id);
    deleted->add_flag("--yes", arguments->yes, "Do not ask");

    CLI::App* compared = addOne(line, *parent, "compare", "What changed between two reports",
                                compareReports, arguments);
    addId(*compared, arguments->id, "OLD");
    addId(*compared, arguments->otherId, "NEW");
}

} // namespace pryvane::cli
