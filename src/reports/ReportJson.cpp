#include "core/Escape.h"
#include "reports/ReportExport.h"
#include "signatures/FlaggedBy.h"

#include <nlohmann/json.hpp>

namespace pryvane {

namespace {

using Json = nlohmann::ordered_json;

Json recordJson(const Spyware& record, const FlaggedBy& flaggedBy)
{
    return {
        {"name", forJson(record.name)},
        {"infections", forJson(record.infections)},
        {"size", record.size},
        {"path", forJson(record.url.relativePath())},
        {"url", record.url.urlText()},
        {"risk", forJson(record.risk)},
        {"isAvail", record.isAvail},
        {"isChecked", record.isChecked},
        {"isDeleted", record.isDeleted},
        {"isNoAction", record.isNoAction},
        {"evidence", evidenceText(flaggedBy.evidence)},
        {"isWeak", isWeak(flaggedBy.evidence)},
        {"rule", flaggedBy.rule},
        {"matched", forJson(flaggedBy.text)},
    };
}

const char* verdictText(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Clean:
        return "clean";
    case Verdict::CleanWhereRead:
        return "cleanWhereRead";
    case Verdict::Found:
        break;
    }
    return "found";
}

Json namesJson(const std::vector<std::string>& names)
{
    Json json = Json::array();
    for (const auto& name : names)
        json.push_back(forJson(name));
    return json;
}

Json coverageJson(std::size_t findings, const ScanCoverage& coverage)
{
    Json refused = Json::array();
    for (const Refusal& refusal : coverage.refused)
        refused.push_back({{"path", forJson(refusal.path)}, {"reason", forJson(refusal.reason)}});
    return {
        {"verdict", verdictText(verdictOf(findings, coverage))},
        {"verdictLine", verdictLine(findings, coverage)},
        {"signaturesTested", coverage.signaturesTested},
        {"foldersListed", coverage.foldersListed},
        {"entriesSearched", coverage.entriesSearched},
        {"entriesWalked", coverage.entriesWalked},
        {"refused", std::move(refused)},
        {"heldBack", namesJson(coverage.heldBack)},
        {"missingHome", forJson(coverage.missingHome)},
        {"homes", namesJson(coverage.homes)},
        {"seconds", coverage.seconds},
    };
}

} // namespace

std::string reportAsJson(const SpywareScanReport& report)
{
    Json list = Json::array();
    FindingRules rules;
    for (const auto& record : *report.spyWareList)
        list.push_back(recordJson(*record, rules.flaggedBy(*record)));
    const std::size_t findings = list.size();
    const Json json = {
        {"report",
         {
             {"reportId", forJson(report.reportId)},
             {"reportType", forJson(report.reportType)},
             {"scanDate", iso8601(report.scanDate)},
             {"scanDuration", forJson(report.scanDuration)},
             {"spyWareCount", report.spyWareCount},
             {"isRed", report.isRed},
             {"spyWareList", std::move(list)},
         }},
        {"coverage", coverageJson(findings, report.coverage)},
    };
    return json.dump(2) + "\n";
}

} // namespace pryvane
