#include "core/Escape.h"
#include "reports/ReportExport.h"
#include "signatures/FlaggedBy.h"

namespace pryvane {

namespace {

constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="referrer" content="no-referrer">
<title>Pryvane scan report</title>
<style>
:root { color-scheme: light dark; --line: #d5d5da; --soft: #6b6b70; --red: #b52f35; --amber: #8a5a00; --green: #2e7d38; }
@media (prefers-color-scheme: dark) {
  :root { --line: #47474c; --soft: #a0a0a8; --red: #ff8085; --amber: #f0b64a; --green: #6fd47c; }
}
body { font: 15px/1.5 system-ui, sans-serif; max-width: 72rem; margin: 2rem auto; padding: 0 1rem; }
h1 { font-size: 1.4rem; margin-bottom: 0; }
h2 { font-size: 1.1rem; margin-top: 2rem; }
.red { color: var(--red); } .amber { color: var(--amber); } .green { color: var(--green); } .soft { color: var(--soft); }
dl { display: grid; grid-template-columns: max-content 1fr; gap: .2rem 1.5rem; }
dt { color: var(--soft); } dd { margin: 0; }
.table { overflow-x: auto; }
table { border-collapse: collapse; width: 100%; }
th, td { text-align: left; vertical-align: top; padding: .4rem .8rem .4rem 0;
         border-bottom: 1px solid var(--line); }
td.path, li { font-family: ui-monospace, monospace; font-size: .9em; overflow-wrap: anywhere;
              unicode-bidi: isolate; white-space: pre-wrap; }
td.number { text-align: right; font-variant-numeric: tabular-nums; white-space: nowrap; }
</style>
</head>
<body>
)";

/// All text that is not this page's own comes through here.
void element(std::string& page, std::string_view tag, std::string_view bytes,
             std::string_view classes = {})
{
    page += '<';
    page += tag;
    if (!classes.empty()) {
        page += " class=\"";
        page += classes;
        page += '"';
    }
    page += '>';
    page += forHtml(bytes);
    page += "</";
    page += tag;
    page += '>';
}

void fact(std::string& page, std::string_view label, std::string_view bytes)
{
    element(page, "dt", label);
    element(page, "dd", bytes);
    page += '\n';
}

std::string_view toneClass(Tone tone)
{
    switch (tone) {
    case Tone::Red:
        break;
    case Tone::Amber:
        return "amber";
    case Tone::Green:
        return "green";
    }
    return "red";
}

/// Whether it was there when the report was written, with the reason where that is not known.
std::string presenceText(const Spyware& record)
{
    switch (record.presence) {
    case Presence::Present:
        return "there";
    case Presence::Absent:
        return "gone";
    case Presence::Unknown:
        break;
    }
    return record.presenceReason.empty() ? kNotKnown
                                         : "not known: " + std::string(record.presenceReason);
}

void summary(std::string& page, const SpywareScanReport& report)
{
    page += "<h1>Pryvane scan report</h1>\n";
    element(page, "p", report.verdictLine(), toneClass(wordsFor(report.verdict()).tone));
    page += "\n<dl>\n";
    for (const auto& [name, text] : labelLines(report.labels))
        fact(page, name, text);
    fact(page, "Mac", macName(report.subject));
    fact(page, "System", systemText(report.subject));
    fact(page, "Disk", sourceText(report.subject));
    fact(page, "User", userNames(report.subject));
    fact(page, "Scan type", report.reportType);
    fact(page, "Scanned", localDateText(report.scanDate));
    fact(page, "Duration", report.scanDuration);
    fact(page, "Findings", report.countText());
    fact(page, "Report", report.reportId);
    page += "</dl>\n";
}

/// Hands over what stands on the page by then, and each finding.
void findings(std::string& page, const SpywareList& list, const TextSink& sink)
{
    if (list.empty())
        return;
    page += "<h2>Findings</h2>\n<div class=\"table\"><table>\n<thead><tr><th>#</th><th>Name</th>"
            "<th>Threat</th><th>Risk</th><th>Size</th><th>Location</th><th>User</th>"
            "<th>Evidence</th><th>On disk</th></tr>"
            "</thead>\n<tbody>\n";
    FindingRules rules;
    std::size_t item = 0;
    for (const auto& record : list) {
        page += record->isAvail() ? "<tr>" : "<tr class=\"soft\">";
        element(page, "td", std::to_string(++item), "number");
        element(page, "td", record->name(), "path");
        element(page, "td", record->infections);
        element(page, "td", record->risk);
        element(page, "td", sizeText(record->size), "number");
        element(page, "td", record->url.relativePath(), "path");
        element(page, "td", whoseText(*record));
        element(page, "td", evidenceText(rules.flaggedBy(*record)));
        element(page, "td", presenceText(*record));
        page += "</tr>\n";
        sink(page);
        page.clear();
    }
    page += "</tbody>\n</table></div>\n";
}

void coverage(std::string& page, const ScanCoverage& coverage)
{
    page += "<h2>What was looked at</h2>\n<dl>\n";
    for (const auto& [label, words] : sourceLines(coverage.source))
        fact(page, label, words);
    fact(page, "Signatures tested", std::to_string(coverage.signaturesTested));
    for (const std::string& leftOut :
         {systemVolumeText(coverage), homesLeftOutText(coverage), otherDisksText(coverage)}) {
        if (!leftOut.empty())
            fact(page, "Left out", leftOut);
    }
    fact(page, "Folders listed", std::to_string(coverage.foldersListed));
    fact(page, "Entries searched", std::to_string(coverage.entriesSearched));
    fact(page, "Entries walked", std::to_string(coverage.entriesWalked));
    if (const std::string read = contentsText(coverage); !read.empty())
        fact(page, "Contents", read);
    page += "</dl>\n";
    if (!coverage.deleted.empty()) {
        page += "<h2>Names of what is deleted</h2>\n<ul>\n";
        for (const DeletedName& name : coverage.deleted)
            element(page, "li", name.path + ": deleted, " + name.infections), page += '\n';
        page += "</ul>\n";
    }
    if (!coverage.refused.empty()) {
        page += "<h2>What could not be read</h2>\n<ul>\n";
        for (const Refusal& refusal : coverage.refused)
            element(page, "li", refusal.path + ": " + refusal.reason), page += '\n';
        page += "</ul>\n";
    }
    if (!coverage.heldBack.empty()) {
        page += "<h2>Applications that were held back</h2>\n<ul>\n";
        for (const auto& path : coverage.heldBack)
            element(page, "li", path), page += '\n';
        page += "</ul>\n";
    }
}

void appendixList(std::string& page, const ReportAppendix::List& list)
{
    element(page, "h2", list.title);
    page += '\n';
    if (list.groups.empty())
        page += "<p>Nothing of this was found in the places that were read.</p>\n";
    for (const ReportAppendix::Group& group : list.groups) {
        element(page, "h3", group.title);
        page += '\n';
        element(page, "p", group.meaning);
        page += "\n<ul>\n";
        for (const ReportAppendix::Row& row : group.rows) {
            page += "<li>";
            element(page, "b", row.cells.front());
            for (const std::string& detail : detailsOf(list, row)) {
                page += "<br>";
                element(page, "span", detail, "path");
            }
            page += "</li>\n";
        }
        page += "</ul>\n";
    }
}

void appendixOf(std::string& page, const ReportAppendix& appendix)
{
    element(page, "h1", appendix.title);
    page += '\n';
    element(page, "p", appendix.introduction);
    page += '\n';
    for (const ReportAppendix::List& list : appendix.lists)
        appendixList(page, list);
    if (appendix.missing.empty())
        return;
    page += "<h2>What of this could not be read</h2>\n<ul>\n";
    for (const std::string& missing : appendix.missing)
        element(page, "li", missing), page += '\n';
    page += "</ul>\n";
}

} // namespace

void writeAsHtml(const SpywareScanReport& report, const TextSink& sink,
                 const ReportAppendix* appendix)
{
    std::string page(kHead);
    summary(page, report);
    findings(page, *report.spyWareList, sink);
    coverage(page, report.coverage);
    if (appendix)
        appendixOf(page, *appendix);
    page += "</body>\n</html>\n";
    sink(page);
}

} // namespace pryvane
