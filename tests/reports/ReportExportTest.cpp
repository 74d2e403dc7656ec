#include "reports/ReportExport.h"

#include "core/Escape.h"
#include "reports/ReportCompare.h"
#include "support/ReportFixtures.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace pryvane::test {

namespace {

using Json = nlohmann::ordered_json;
using Cells = std::vector<std::vector<std::string>>;

/// Reads RFC 4180 strictly; what breaks its rules fails the test.
Cells parsedCsv(std::string_view csv)
{
    Cells rows;
    std::size_t at = 0;
    while (at < csv.size()) {
        auto& row = rows.emplace_back();
        for (;;) {
            auto& cell = row.emplace_back();
            if (csv[at] == '"') {
                for (++at; csv.substr(at, 1) != "\"" || csv.substr(at, 2) == "\"\""; ++at) {
                    cell += csv.at(at);
                    at += csv[at] == '"' ? 1 : 0;
                }
                ++at;
            } else {
                const auto end = std::min(csv.find_first_of(",\r", at), csv.size());
                cell = csv.substr(at, end - at);
                at = end;
            }
            if (csv.substr(at, 1) != ",")
                break;
            ++at;
        }
        EXPECT_EQ(csv.substr(at, 2), "\r\n");
        at += 2;
    }
    return rows;
}

/// The report in that form.
template <typename... Appendix>
std::string as(void (*write)(const SpywareScanReport&, const TextSink&, Appendix...),
               const SpywareScanReport& report)
{
    std::string text;
    write(
        report, [&](std::string_view bytes) { text += bytes; }, Appendix()...);
    return text;
}

TEST(ReportJson, HasTheAgreedShape)
{
    auto report = reportOf({"/Library/Preferences/a okaz."});
    report->reportId = "ID";
    report->coverage.refused = {{"/Users/x/\n", "permission denied"}};
    report->coverage.heldBack = {"/Applications/T.app"};
    report->coverage.homesLeftOut = {"bob"};
    report->coverage.otherDisks = {"/Volumes/USB"};
    report->coverage.seconds = 0.5;
    report->subject.systemVersion.clear();
    report->labels = {"Bench 4", {}, "A. Lee"};
    Spyware& record = *report->spyWareList->front();
    record.kind = FileKind::RegularFile;
    record.times.modified = kReportDate;
    record.sha256 = "ab";
    report->spyWareList->front()->setPresence(Presence::Unknown, "a reason");
    EXPECT_EQ(Json::parse(as(writeAsJson, *report)).dump(), Json::parse(R"({
        "report": {"reportId": "ID", "reportType": "Quick Scan",
            "scanDate": "2023-11-14T22:13:20.123Z", "scanDuration": " 2 seconds",
            "spyWareCount": 1, "findings": 1, "isRed": true, "spyWareList": [
                {"name": "a okaz.", "infections": "Okaz Installer", "size": 4096,
                 "path": "/Library/Preferences/a okaz.",
                 "url": "file:///Library/Preferences/a%20okaz.", "risk": "High Risk",
                 "isAvail": false, "isChecked": false, "isDeleted": false, "isNoAction": false,
                 "evidence": "name fragment", "isWeak": true,
                 "rule": "name touching a dot in a default location", "matched": "Okaz",
                 "presence": "unknown", "user": "", "kind": "file", "birth": null,
                 "modified": "2023-11-14T22:13:20.123Z", "changed": null, "sha256": "ab",
                 "presenceReason": "a reason"}]},
        "label": "Bench 4", "case": null, "examiner": "A. Lee",
        "verdict": "found",
        "verdictLine": "Found: 1 potential threat; not everything could be read: 1 location could not be read. Besides, 1 application that the list leaves out bears a known name: /Applications/T.app. Not looked at: bob.",
        "subject": {"source": "folder", "volumeName": "mac-disk", "identity": "volume-1",
            "sha256": null, "computerName": "Alice's Mac", "systemVersion": null, "users": ["alice"]},
        "coverage": {"ended": "finished", "endedAtPercent": null,
            "signaturesTested": 534, "systemVolumeLeftOut": 0, "foldersListed": 0,
            "entriesSearched": 0, "entriesWalked": 0,
            "refused": [{"path": "/Users/x/\\n", "reason": "permission denied"}],
            "heldBack": ["/Applications/T.app"], "missingHome": "", "homes": [],
            "homesLeftOut": ["bob"], "otherDisks": ["/Volumes/USB"], "source": null, "deleted": [],
            "contentsRead": 0, "contentsNotRead": 0, "seconds": 0.5}
    })")
                                                                .dump());
}

TEST(ReportExports, LetNothingHarmfulThroughAndKeepEveryByte)
{
    std::vector<std::string> paths, texts{"<b>=1\n\x1b[2J", "=\xff\n", "\xe2\x80\xae"};
    for (const auto& name : hostileNames()) {
        paths.push_back("/Library/" + name);
        texts.push_back(name);
    }
    std::mt19937 random(5);
    for (int i = 0; i < 5000; ++i)
        paths.push_back("/Users/x/" + randomName(random));
    const auto report = reportOf(paths);
    const auto plain = reportOf(std::vector<std::string>(paths.size(), "/x/y"));
    for (const auto& record : *report->spyWareList) {
        record->infections = record->name();
        record->times.birth = kReportDate - std::chrono::hours(48);
    }
    fillTexts(*report, texts);
    fillTexts(*plain, std::vector<std::string>(texts.size(), "x"));

    const std::string text = as(writeAsJson, *report);
    EXPECT_TRUE(isHarmless(text, "\n"));
    const Json json = Json::parse(text);
    EXPECT_EQ(json.dump(2) + "\n", text);
    const Json& list = json["report"]["spyWareList"];
    ASSERT_EQ(list.size(), paths.size());
    for (std::size_t i = 0; i < paths.size(); ++i) {
        EXPECT_EQ(FileURL::fromUrlText(list[i]["url"].get<std::string>()).relativePath(), paths[i]);
        EXPECT_EQ(list[i]["path"], forJson(paths[i]));
        EXPECT_TRUE(isHarmless(list[i]["name"].get<std::string>()));
    }

    for (const std::string& csv : {as(writeAsCsv, *report), as(writeAsTimeline, *report)}) {
        EXPECT_TRUE(isHarmless(csv, "\r\n"));
        const Cells cells = parsedCsv(csv);
        ASSERT_GT(cells.size(), paths.size());
        const auto place = std::ranges::find(cells[0], "url") - cells[0].begin();
        for (std::size_t i = 0; i < cells.size(); ++i) {
            ASSERT_EQ(cells[i].size(), cells[0].size()) << i;
            for (const auto& cell : cells[i])
                EXPECT_EQ(std::string("=+-@\t\r").find(cell[0]), std::string::npos) << cell;
            if (i == 0 || i > paths.size())
                continue; // the scan itself is what happened last
            const std::string& url = cells[i][static_cast<std::size_t>(place)];
            EXPECT_EQ(FileURL::fromUrlText(url).relativePath(), paths[i - 1]);
        }
    }

    // As many tags and attributes as the same report with plain names.
    const std::string html = as(writeAsHtml, *report), plainHtml = as(writeAsHtml, *plain);
    EXPECT_TRUE(isHarmless(html, "\n"));
    for (const char c : {'<', '>', '"'})
        EXPECT_EQ(std::ranges::count(html, c), std::ranges::count(plainHtml, c)) << c;
    EXPECT_EQ(html.find("http://"), html.find("http://example.invalid")) << "only inside a name";
    EXPECT_NE(html.find("default-src 'none'"), std::string::npos);
}

TEST(ReportTimeline, TellsInOrderWhatTheDiskTold)
{
    auto report = reportOf({"/tmp/a", "/tmp/b"});
    report->coverage.seconds = 2;
    const auto day = [](int before) { return kReportDate - std::chrono::hours(24 * before); };
    (*report->spyWareList)[0]->times = {day(9), day(3), {}};
    (*report->spyWareList)[1]->times = {{}, day(5), day(5)};
    std::vector<std::string> told;
    for (const auto& row : parsedCsv(as(writeAsTimeline, *report)))
        told.push_back(row[0].substr(0, row[0].find(": Found")) + '|' + row[1] + '|' + row[2]);
    EXPECT_EQ(told,
              (std::vector<std::string>{
                  "message|datetime|timestamp_desc",
                  "Okaz Installer: /tmp/a|2023-11-05T22:13:20.123Z|Creation Time",
                  "Okaz Installer: /tmp/b|2023-11-09T22:13:20.123Z|Content Modification Time",
                  "Okaz Installer: /tmp/b|2023-11-09T22:13:20.123Z|Metadata Modification Time",
                  "Okaz Installer: /tmp/a|2023-11-11T22:13:20.123Z|Content Modification Time",
                  "Scan began|2023-11-14T22:13:18.123Z|Start Time",
                  "Scan ended|2023-11-14T22:13:20.123Z|End Time"}));
}

TEST(ReportCompare, GoesByLocation)
{
    const auto paths = [](const SpywareList& list) {
        std::vector<std::string> texts;
        for (const auto& record : list)
            texts.push_back(record->url.relativePath());
        return texts;
    };
    using Texts = std::vector<std::string>;
    const auto earlier = reportOf({"/a", "/b/", "c", "/gone2", "/gone1"});
    const auto later = reportOf({"/new2", "/c", "/b", "/new1", "/a"});
    const ReportComparison compared = compareReports(*earlier, *later);
    EXPECT_EQ(paths(compared.added), (Texts{"/new2", "/new1"}));
    EXPECT_EQ(paths(compared.kept), (Texts{"/c", "/b", "/a"}));
    EXPECT_EQ(paths(compared.gone), (Texts{"/gone2", "/gone1"}));
}

} // namespace

} // namespace pryvane::test
