#include "reports/ReportCodec.h"

#include "reports/CborReader.h"
#include "reports/CborWriter.h"
#include "support/ReportFixtures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace pryvane::test {

namespace {

std::shared_ptr<SpywareScanReport> roundTrip(const std::shared_ptr<SpywareScanReport>& report)
{
    return decodeReports(encodeReports({report})).value().at(0);
}

std::shared_ptr<SpywareScanReport> hostileReport()
{
    std::vector<std::string> paths;
    for (const auto& name : hostileNames())
        paths.push_back("/Library/" + name);
    auto report = reportOf(paths);
    fillTexts(*report, {"a\xff\n", "\x1b[2J", "\xe2\x80\xae"});
    report->labels.caseName.clear();
    report->coverage.entriesWalked = std::numeric_limits<std::int64_t>::max();
    report->coverage.ended = {ScanEnding::How::Stopped, 37};
    report->coverage.seconds = 0.25;
    report->subject.source.kind = DiskSource::Kind::Image;
    report->coverage.contentsRead = 1;
    report->coverage.contentsNotRead = 2;
    const auto before1970 = Date(std::chrono::milliseconds(-1'500));
    (*report->spyWareList)[0]->times = {before1970, kReportDate, {}};
    (*report->spyWareList)[0]->sha256 = std::string(64, 'a');
    (*report->spyWareList)[1]->setSpelling("/private/tmp/B\xff");
    return report;
}

TEST(ReportCodec, GivesBackEveryFieldAndEveryByte)
{
    auto report = hostileReport();
    std::mt19937 random(1);
    for (int i = 0; i < 5000; ++i)
        report->spyWareList->push_back(recordAt("/Users/x/" + randomName(random)));
    (*report->spyWareList)[0]->size = -1;
    (*report->spyWareList)[1]->size = std::numeric_limits<std::int64_t>::min();
    (*report->spyWareList)[2]->size = std::numeric_limits<std::int64_t>::max();
    (*report->spyWareList)[3]->url = FileURL::fileURLWithPath("relative/folder/");
    report->reportType = "not\xffutf8";
    for (std::size_t i = 0; const FileKind kind : {FileKind::RegularFile, FileKind::Folder,
                                                   FileKind::SymbolicLink, FileKind::Other})
        (*report->spyWareList)[i++]->kind = kind;
    EXPECT_EQ(storedFields(*roundTrip(report)), storedFields(*report));
}

TEST(ReportCodec, APathWithANulIsNoPath)
{
    std::string bytes = encodeReports({reportOf({"/tmp/Xx"})});
    const auto place = bytes.rfind("/tmp/Xx");
    ASSERT_NE(place, std::string::npos);
    bytes[place + 5] = '\0';
    const auto back = decodeReports(bytes);
    ASSERT_TRUE(back.ok());
    EXPECT_EQ((*back->front()->spyWareList)[0]->url.relativePath(), "");
}

TEST(ReportCodec, StoresTheCountInEightBits)
{
    const struct {
        std::size_t threats;
        std::uint64_t count;
        const char* icon;
    } rows[] = {{0, 0, "btn_trash.tiff"},
                {255, 255, "btn_open.tiff"},
                {256, 0, "btn_open.tiff"},
                {300, 44, "btn_open.tiff"}};
    for (const auto& row : rows) {
        const auto back = roundTrip(reportOf(std::vector<std::string>(row.threats, "/tmp/x")));
        back->derive(kReportDate);
        EXPECT_EQ(back->spyWareCount, row.count);
        EXPECT_EQ(back->spyWareList->size(), row.threats);
        EXPECT_EQ(back->redGreen, row.threats > 0 ? kReportRed : kReportGreen);
        EXPECT_EQ(back->openTrash, row.icon);
    }
}

TEST(ReportCodec, KeepsDatesToTheMillisecondAndClampsImpossibleOnes)
{
    constexpr std::int64_t first = -8'520'336'000'000, last = 7'258'118'399'000;
    using Limits = std::numeric_limits<std::int64_t>;
    for (const std::int64_t stored : {std::int64_t{0}, std::int64_t{1}, std::int64_t{-1}, last - 1,
                                      first + 1, Limits::max(), Limits::min()}) {
        const auto report = reportOf({});
        report->scanDate = Date(std::chrono::milliseconds(stored));
        EXPECT_EQ(roundTrip(report)->scanDate,
                  Date(std::chrono::milliseconds(std::clamp(stored, first, last))));
    }
}

/// A stored list whose only report also has the key "later" with that value.
std::string withUnknownValue(std::string_view value)
{
    std::string bytes;
    CborWriter out(bytes);
    out.array(1);
    out.map(4);
    out.integer(7).text("a key that is a number");
    out.text("later");
    bytes += value;
    out.text("reportId").text("id");
    out.text("spyWareList").array(0);
    return bytes;
}

TEST(ReportCodec, PassesOverUnknownKeysUpToSixtyFourLevels)
{
    using namespace std::string_literals;
    const auto nested = [](int levels) {
        return std::string(std::size_t(levels), '\x81') + "\x01";
    };
    const std::vector<std::pair<std::string, bool>> rows = {
        {"\x01"s, true},
        {"\xf6"s, true},                             // null
        {"\xf9\x7e\x00"s, true},                     // half-precision NaN
        {"\xc0\xc1\x61x"s, true},                    // tags
        {"\xa2\x01\x82\x01\x02\x61y\xa0"s, true},    // {1: [1, 2], "y": {}}
        {"\x9f\x9f\xff\xbf\x01\x80\xff\xff"s, true}, // until a break
        {"\x5f\x41z\x41z\xff"s, true},               // a string in pieces
        {nested(64), true},
        {nested(65), false},
        {nested(100'000), false},
        {"\xff"s, false},                                 // a break out of place
        {"\x9b\xff\xff\xff\xff\xff\xff\xff\xff"s, false}, // 2^64 - 1 elements
        {"\xbb\x80\x00\x00\x00\x00\x00\x00\x01"s, false}, // pairs whose number wraps
        {"\x5b\x7f\xff\xff\xff\xff\xff\xff\xff"s, false}, // a string of 2^63 bytes
        {"\x1c"s, false},                                 // reserved
    };
    for (std::size_t i = 0; i < rows.size(); ++i)
        EXPECT_EQ(decodeReports(withUnknownValue(rows[i].first)).ok(), rows[i].second) << i;
}

TEST(ReportCodec, RefusesWhatIsCutShortOrGarbage)
{
    const std::string whole = encodeReports({hostileReport(), reportOf({"/tmp/x"})});
    ASSERT_TRUE(decodeReports(whole).ok());
    for (std::size_t size = 0; size < whole.size(); ++size)
        ASSERT_FALSE(decodeReports(whole.substr(0, size)).ok()) << size;
    EXPECT_FALSE(decodeReports(whole + '\0').ok());
    EXPECT_FALSE(decodeReports("bplist00").ok());

    // A list of reports that claims much and holds nothing must not cost memory either.
    EXPECT_FALSE(decodeReports("\x9a\x7f\xff\xff\xff").ok());
    EXPECT_FALSE(decodeReports("\x83\xa0\xa0\xa0").ok()); // reports without an identity
}

TEST(ReportCodec, SurvivesFlippedBits)
{
    const std::string whole = encodeReports({hostileReport()});
    int readable = 0;
    for (std::size_t bit = 0; bit < whole.size() * 8; bit += 5) {
        std::string damaged = whole;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << (bit % 8)));
        if (const auto decoded = decodeReports(damaged)) {
            ++readable;
            ASSERT_TRUE(decodeReports(encodeReports(*decoded)).ok()) << bit;
        }
    }
    EXPECT_GT(readable, 0);
}

} // namespace

} // namespace pryvane::test
