#include "reports/ReportFields.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace pryvane::stored {

namespace key {
constexpr std::string_view kSignaturesTested = "signaturesTested", kFoldersListed = "foldersListed",
                           kEntriesSearched = "entriesSearched", kEntriesWalked = "entriesWalked",
                           kRefused = "refused", kReason = "reason", kHeldBack = "heldBack",
                           kSystemVolumeLeftOut = "systemVolumeLeftOut",
                           kMissingHome = "missingHome", kHomes = "homes",
                           kHomesLeftOut = "homesLeftOut", kOtherDisks = "otherDisks",
                           kEnded = "ended", kHow = "how", kPercent = "percent",
                           kDeleted = "deleted", kFormat = "format", kEntries = "entries",
                           kSkipped = "skipped", kFirstSkipped = "firstSkipped", kRemark = "remark",
                           kSha256 = "sha256", kContentsRead = "contentsRead",
                           kContentsNotRead = "contentsNotRead";
} // namespace key

namespace {

/// How a scan ends, as it is stored. What another version wrote reads as finished.
constexpr std::array<std::pair<ScanEnding::How, std::string_view>, 3> kEndings = {{
    {ScanEnding::How::Finished, "finished"},
    {ScanEnding::How::Stopped, "stopped"},
    {ScanEnding::How::GrantFailed, "grantFailed"},
}};

void writeEnding(CborWriter& out, const ScanEnding& ended)
{
    out.map(2);
    for (const auto& [how, text] : kEndings) {
        if (how == ended.how)
            out.text(key::kHow).text(text);
    }
    out.text(key::kPercent).integer(ended.percent);
}

ScanEnding readEnding(CborReader& in)
{
    ScanEnding ended;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (key == key::kHow) {
            const std::string_view stored = in.string();
            for (const auto& [how, text] : kEndings) {
                if (text == stored)
                    ended.how = how;
            }
        } else if (key == key::kPercent)
            ended.percent = static_cast<int>(
                std::clamp<std::int64_t>(in.integer(), ScanEnding::kNotKnown, 100));
        else
            in.skip();
    }
    return ended;
}

void writeSource(CborWriter& out, const SourceFacts& source)
{
    out.map(8);
    out.text(key::kSource).textOrBytes(source.source);
    out.text(key::kName).bytes(source.name);
    out.text(key::kFormat).bytes(source.format);
    out.text(key::kEntries).integer(source.entries);
    out.text(key::kSkipped).integer(source.skipped);
    out.text(key::kFirstSkipped);
    writeNames(out, source.firstSkipped);
    out.text(key::kRemark).textOrBytes(source.remark);
    out.text(key::kSha256).textOrBytes(source.sha256);
}

Refusal readRefusal(CborReader& in)
{
    Refusal refusal;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (key == key::kPath)
            refusal.path = in.string();
        else if (key == key::kReason)
            refusal.reason = in.string();
        else
            in.skip();
    }
    return refusal;
}

std::vector<Refusal> readRefusals(CborReader& in)
{
    std::vector<Refusal> refusals;
    auto elements = in.array();
    while (in.more(elements))
        refusals.push_back(readRefusal(in));
    return refusals;
}

SourceFacts readSource(CborReader& in)
{
    SourceFacts source;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (key == key::kSource)
            source.source = in.string();
        else if (key == key::kName)
            source.name = in.string();
        else if (key == key::kFormat)
            source.format = in.string();
        else if (key == key::kEntries)
            source.entries = in.integer();
        else if (key == key::kSkipped)
            source.skipped = in.integer();
        else if (key == key::kFirstSkipped)
            source.firstSkipped = readNames(in);
        else if (key == key::kRemark)
            source.remark = in.string();
        else if (key == key::kSha256)
            source.sha256 = in.string();
        else
            in.skip();
    }
    return source;
}

std::vector<DeletedName> readDeleted(CborReader& in)
{
    std::vector<DeletedName> names;
    auto elements = in.array();
    while (in.more(elements)) {
        DeletedName& name = names.emplace_back();
        auto fields = in.map();
        while (in.more(fields)) {
            const std::string_view key = in.key();
            if (key == key::kPath)
                name.path = in.string();
            else if (key == key::kInfections)
                name.infections = in.string();
            else
                in.skip();
        }
    }
    return names;
}

} // namespace

void writeCoverage(CborWriter& out, const ScanCoverage& coverage)
{
    const bool tellsContents = coverage.contentsRead != 0 || coverage.contentsNotRead != 0;
    out.map(std::size_t{14} + (coverage.otherDisks.empty() ? 0 : 1) + (tellsContents ? 2 : 0));
    out.text(key::kEnded);
    writeEnding(out, coverage.ended);
    out.text(key::kSignaturesTested).integer(coverage.signaturesTested);
    out.text(key::kSystemVolumeLeftOut).integer(coverage.systemVolumeLeftOut);
    out.text(key::kFoldersListed).integer(coverage.foldersListed);
    out.text(key::kEntriesSearched).integer(coverage.entriesSearched);
    out.text(key::kEntriesWalked).integer(coverage.entriesWalked);
    out.text(key::kRefused).array(coverage.refused.size());
    for (const Refusal& refusal : coverage.refused) {
        out.map(2);
        out.text(key::kPath).bytes(refusal.path);
        out.text(key::kReason).textOrBytes(refusal.reason);
    }
    out.text(key::kHeldBack);
    writeNames(out, coverage.heldBack);
    out.text(key::kMissingHome).bytes(coverage.missingHome);
    out.text(key::kHomes);
    writeNames(out, coverage.homes);
    out.text(key::kHomesLeftOut);
    writeNames(out, coverage.homesLeftOut);
    if (!coverage.otherDisks.empty()) {
        out.text(key::kOtherDisks);
        writeNames(out, coverage.otherDisks);
    }
    out.text(key::kSource);
    writeSource(out, coverage.source);
    out.text(key::kDeleted).array(coverage.deleted.size());
    for (const DeletedName& name : coverage.deleted) {
        out.map(2);
        out.text(key::kPath).bytes(name.path);
        out.text(key::kInfections).textOrBytes(name.infections);
    }
    if (tellsContents) {
        out.text(key::kContentsRead).integer(coverage.contentsRead);
        out.text(key::kContentsNotRead).integer(coverage.contentsNotRead);
    }
    out.text(key::kSeconds).real(coverage.seconds);
}

ScanCoverage readCoverage(CborReader& in)
{
    ScanCoverage coverage;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (key == key::kSignaturesTested)
            coverage.signaturesTested = in.integer();
        else if (key == key::kSystemVolumeLeftOut)
            coverage.systemVolumeLeftOut = in.integer();
        else if (key == key::kFoldersListed)
            coverage.foldersListed = in.integer();
        else if (key == key::kEntriesSearched)
            coverage.entriesSearched = in.integer();
        else if (key == key::kEntriesWalked)
            coverage.entriesWalked = in.integer();
        else if (key == key::kRefused)
            coverage.refused = readRefusals(in);
        else if (key == key::kHeldBack)
            coverage.heldBack = readNames(in);
        else if (key == key::kMissingHome)
            coverage.missingHome = in.string();
        else if (key == key::kHomes)
            coverage.homes = readNames(in);
        else if (key == key::kHomesLeftOut)
            coverage.homesLeftOut = readNames(in);
        else if (key == key::kOtherDisks)
            coverage.otherDisks = readNames(in);
        else if (key == key::kSource)
            coverage.source = readSource(in);
        else if (key == key::kDeleted)
            coverage.deleted = readDeleted(in);
        else if (key == key::kEnded)
            coverage.ended = readEnding(in);
        else if (key == key::kContentsRead)
            coverage.contentsRead = in.integer();
        else if (key == key::kContentsNotRead)
            coverage.contentsNotRead = in.integer();
        else if (key == key::kSeconds)
            coverage.seconds = in.real();
        else
            in.skip();
    }
    if (!std::isfinite(coverage.seconds))
        coverage.seconds = 0;
    return coverage;
}

} // namespace pryvane::stored
