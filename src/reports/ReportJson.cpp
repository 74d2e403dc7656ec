#include "core/Escape.h"
#include "reports/ReportExport.h"
#include "signatures/FlaggedBy.h"

#include <nlohmann/json.hpp>

namespace pryvane {

namespace {

using Json = nlohmann::ordered_json;

Json recordJson(const Spyware& record, const FlaggedBy& flaggedBy)
{
    Json json = {
        {"name", forJson(record.name)},
        {"infections", forJson(record.infections)},
        {"size", record.size},
        {"path", forJson(record.url.relativePath())},
        {"url", record.url.urlText()},
        {"risk", forJson(record.risk)},
        {"isAvail", record.isAvail()},
        {"isChecked", record.isChecked},
        {"isDeleted", record.isDeleted},
        {"isNoAction", record.isNoAction},
        {"evidence", evidenceText(flaggedBy.evidence)},
        {"isWeak", isWeak(flaggedBy.evidence)},
        {"rule", flaggedBy.rule},
        {"matched", forJson(flaggedBy.text)},
        {"presence", presenceWord(record.presence)},
        {"user", forJson(record.user)},
    };
    if (!record.presenceReason.empty())
        json["presenceReason"] = forJson(record.presenceReason);
    return json;
}

Json namesJson(const std::vector<std::string>& names)
{
    Json json = Json::array();
    for (const auto& name : names)
        json.push_back(forJson(name));
    return json;
}

/// Null stands for what is not known.
Json textOrNull(const std::string& bytes)
{
    return bytes.empty() ? Json() : Json(forJson(bytes));
}

Json subjectJson(const Subject& subject, const std::string& volume)
{
    return {
        {"source", sourceWord(subject.source.kind)},
        {"volumeName", textOrNull(subject.source.name)},
        {"identity", textOrNull(volume)},
        {"computerName", textOrNull(subject.computerName)},
        {"systemVersion", textOrNull(subject.systemVersion)},
        {"users", namesJson(subject.users)},
    };
}

const char* endingWord(ScanEnding::How how)
{
    switch (how) {
    case ScanEnding::How::Finished:
        break;
    case ScanEnding::How::Stopped:
        return "stopped";
    case ScanEnding::How::GrantFailed:
        return "grantFailed";
    }
    return "finished";
}

Json coverageJson(const ScanCoverage& coverage)
{
    Json refused = Json::array();
    for (const Refusal& refusal : coverage.refused)
        refused.push_back({{"path", forJson(refusal.path)}, {"reason", forJson(refusal.reason)}});
    return {
        {"ended", endingWord(coverage.ended.how)},
        {"endedAtPercent",
         coverage.ended.percent == ScanEnding::kNotKnown ? Json() : Json(coverage.ended.percent)},
        {"signaturesTested", coverage.signaturesTested},
        {"systemVolumeLeftOut", coverage.systemVolumeLeftOut},
        {"foldersListed", coverage.foldersListed},
        {"entriesSearched", coverage.entriesSearched},
        {"entriesWalked", coverage.entriesWalked},
        {"refused", std::move(refused)},
        {"heldBack", namesJson(coverage.heldBack)},
        {"missingHome", forJson(coverage.missingHome)},
        {"homes", namesJson(coverage.homes)},
        {"homesLeftOut", namesJson(coverage.homesLeftOut)},
        {"otherDisks", namesJson(coverage.otherDisks)},
        {"seconds", coverage.seconds},
    };
}

} // namespace

std::string reportAsJson(const SpywareScanReport& report, const ReportAppendix* appendix)
{
    Json list = Json::array();
    FindingRules rules;
    for (const auto& record : *report.spyWareList)
        list.push_back(recordJson(*record, rules.flaggedBy(*record)));
    Json json = {
        {"report",
         {
             {"reportId", forJson(report.reportId)},
             {"reportType", forJson(report.reportType)},
             {"scanDate", iso8601(report.scanDate)},
             {"scanDuration", forJson(report.scanDuration)},
             {"spyWareCount", report.spyWareCount},
             {"findings", report.spyWareList->size()},
             {"isRed", report.isRed},
             {"spyWareList", std::move(list)},
         }},
        {"verdict", wordsFor(report.verdict()).machine},
        {"verdictLine", report.verdictLine()},
        {"subject", subjectJson(report.subject, report.volume)},
        {"coverage", coverageJson(report.coverage)},
    };
    if (appendix)
        json["facts"] = Json::parse(appendix->json);
    return json.dump(2) + "\n";
}

} // namespace pryvane
