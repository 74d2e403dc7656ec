#include "reports/JsonPieces.h"

#include "core/Escape.h"

namespace pryvane {

namespace {

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

} // namespace

Json namesJson(const std::vector<std::string>& names)
{
    Json json = Json::array();
    for (const auto& name : names)
        json.push_back(forJson(name));
    return json;
}

Json textOrNull(std::string_view bytes)
{
    return bytes.empty() ? Json() : Json(forJson(bytes));
}

Json dateOrNull(DiskMoment date)
{
    return date ? Json(iso8601(*date)) : Json();
}

void addLocation(Json& object, const FileURL& url)
{
    object["path"] = forJson(url.relativePath());
    object["url"] = url.urlText();
}

void addFileFacts(Json& object, const Spyware& record)
{
    object["kind"] = kindWord(record.kind);
    object["birth"] = dateOrNull(record.times.birth);
    object["modified"] = dateOrNull(record.times.modified);
    object["changed"] = dateOrNull(record.times.changed);
    object["sha256"] = textOrNull(record.sha256);
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
        {"contentsRead", coverage.contentsRead},
        {"contentsNotRead", coverage.contentsNotRead},
        {"seconds", coverage.seconds},
    };
}

} // namespace pryvane
