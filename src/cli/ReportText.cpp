#include "cli/ReportText.h"

#include "cli/Console.h"
#include "core/Escape.h"
#include "core/Texts.h"
#include "removal/disk/RemovalJournalFile.h"
#include "reports/DefaultMethods.h"
#include "signatures/FlaggedBy.h"

#include <cstdio>
#include <ostream>
#include <unordered_set>

namespace pryvane::cli {

namespace {

constexpr std::size_t kShownRefusals = 20;

std::string secondsText(double seconds)
{
    std::string text(32, '\0');
    const int length = std::snprintf(text.data(), text.size(), "%.3f s", seconds);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

const char* stateWord(const Spyware& record)
{
    if (record.isDeleted)
        return "removed";
    return record.isAvail() ? "present" : presenceWord(record.presence);
}

} // namespace

void writeFindings(const SpywareList& list, std::ostream& out)
{
    using Align = TextTable::Align;
    if (list.empty())
        return;
    FindingRules rules;
    std::unordered_set<std::string> texts;
    std::vector<const std::string*> evidence; // a few different texts for any number of findings
    for (const auto& record : list)
        evidence.push_back(
            &*texts.insert(forTerminal(evidenceText(rules.flaggedBy(*record)))).first);
    const std::vector<std::string> heads{"#",    "Threat", "Risk",     "State",
                                         "Size", "User",   "Evidence", "Location"};
    TextTable::write(
        {Align::Right, Align::Left, Align::Left, Align::Left, Align::Right, Align::Left,
         Align::Left, Align::Left},
        list.size() + 1,
        [&](std::size_t at, TextTable::Row& row) {
            if (at == 0) {
                row = heads;
                return;
            }
            const Spyware& record = *list[at - 1];
            row[0] = std::to_string(at);
            row[1] = forTerminal(record.infections);
            row[2] = forTerminal(record.risk);
            row[3] = stateWord(record);
            row[4] = sizeText(record.size);
            row[5] = forTerminal(whoseText(record));
            row[6] = *evidence[at - 1];
            row[7] = forTerminal(record.url.relativePath());
        },
        "  ", out);
}

std::string removalsText(const RemovalRecords& records)
{
    using Align = TextTable::Align;
    TextTable table({Align::Right, Align::Left, Align::Left, Align::Left});
    for (const auto& [place, record] : records) {
        std::string what = forTerminal(record.reason);
        if (record.outcome == "begun")
            what = "its end is not on record: it goes on at this moment, or was interrupted";
        else if (what.empty() && record.entries > 0)
            what = countedText(record.entries, "entry", "entries") + ", " + sizeText(record.bytes);
        if (!record.remark.empty())
            what += (what.empty() ? "" : "; ") + forTerminal(record.remark);
        table.addRow({std::to_string(place + 1), forTerminal(record.outcome),
                      localDateText(record.time), what});
    }
    return records.empty() ? std::string() : table.text("  ");
}

std::string labelsText(const CaseLabels& labels)
{
    constexpr std::size_t kColumn = 10;
    std::string text;
    for (const auto& [name, words] : labelLines(labels)) {
        std::string line = std::string(name) + ":";
        line.resize(kColumn, ' ');
        text += line + forTerminal(words) + "\n";
    }
    return text;
}

std::string coverageText(const ScanCoverage& coverage)
{
    std::string text = "Looked at: " + std::to_string(coverage.signaturesTested) + " signatures, " +
                       std::to_string(coverage.foldersListed) + " folders listed with " +
                       std::to_string(coverage.entriesSearched) + " entries";
    if (coverage.entriesWalked > 0)
        text += ", " + std::to_string(coverage.entriesWalked) + " entries walked";
    text += ", in " + secondsText(coverage.seconds) + "\n";

    for (const std::string& leftOut :
         {systemVolumeText(coverage), homesLeftOutText(coverage), otherDisksText(coverage)}) {
        if (!leftOut.empty())
            text += "  " + leftOut + "\n";
    }
    std::size_t shown = 0;
    for (const Refusal& refusal : coverage.refused) {
        if (++shown > kShownRefusals) {
            text +=
                "  … and " + std::to_string(coverage.refused.size() - kShownRefusals) + " more\n";
            break;
        }
        text += "  not readable: " + forTerminal(refusal.path) + " (" +
                forTerminal(refusal.reason) + ")\n";
    }
    if (const std::string read = contentsText(coverage); !read.empty())
        text += "  " + read + "\n";
    for (const DeletedName& name : coverage.deleted)
        text += "  deleted, but still named: " + forTerminal(name.path) + " (" +
                forTerminal(name.infections) + ")\n";
    for (const std::string& path : coverage.heldBack)
        text += "  matched, but applications are not listed: " + forTerminal(path) + "\n";
    for (const auto& [label, words] : sourceLines(coverage.source))
        text += (label == "Read from" ? "" : "  ") + label + ": " + words + "\n";
    return text;
}

std::string verdictText(const SpywareScanReport& report, const Console& console)
{
    std::string line = report.verdictLine();
    if (!console.color)
        return line;
    switch (wordsFor(report.verdict()).tone) {
    case Tone::Green:
        return "\033[1;32m" + line + "\033[0m";
    case Tone::Amber:
        return "\033[1;33m" + line + "\033[0m";
    case Tone::Red:
        break;
    }
    return "\033[1;31m" + line + "\033[0m";
}

Result<ReportFacts> findFacts(DefaultMethods& store, std::string_view id,
                              const std::optional<std::string>& of)
{
    auto listed = store.listReports();
    if (!listed)
        return listed.error();
    std::vector<ReportFacts>& list = *listed;
    if (list.empty())
        return Error{"there are no reports yet; pryvane-cli scan makes one"};
    if (id == "latest") {
        if (of && of->empty())
            return Error{"this disk cannot be told from others, so it is not known which report is "
                         "its latest; name one by its identity, as pryvane-cli report list shows "
                         "it"};
        for (ReportFacts& report : list) {
            if (!of || isSameVolume(report.volume, *of))
                return std::move(report);
        }
        return Error{"there are no reports of this disk yet; pryvane-cli report list shows those "
                     "of others"};
    }
    ReportFacts* match = nullptr;
    for (ReportFacts& report : list) {
        if (report.reportId == id)
            return std::move(report);
        if (!id.empty() && std::string_view(report.reportId).starts_with(id)) {
            if (match) {
                return Error{"\"" + forTerminal(id) +
                             "\" begins the identity of more than one "
                             "report; pryvane-cli report list shows them whole"};
            }
            match = &report;
        }
    }
    if (!match) {
        return Error{"there is no report \"" + forTerminal(id) +
                     "\"; pryvane-cli report list shows those there are"};
    }
    return std::move(*match);
}

Result<std::shared_ptr<SpywareScanReport>> findReport(DefaultMethods& store, std::string_view id,
                                                      const std::optional<std::string>& of)
{
    const auto facts = findFacts(store, id, of);
    if (!facts)
        return facts.error();
    return store.loadReport(facts->reportId);
}

} // namespace pryvane::cli
