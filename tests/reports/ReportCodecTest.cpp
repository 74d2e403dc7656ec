#include "reports/ReportCodec.h"

#include "reports/CborReader.h"
#include "reports/CborWriter.h"
#include "support/ReportFixtures.h"

#include <gtest/gtest.h>

#include <limits>

namespace pryvane::test {

namespace {

std::shared_ptr<SpywareScanReport> roundTrip(const std::shared_ptr<SpywareScanReport>& report)
{
    auto decoded = decodeReports(encodeReports({report}));
    EXPECT_TRUE(decoded.ok() && decoded->size() == 1);
    return decoded.ok() && decoded->size() == 1 ? (*decoded)[0]
                                                : std::make_shared<SpywareScanReport>();
}

std::shared_ptr<SpywareScanReport> hostileReport()
{
    std::vector<std::string> paths;
    for (const auto& name : hostileNames())
        paths.push_back("/Library/" + name);
    auto report = reportOf(paths);
    report->coverage.signaturesTested = 534;
    report->coverage.entriesWalked = std::numeric_limits<std::int64_t>::max();
    report->coverage.refused = {{"/Users/a\xff\n", "permission denied"}, {"", ""}};
    report->coverage.heldBack = {"/Applications/\x1b.app"};
    report->coverage.missingHome = "/Users/nobody";
    report->coverage.homes = hostileNames();
    report->coverage.homesLeftOut = report->coverage.otherDisks = hostileNames();
    report->coverage.source = {"a list of names", "x\xff",  "bodyfile", 7, 2,
                               hostileNames(),    "A list", "abc"};
    for (const auto& name : hostileNames())
        report->coverage.deleted.push_back({"/" + name, name});
    report->coverage.ended = {ScanEnding::How::Stopped, 37};
    report->coverage.seconds = 0.25;
    report->subject = {{DiskSource::Kind::Image, "\xff\n"}, "\x1b", "\xfe", hostileNames()};
    report->labels = {"Bench\xff\n4", {}, "\x1b"};
    report->coverage.contentsRead = 1;
    report->coverage.contentsNotRead = 2;
    const auto before1970 = Date(std::chrono::milliseconds(-1'500));
    (*report->spyWareList)[0]->times = {before1970, kReportDate, {}};
    (*report->spyWareList)[0]->sha256 = std::string(64, 'a');
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
    struct Row {
        std::size_t threats;
        std::uint64_t count;
        const char* icon;
    };
    for (const Row& row : {Row{0, 0, "btn_trash.tiff"}, Row{255, 255, "btn_open.tiff"},
                           Row{256, 0, "btn_open.tiff"}, Row{300, 44, "btn_open.tiff"}}) {
        SCOPED_TRACE(row.threats);
        const auto report = reportOf(std::vector<std::string>(row.threats, "/tmp/x"));
        EXPECT_EQ(report->spyWareCount, row.threats);
        const auto back = roundTrip(report);
        back->derive(kReportDate);
        EXPECT_EQ(back->spyWareCount, row.count);
        EXPECT_EQ(back->spyWareList->size(), row.threats);
        EXPECT_EQ(back->isRed, row.threats > 0);
        EXPECT_EQ(back->redGreen, row.threats > 0 ? kReportRed : kReportGreen);
        EXPECT_EQ(back->openTrash, row.icon);
    }
}

TEST(ReportCodec, KeepsTheSpellingOfTheDiskAndWhereItIsNotKnown)
{
    const auto report = reportOf({"/tmp/a/", "/tmp/b", "/tmp/c"});
    (*report->spyWareList)[0]->setSpelling("/tmp/a/");
    (*report->spyWareList)[1]->setSpelling("/private/tmp/B\xff");
    const auto back = roundTrip(report);
    EXPECT_EQ((*back->spyWareList)[0]->spelling(), "/tmp/a");
    EXPECT_EQ((*back->spyWareList)[1]->spelling(), "/private/tmp/B\xff");
    EXPECT_EQ((*back->spyWareList)[2]->spelling(), "");
    EXPECT_FALSE((*back->spyWareList)[0]->isChecked) << "a selection is not kept";
}

TEST(ReportCodec, KeepsDatesToTheMillisecondAndClampsImpossibleOnes)
{
    using std::chrono::milliseconds;
    struct Row {
        std::int64_t stored, read;
    };
    constexpr std::int64_t first = -8'520'336'000'000, last = 7'258'118'399'000;
    constexpr auto lowest = std::numeric_limits<std::int64_t>::min();
    constexpr auto highest = std::numeric_limits<std::int64_t>::max();
    for (const Row& row : {Row{0, 0}, Row{1, 1}, Row{-1, -1},
                           Row{1'700'000'000'123, 1'700'000'000'123}, Row{last - 1, last - 1},
                           Row{first + 1, first + 1}, Row{highest, last}, Row{lowest, first}}) {
        const auto report = reportOf({});
        report->scanDate = Date(milliseconds(row.stored));
        EXPECT_EQ(roundTrip(report)->scanDate, Date(milliseconds(row.read))) << row.stored;
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

TEST(ReportIdentity, IsFreshEachTime)
{
    std::set<std::string> seen;
    for (int i = 0; i < 1000; ++i)
        seen.insert(reportOf({})->reportId);
    EXPECT_EQ(seen.size(), 1000U);
    EXPECT_EQ(seen.begin()->size(), 36U);
}

} // namespace

} // namespace pryvane::test
