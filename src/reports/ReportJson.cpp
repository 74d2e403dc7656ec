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

Json subjectJson(const Subject& subject, const std::string& volume, const std::string& sha256)
{
    return {
        {"source", sourceWord(subject.source.kind)},
        {"volumeName", textOrNull(subject.source.name)},
        {"identity", textOrNull(volume)},
        {"sha256", textOrNull(sha256)},
        {"computerName", textOrNull(subject.computerName)},
        {"systemVersion", textOrNull(subject.systemVersion)},
        {"users", namesJson(subject.users)},
    };
}

/// Null for mounted folders.
Json sourceJson(const SourceFacts& source)
{
    if (!source.isKnown())
        return {};
    return {
        {"kind", forJson(source.source)},
        {"name", forJson(source.name)},
        {"format", forJson(source.format)},
        {"sha256", textOrNull(source.sha256)},
        {"entries", source.entries},
        {"notUnderstood", source.skipped},
        {"firstNotUnderstood", namesJson(source.firstSkipped)},
        {"remark", textOrNull(source.remark)},
    };
}

Json deletedJson(const std::vector<DeletedName>& names)
{
    Json json = Json::array();
    for (const DeletedName& name : names)
        json.push_back({{"path", forJson(name.path)},
                        {"url", FileURL::fileURLWithPath(name.path).urlText()},
                        {"infections", forJson(name.infections)},
                        {"state", "deleted"}});
    return json;
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
        {"source", sourceJson(coverage.source)},
        {"deleted", deletedJson(coverage.deleted)},
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
        {"subject", subjectJson(report.subject, report.volume, report.coverage.source.sha256)},
        {"coverage", coverageJson(report.coverage)},
    };
    if (appendix)
        json["facts"] = Json::parse(appendix->json);
    return json.dump(2) + "\n";
}

} // namespace pryvane
