#include "findings/ScanCoverage.h"

#include "core/Escape.h"
#include "core/Texts.h"

namespace pryvane {

void noteHomes(FileSystem& disk, const std::string& homePath, ScanCoverage& coverage)
{
    if (disk.presence(FileURL::fileURLWithPath(homePath + "/")) != Presence::Absent)
        return;
    coverage.missingHome = homePath;
    coverage.homes = disk.homes();
}

std::string missingHomeText(const ScanCoverage& coverage)
{
    std::string text = "no home at " + forScreen(coverage.missingHome) + ", ";
    if (coverage.homes.empty())
        return text + "and no other home on this volume";
    text += "homes there are: ";
    for (std::size_t i = 0; i < coverage.homes.size(); ++i)
        text += (i ? ", " : "") + forScreen(coverage.homes[i]);
    return text;
}

Verdict verdictOf(std::size_t findings, const ScanCoverage& coverage)
{
    if (findings > 0)
        return Verdict::Found;
    const bool everythingRead = coverage.refused.empty() && coverage.missingHome.empty();
    return everythingRead ? Verdict::Clean : Verdict::CleanWhereRead;
}

std::string verdictLine(std::size_t findings, const ScanCoverage& coverage)
{
    std::string gaps;
    if (!coverage.refused.empty())
        gaps = countedText(coverage.refused.size(), "location", "locations") + " could not be read";
    if (!coverage.missingHome.empty())
        gaps += (gaps.empty() ? "" : "; ") + missingHomeText(coverage);
    switch (verdictOf(findings, coverage)) {
    case Verdict::Clean:
        return "Clean: nothing found.";
    case Verdict::CleanWhereRead:
        return "Clean, but not everything could be read: " + gaps + ".";
    case Verdict::Found:
        break;
    }
    return "Found: " + countedText(findings, "potential threat", "potential threats") +
           (gaps.empty() ? "." : "; not everything could be read: " + gaps + ".");
}

} // namespace pryvane
