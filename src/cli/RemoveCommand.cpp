#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/Host.h"
#include "cli/RemoveLines.h"
#include "cli/RemoveText.h"
#include "cli/ReportText.h"
#include "core/Escape.h"
#include "core/Texts.h"
#include "platform/Machine.h"
#include "removal/session/BrowsersToQuit.h"
#include "removal/session/RecordRemoval.h"
#include "reports/DefaultMethods.h"
#include "signatures/FlaggedBy.h"
#include "signatures/MakersApplications.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <optional>
#include <ostream>
#include <set>

namespace pryvane::cli {

namespace {

struct RemoveArguments {
    VolumeArguments volume;
    std::string id;
    std::vector<std::string> items;
    bool all = false;
    bool weak = false;
    bool dryRun = false;
    bool yes = false;
    std::string format;

    [[nodiscard]] bool writesLines() const { return format == "jsonl"; }
};

/// What was chosen of a report, with the items' numbers.
struct Choice {
    RecordSelection selection;
    std::vector<std::size_t> numbers;
    std::optional<std::size_t> leftOut = {}; ///< the number of the item that is never removed
    std::size_t weak = 0; ///< still there on weak evidence, which must be asked for

    [[nodiscard]] bool isAll() const { return !leftOut && weak == 0; }
};

std::string remoteDesktopText(std::size_t number)
{
    return "item " + std::to_string(number) +
           " stays: " + obstacleText(RemovalObstacle::RemoteDesktop);
}

std::string weakText(std::size_t count)
{
    return countedText(count, "finding that rests", "findings that rest") +
           " on weak evidence (a part of a name alone) " + (count == 1 ? "stays" : "stay") +
           "; it may well be something harmless. pryvane-cli report show tells what matched; "
           "remove "
           "it with --item N, or all of it with --weak";
}

Result<std::size_t> itemNumber(const std::string& text, std::size_t count)
{
    std::size_t number = 0;
    const char* end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, number);
    const std::string shown = "\"" + forTerminal(text) + "\"";
    if (error == std::errc::invalid_argument || parsed != end)
        return Error{shown + " is no item's number; pryvane-cli report show lists the items with "
                             "their numbers"};
    if (error != std::errc() || number < 1 || number > count)
        return Error{"there is no item " + shown + "; the report's items are numbered from 1 to " +
                     std::to_string(count)};
    return number;
}

Result<std::vector<std::size_t>> itemNumbers(const RemoveArguments& arguments, std::size_t count)
{
    std::vector<std::size_t> numbers;
    if (arguments.all) {
        for (std::size_t number = 1; number <= count; ++number)
            numbers.push_back(number);
        return numbers;
    }
    std::set<std::size_t> named;
    for (const std::string& text : arguments.items) {
        const auto number = itemNumber(text, count);
        if (!number)
            return number.error();
        if (!named.insert(*number).second)
            return Error{"item " + std::to_string(*number) + " is named twice; name it once"};
        numbers.push_back(*number);
    }
    return numbers;
}

Result<Choice> choose(const SpywareScanReport& report, const RemoveArguments& arguments)
{
    const auto numbers = itemNumbers(arguments, report.spyWareList->size());
    if (!numbers)
        return numbers.error();
    Choice choice;
    choice.selection.volume = report.volume;
    SpywareList weak;
    const bool leavesWeak = arguments.all && !arguments.weak;
    FindingRules rules;
    for (const std::size_t number : *numbers) {
        const auto& record = (*report.spyWareList)[number - 1];
        const bool stays = isRemoteDesktop(*record);
        if (stays && !arguments.all)
            return Error{remoteDesktopText(number)};
        if (stays) {
            choice.leftOut = number;
        } else if (leavesWeak && isWeak(rules.flaggedBy(*record).evidence)) {
            if (record->isAvail())
                weak.push_back(record);
        } else {
            choice.selection.records.push_back(record);
            choice.numbers.push_back(number);
        }
    }
    choice.selection.there = thereOf(*report.spyWareList);
    GoingLocations going;
    for (const auto& record : choice.selection.records)
        going.add(*record);
    choice.weak = static_cast<std::size_t>(std::ranges::count_if(
        weak, [&](const auto& record) { return !going.holdFolderOf(*record); }));
    return choice;
}

/// Whether a browser that runs has findings among its files; each is named.
bool browsersBlock(Host& host, const SpywareList& records, const Console& console)
{
    const auto entries =
        browsersToQuit(pathsOf(records), host.workspace().runningApplications(), host.user());
    for (const BrowserEntry& entry : entries)
        console.say(entry.NameBrowser +
                    " is running and keeps its data open, in which there are findings; quit it "
                    "first");
    return !entries.empty();
}

int interruptedBefore(const Console& console)
{
    console.say("interrupted; nothing was removed");
    return kInterrupted;
}

/// Shows what would happen, and before the first removal from a disk what to think of; false when
/// the user stopped it.
bool showPlan(RecordRemoval& removal, const Choice& choice, const RemoveArguments& arguments,
              const Console& console)
{
    RemovalPlan plan;
    withProgress(
        console, [] { return std::string("looking"); },
        [&] { plan = removal.plan(choice.selection, console.interrupted); });
    if (plan.stopped)
        return false;
    if (arguments.writesLines())
        writePlanLines(console.sink(), plan, choice.numbers);
    else
        console.out << planText(plan, choice.numbers)
                    << (arguments.dryRun ? "Would remove: " : "To be removed: ")
                    << planTotalText(plan) << "\n";
    console.out << std::flush;
    if (plan.isFirst)
        console.say("nothing was removed from this disk before. If somebody may be watching this "
                    "Mac: removing destroys evidence of it, and whoever installed it may notice. "
                    "Keep a record first (pryvane-cli report pdf " +
                    forTerminal(arguments.id) + " FILE, report export " +
                    forTerminal(arguments.id) +
                    " --format json), and think of your safety before you go on");
    return true;
}

int carryOut(RecordRemoval& removal, const Choice& choice, const RemoveArguments& arguments,
             Host& host, const Console& console)
{
    const SpywareList& records = choice.selection.records;
    std::vector<RemovalResult> results(records.size());
    std::atomic<std::size_t> done{0};
    RemovalCounts counts;
    withProgress(
        console,
        [&] {
            return "removing: " + std::to_string(done) + " of " + std::to_string(records.size());
        },
        [&] {
            counts = removal.remove(choice.selection, console.interrupted,
                                    [&](std::size_t item, const RemovalResult& result) {
                                        results[item] = result;
                                        ++done;
                                    });
        });
    const auto left = counts.tally.left;
    if (arguments.writesLines()) {
        writeOutcomeLines(console.sink(), records, results, choice.numbers);
        writeRemovalEnd(console.sink(), results, left, host.clock().now());
    } else {
        console.out << outcomeText(records, results, choice.numbers);
        if (left > 0)
            console.out << "Left: " << countedText(left, "finding", "findings")
                        << " of the report\n";
    }
    const auto isStopped = [](const RemovalResult& result) {
        return result.obstacle == RemovalObstacle::Stopped;
    };
    if (std::ranges::any_of(results, isStopped)) {
        console.say("interrupted; the lines above tell what was removed by then");
        return kInterrupted;
    }
    const bool whole = std::ranges::none_of(results, [](const RemovalResult& result) {
        return result.outcome == RemovalOutcome::Failed;
    });
    return whole && choice.isAll() ? kDone : kFindings;
}

/// The lines of a removal that removes nothing.
void writeNothingRemoved(Host& host, const SpywareScanReport& report, const Console& console)
{
    const auto left = static_cast<std::size_t>(std::ranges::count_if(
        *report.spyWareList, [](const auto& record) { return record->isAvail(); }));
    writeRemovalEnd(console.sink(), {}, left, host.clock().now());
}

int removeChosen(Host& host, const SpywareScanReport& report, const Choice& choice,
                 const RemoveArguments& arguments, const Console& console)
{
    const std::string here = host.disk().identity();
    if (!isSameVolume(choice.selection.volume, here)) {
        if (choice.selection.volume.empty() || here.empty())
            return console.fail("it cannot be told whether the report is of this disk, so nothing "
                                "was removed; scan it again first, in the window, which removes "
                                "what it has just found");
        return console.fail("the report is of another volume, so nothing was removed; name its "
                            "volume with --volume DIR");
    }
    const auto remover = host.remover();
    if (!remover)
        return console.fail(remover.error().message);
    RecordRemoval removal(host.disk(), **remover);
    const bool blocked = browsersBlock(host, choice.selection.records, console);
    if (blocked && !arguments.dryRun)
        return kFindings;
    if (arguments.writesLines())
        writeRemovalHead(console.sink(), host, report, arguments.dryRun);
    if (!arguments.yes || arguments.dryRun) {
        if (!showPlan(removal, choice, arguments, console))
            return interruptedBefore(console);
    }
    if (arguments.dryRun) {
        if (arguments.writesLines())
            writeNothingRemoved(host, report, console);
        return kDone;
    }
    const std::string question =
        "Remove " + countedText(choice.numbers.size(), "finding", "findings") + " for good?";
    const bool confirmed = console.confirmed(question, arguments.yes);
    if (console.interrupted.requested())
        return interruptedBefore(console);
    return confirmed ? carryOut(removal, choice, arguments, host, console) : int{kFailed};
}

int runRemove(const RemoveArguments& arguments, const Console& console)
{
    if (!canChange(arguments.volume, console))
        return kFailed;
    if (!arguments.all && arguments.items.empty())
        return console.fail("name what to remove: --item N for an item of the report, or --all");
    auto host = Host::open(console, arguments.volume, StoreUse::Read);
    if (!host)
        return console.fail(host.error().message);
    DefaultMethods store((*host)->defaults(), (*host)->disk(), (*host)->clock(), (*host)->log());
    const auto report = findReport(store, arguments.id, arguments.volume.named((*host)->disk()));
    if (!report)
        return console.fail(report.error().message);
    const auto writeNothing = [&] {
        if (!arguments.writesLines())
            return;
        writeRemovalHead(console.sink(), **host, **report, arguments.dryRun);
        writeNothingRemoved(**host, **report, console);
    };
    if ((*report)->spyWareList->empty()) {
        console.say("the report has no findings; there is nothing to remove");
        writeNothing();
        return arguments.items.empty() ? kDone : kFailed;
    }
    const auto choice = choose(**report, arguments);
    if (!choice)
        return console.fail(choice.error().message);
    if (choice->leftOut)
        console.say(remoteDesktopText(*choice->leftOut));
    if (choice->weak > 0)
        console.say(weakText(choice->weak));
    if (choice->numbers.empty()) {
        writeNothing();
        return arguments.dryRun || choice->isAll() ? kDone : kFindings;
    }
    return removeChosen(**host, **report, *choice, arguments, console);
}

} // namespace

void addRemoveCommand(CommandLine& line, CLI::App& app)
{
    auto arguments = std::make_shared<RemoveArguments>();
    CLI::App* command = line.addCommand(
        app, "remove", "Remove findings of a report for good",
        [arguments](const Console& console) { return runRemove(*arguments, console); });
    command
        ->add_option("REPORT-ID", arguments->id,
                     "A report's identity, or the beginning of it, or \"latest\"")
        ->required();
    auto* items = command
                      ->add_option("--item", arguments->items,
                                   "Number of a finding in the report, from 1; may be repeated")
                      ->type_name("N")
                      ->allow_extra_args(false);
    auto* all = command
                    ->add_flag("--all", arguments->all,
                               "Every finding of the report but those on weak evidence")
                    ->excludes(items);
    command
        ->add_flag("--weak", arguments->weak,
                   "With --all: also those that rest on a part of a name alone")
        ->needs(all);
    command->add_flag("--dry-run", arguments->dryRun, "Show what would happen, and remove nothing");
    command->add_flag("--yes", arguments->yes, "Do not ask");
    addFormatOption(*command, arguments->format, {"text", "jsonl"});
    addVolumeOptions(*command, arguments->volume);
    command->footer(
        "Nothing goes to a trash: what is removed is gone. Ctrl+C stops between two entries, and\n"
        "what was removed by then is told.\n"
        "--all leaves what rests on a part of a name alone, and tells how much; --weak takes it "
        "too.\n"
        "Exit code: 0 all of it is gone, 1 something stayed or a browser must be quit first,\n"
        "2 error, 130 interrupted.\n"
        "Example: pryvane-cli remove latest --item 2 --item 5 --volume /mnt/mac --user alice");
}

} // namespace pryvane::cli
