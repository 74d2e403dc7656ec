#include "findings/Verdict.h"

#include "core/Escape.h"
#include "core/Texts.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pryvane {

namespace {

constexpr std::array<VerdictWords, 5> kWords = {{
    {Verdict::Found, "found", "Found", "Potential Threats Detected", Tone::Red, 1},
    {Verdict::Attention, "attention", "Attention", "An Application Needs Your Attention",
     Tone::Amber, 1},
    {Verdict::Stopped, "stopped", "Stopped", "Stopped Before All Was Looked At", Tone::Amber, 3},
    {Verdict::Incomplete, "incomplete", "Incomplete", "Not Everything Could Be Looked At",
     Tone::Amber, 3},
    {Verdict::Clean, "clean", "Clean", "No Potential Threats Detected", Tone::Green, 0},
}};

constexpr std::size_t kNamed = 3; ///< applications that the line names

/// What kept a scan from looking at all that was asked for; empty where nothing did.
std::string gapsOf(const ScanCoverage& coverage)
{
    std::string gaps;
    const auto add = [&](const std::string& gap) { gaps += (gaps.empty() ? "" : "; ") + gap; };
    if (!coverage.refused.empty())
        add(countedText(coverage.refused.size(), "location", "locations") + " could not be read");
    if (!coverage.missingHome.empty())
        add(missingHomeText(coverage));
    if (coverage.ended.how == ScanEnding::How::GrantFailed)
        add("there was no access to the folder to be gone through");
    return gaps;
}

std::string stoppedText(const ScanEnding& ended)
{
    return ended.percent == ScanEnding::kNotKnown ? "before its end"
                                                  : "at " + std::to_string(ended.percent) + " %";
}

std::string heldBackText(const std::vector<std::string>& paths)
{
    std::string text = countedText(paths.size(), "application that the list leaves out bears",
                                   "applications that the list leaves out bear") +
                       " a known name: ";
    for (std::size_t i = 0; i < std::min(paths.size(), kNamed); ++i)
        text += (i ? ", " : "") + forScreen(paths[i]);
    if (paths.size() > kNamed)
        text += " and " + std::to_string(paths.size() - kNamed) + " more";
    return text;
}

/// What nobody asked for, or what the disk does not hold of its Mac; empty where there is none.
std::string notLookedAtText(const ScanCoverage& coverage)
{
    std::string text;
    // A missing home is told with the homes there are.
    const bool isSaid = !coverage.missingHome.empty() && coverage.homes == coverage.homesLeftOut;
    for (const std::string& home : coverage.homesLeftOut) {
        if (!isSaid)
            text += (text.empty() ? "" : ", ") + forScreen(home);
    }
    if (coverage.systemVolumeLeftOut > 0)
        text += (text.empty() ? "the system volume (" : ", the system volume (") +
                countedText(static_cast<std::uint64_t>(coverage.systemVolumeLeftOut), "signature",
                            "signatures") +
                ")";
    return text;
}

/// What the verdict is, up to its full stop; the gaps that it mentions itself are taken out.
std::string statementOf(Verdict verdict, std::size_t findings, const ScanCoverage& coverage,
                        const Subject& subject, std::string& gaps)
{
    switch (verdict) {
    case Verdict::Found:
        return "Found: " + countedText(findings, "potential threat", "potential threats");
    case Verdict::Attention:
        return "Attention: " + heldBackText(coverage.heldBack);
    case Verdict::Stopped:
        return "Stopped " + stoppedText(coverage.ended) +
               ": nothing found in the part that was looked at";
    case Verdict::Incomplete:
        return gaps.empty() ? "Incomplete: nothing found, but what was looked at is not known"
                            : "Incomplete: nothing found, but not everything could be looked at: " +
                                  std::exchange(gaps, {});
    case Verdict::Clean:
        break;
    }
    const bool isOfSome = !coverage.homesLeftOut.empty() && !subject.users.empty();
    return "Clean" + (isOfSome ? " for " + forScreen(userNames(subject)) : std::string()) +
           ": nothing found";
}

} // namespace

Verdict verdictOf(std::size_t findings, const ScanCoverage& coverage)
{
    if (findings > 0)
        return Verdict::Found;
    if (!coverage.heldBack.empty())
        return Verdict::Attention;
    if (coverage.ended.how == ScanEnding::How::Stopped)
        return Verdict::Stopped;
    return coverage.lookedAtAnything() && gapsOf(coverage).empty() ? Verdict::Clean
                                                                   : Verdict::Incomplete;
}

const VerdictWords& wordsFor(Verdict verdict)
{
    return *std::ranges::find(kWords, verdict, &VerdictWords::verdict);
}

Verdict verdictOfWord(std::string_view machine)
{
    const auto* found = std::ranges::find(kWords, machine, &VerdictWords::machine);
    return found == kWords.end() ? Verdict::Incomplete : found->verdict;
}

std::string verdictLine(std::size_t findings, const ScanCoverage& coverage, const Subject& subject)
{
    const Verdict verdict = verdictOf(findings, coverage);
    std::string gaps = gapsOf(coverage);
    std::string line = statementOf(verdict, findings, coverage, subject, gaps);
    const bool isStopped = coverage.ended.how == ScanEnding::How::Stopped;
    if (isStopped && verdict != Verdict::Stopped)
        line += "; the scan was stopped " + stoppedText(coverage.ended);
    if (!gaps.empty())
        line += "; not everything could be read: " + gaps;
    line += ".";
    if (verdict == Verdict::Found && !coverage.heldBack.empty())
        line += " Besides, " + heldBackText(coverage.heldBack) + ".";
    const std::string notLookedAt = notLookedAtText(coverage);
    return notLookedAt.empty() ? line : line + " Not looked at: " + notLookedAt + ".";
}

} // namespace pryvane
