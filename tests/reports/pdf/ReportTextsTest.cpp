#include "reports/pdf/ReportTexts.h"

#include "reports/pdf/PdfFixtures.h"
#include "support/WatchedDisk.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <ctime>

namespace pryvane::test {

TEST(ReportTexts, StatusFollowsTheDiskAtTheMomentOfPrinting)
{
    CountingDisk disk;
    disk.paths = {"/there"};
    WatchedDisk dim(disk);
    dim.untestable = {"/refused/x"};
    FakeMachine machine;
    const auto report = reportOf({"/there", "/gone", "/there", "/refused/x", ""});
    for (const auto& record : *report->spyWareList)
        record->isDeleted = true; // what the record says of its removal does not count
    const auto printed = [&] {
        std::vector<std::string> all;
        for (const auto& row : pdf::reportTexts(*report, {}, dim, machine).rows)
            all.push_back(row.status);
        return all;
    };
    EXPECT_THAT(printed(), testing::ElementsAre("Not Quarantined", "Quarantined", "Not Quarantined",
                                                "Not Checked", "Not Checked"));
    EXPECT_EQ(disk.asked["/there"], 1);

    disk.paths.clear();
    EXPECT_THAT(printed().front(), "Quarantined");

    report->volume = "another volume";
    disk.asked.clear();
    EXPECT_THAT(printed(), testing::Each("Not Checked"));
    EXPECT_TRUE(disk.asked.empty());
}

TEST(ReportTexts, FactsAboutMachineAndScan)
{
    setenv("TZ", "UTC", 1);
    tzset();
    setenv("LC_ALL", "C", 1);
    CountingDisk disk;
    FakeMachine machine;
    machine.serial.reset();
    const auto report = reportOf({"/a", "/b"});
    report->subject.source.kind = DiskSource::Kind::ThisMac;
    const auto texts = pdf::reportTexts(*report, factsIn("/x"), disk, machine);
    EXPECT_EQ(texts.application + ", " + texts.scanDate, "Pryvane 1.2 (34), Nov 14, 2023, 22:13");
    std::string facts;
    for (const auto& line : texts.facts) {
        for (const auto& fact : line)
            facts += fact.label + " " + fact.value + "\n";
    }
    EXPECT_EQ(facts, "Mac Name : Alice's Mac\nScan Type : Quick Scan\n"
                     "Current User : alice\nScan Started : 11/14/23, 22:13:20\n"
                     "Machine Name : MacBookPro18,3\nScan Duration :  2 seconds\n"
                     "Machine Serial Number : (null)\nInfections : 2\n");
}

TEST(ReportTexts, FactsAboutAnotherDiskAreThatDisksOwn)
{
    CountingDisk disk;
    FakeMachine machine;
    const auto values = [&](const SpywareScanReport& report) {
        const auto facts = pdf::reportTexts(report, factsIn("/x"), disk, machine).facts;
        return std::vector{facts[0][0].value, facts[1][0].value, facts[2][0].value,
                           facts[3][0].value};
    };
    const auto report = reportOf({});
    report->subject.computerName = "Bob's Mac";
    report->subject.users = {"bob"};
    EXPECT_THAT(values(*report),
                testing::ElementsAre("Bob's Mac", "bob", "not known", "not known"));
    report->subject = {};
    EXPECT_THAT(values(*report), testing::Each("not known"));
}

} // namespace pryvane::test
