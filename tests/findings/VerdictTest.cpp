#include "findings/Verdict.h"

#include <gtest/gtest.h>

#include <functional>

namespace pryvane {
namespace {

ScanCoverage everythingRead()
{
    ScanCoverage coverage;
    coverage.signaturesTested = 534;
    coverage.foldersListed = 12;
    return coverage;
}

TEST(Verdict, SaysWhatTheScanCameToAndWhatLimitsIt)
{
    using How = ScanEnding::How;
    struct Row {
        std::size_t findings;
        std::function<void(ScanCoverage&)> change;
        Verdict verdict;
        const char* line;
    };
    const Row rows[] = {
        {0, [](auto&) {}, Verdict::Clean, "Clean: nothing found."},
        {0,
         [](auto& c) {
             c.homesLeftOut = {"bob", "carol"};
         },
         Verdict::Clean, "Clean for alice: nothing found. Not looked at: bob, carol."},
        {0,
         [](auto& c) {
             c.homesLeftOut = {"bob"};
             c.systemVolumeLeftOut = 28;
         },
         Verdict::Clean,
         "Clean for alice: nothing found. Not looked at: bob, the system volume (28 signatures)."},
        {0, [](auto& c) { c.systemVolumeLeftOut = 1; }, Verdict::Clean,
         "Clean: nothing found. Not looked at: the system volume (1 signature)."},
        {0,
         [](auto& c) {
             c.ended = {How::Stopped, 0};
         },
         Verdict::Stopped, "Stopped at 0 %: nothing found in the part that was looked at."},
        {0,
         [](auto& c) {
             c = {};
             c.ended = {How::Stopped, ScanEnding::kNotKnown};
         },
         Verdict::Stopped, "Stopped before its end: nothing found in the part that was looked at."},
        {0,
         [](auto& c) {
             c.ended = {How::Stopped, 100};
             c.refused = {{"/Users/alice", "permission denied"}};
         },
         Verdict::Stopped,
         "Stopped at 100 %: nothing found in the part that was looked at; not everything could be "
         "read: 1 location could not be read."},
        {0, [](auto& c) { c.heldBack = {"/Applications/PKL.app"}; }, Verdict::Attention,
         "Attention: 1 application that the list leaves out bears a known name: "
         "/Applications/PKL.app."},
        {0,
         [](auto& c) {
             c.heldBack = {"/a.app", "/b\n.app", "/c.app", "/d.app"};
             c.ended = {How::Stopped, 50};
         },
         Verdict::Attention,
         "Attention: 4 applications that the list leaves out bear a known name: /a.app, "
         "/b\\n.app, /c.app and 1 more; the scan was stopped at 50 %."},
        {0,
         [](auto& c) {
             c.refused = {{"/Users/alice", "permission denied"}, {"/x", "y"}};
         },
         Verdict::Incomplete,
         "Incomplete: nothing found, but not everything could be looked at: 2 locations could not "
         "be read."},
        {0,
         [](auto& c) {
             c.missingHome = "/Users/al";
             c.homes = {"bob"};
         },
         Verdict::Incomplete,
         "Incomplete: nothing found, but not everything could be looked at: no home at /Users/al, "
         "homes there are: bob."},
        {0, [](auto& c) { c.ended.how = How::GrantFailed; }, Verdict::Incomplete,
         "Incomplete: nothing found, but not everything could be looked at: there was no access to "
         "the folder to be gone through."},
        {0, [](auto& c) { c = {}; }, Verdict::Incomplete,
         "Incomplete: nothing found, but what was looked at is not known."},
        {2, [](auto& c) { c = {}; }, Verdict::Found, "Found: 2 potential threats."},
        {1,
         [](auto& c) {
             c.ended = {How::Stopped, 12};
             c.refused = {{"/x", "y"}};
             c.heldBack = {"/a.app"};
             c.homesLeftOut = {"bob"};
         },
         Verdict::Found,
         "Found: 1 potential threat; the scan was stopped at 12 %; not everything could be read: 1 "
         "location could not be read. Besides, 1 application that the list leaves out bears a "
         "known name: /a.app. Not looked at: bob."},
    };
    const Subject alice{{}, {}, {}, {"alice"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.line);
        ScanCoverage coverage = everythingRead();
        row.change(coverage);
        const Verdict verdict = verdictOf(row.findings, coverage);
        EXPECT_EQ(verdict, row.verdict);
        EXPECT_EQ(verdictLine(row.findings, coverage, alice), row.line);
        EXPECT_EQ(wordsFor(verdict).tone == Tone::Green, row.verdict == Verdict::Clean);
        EXPECT_EQ(wordsFor(verdict).exitCode == 0, row.verdict == Verdict::Clean);
        EXPECT_EQ(verdictOfWord(wordsFor(verdict).machine), verdict);
    }
    EXPECT_EQ(verdictOfWord("cleanWhereRead"), Verdict::Incomplete);
}

} // namespace
} // namespace pryvane
