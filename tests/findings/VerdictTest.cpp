#include "findings/Verdict.h"

#include <gtest/gtest.h>

namespace pryvane {
namespace {

using C = ScanCoverage;

template <typename T>
C with(T C::*member, std::type_identity_t<T> value, C coverage = {})
{
    coverage.*member = std::move(value);
    return coverage;
}

TEST(Verdict, SaysWhatTheScanCameToAndWhatLimitsIt)
{
    using How = ScanEnding::How;
    const std::vector<Refusal> one{{"/Users/alice", "permission denied"}},
        two{{"/Users/alice", "permission denied"}, {"/x", "y"}};
    const struct {
        std::size_t findings;
        ScanCoverage coverage;
        Verdict verdict;
        const char* line;
        bool isKnown = true; ///< what was looked at, besides
    } rows[] = {
        {0, {}, Verdict::Clean, "Clean: nothing found."},
        {0, with(&C::homesLeftOut, {"bob", "carol"}), Verdict::Clean,
         "Clean for alice: nothing found. Not looked at: bob, carol."},
        {0, with(&C::homesLeftOut, {"bob"}, with(&C::systemVolumeLeftOut, 28)), Verdict::Clean,
         "Clean for alice: nothing found. Not looked at: bob, the system volume (28 signatures)."},
        {0, with(&C::systemVolumeLeftOut, 1), Verdict::Clean,
         "Clean: nothing found. Not looked at: the system volume (1 signature)."},
        {0, with(&C::ended, {How::Stopped, 0}), Verdict::Stopped,
         "Stopped at 0 %: nothing found in the part that was looked at."},
        {0, with(&C::ended, {How::Stopped, ScanEnding::kNotKnown}), Verdict::Stopped,
         "Stopped before its end: nothing found in the part that was looked at.", false},
        {0, with(&C::refused, one, with(&C::ended, {How::Stopped, 100})), Verdict::Stopped,
         "Stopped at 100 %: nothing found in the part that was looked at; not everything could be "
         "read: 1 location could not be read."},
        {0, with(&C::heldBack, {"/Applications/PKL.app"}), Verdict::Attention,
         "Attention: 1 application that the list leaves out bears a known name: "
         "/Applications/PKL.app."},
        {0,
         with(&C::heldBack, {"/a.app", "/b\n.app", "/c.app", "/d.app"},
              with(&C::ended, {How::Stopped, 50})),
         Verdict::Attention,
         "Attention: 4 applications that the list leaves out bear a known name: /a.app, "
         "/b\\n.app, /c.app and 1 more; the scan was stopped at 50 %."},
        {0, with(&C::refused, two), Verdict::Incomplete,
         "Incomplete: nothing found, but not everything could be looked at: 2 locations could not "
         "be read."},
        {0, with(&C::homes, {"bob"}, with(&C::missingHome, "/Users/al")), Verdict::Incomplete,
         "Incomplete: nothing found, but not everything could be looked at: no home at /Users/al, "
         "homes there are: bob."},
        {0, with(&C::ended, {How::GrantFailed}), Verdict::Incomplete,
         "Incomplete: nothing found, but not everything could be looked at: there was no access to "
         "the folder to be gone through."},
        {0,
         {},
         Verdict::Incomplete,
         "Incomplete: nothing found, but what was looked at is not known.",
         false},
        {2, {}, Verdict::Found, "Found: 2 potential threats.", false},
        {1,
         with(&C::homesLeftOut, {"bob"},
              with(&C::heldBack, {"/a.app"},
                   with(&C::refused, one, with(&C::ended, {How::Stopped, 12})))),
         Verdict::Found,
         "Found: 1 potential threat; the scan was stopped at 12 %; not everything could be read: 1 "
         "location could not be read. Besides, 1 application that the list leaves out bears a "
         "known name: /a.app. Not looked at: bob."},
    };
    const Subject alice{{}, {}, {}, {"alice"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        ScanCoverage coverage = row.coverage;
        coverage.signaturesTested = row.isKnown ? 534 : 0;
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
