#include "findings/ScanCoverage.h"

#include "core/Escape.h"
#include "core/Texts.h"

namespace pryvane {

std::string systemVolumeText(const ScanCoverage& coverage)
{
    return coverage.systemVolumeLeftOut == 0
               ? std::string()
               : "the system volume was not looked at: " +
                     countedText(static_cast<std::uint64_t>(coverage.systemVolumeLeftOut),
                                 "signature", "signatures") +
                     " left out";
}

std::string homesLeftOutText(const ScanCoverage& coverage)
{
    std::string text;
    for (const std::string& home : coverage.homesLeftOut)
        text += (text.empty() ? "not looked at: the homes of " : ", ") + forScreen(home);
    return text;
}

std::string contentsText(const ScanCoverage& coverage)
{
    if (coverage.contentsRead == 0 && coverage.contentsNotRead == 0)
        return {};
    std::string text =
        "contents of " +
        countedText(static_cast<std::uint64_t>(coverage.contentsRead), "finding", "findings") +
        " were read for the SHA-256";
    if (coverage.contentsNotRead > 0)
        text += "; of " + std::to_string(coverage.contentsNotRead) + " they could not be read";
    return text;
}

std::string otherDisksText(const ScanCoverage& coverage)
{
    constexpr std::size_t kNamed = 20;
    std::string text;
    for (std::size_t i = 0; i < coverage.otherDisks.size() && i < kNamed; ++i)
        text += (text.empty() ? "not looked at: other disks at " : ", ") +
                forScreen(coverage.otherDisks[i]);
    if (coverage.otherDisks.size() > kNamed)
        text += " and " + std::to_string(coverage.otherDisks.size() - kNamed) + " more";
    return text;
}

std::vector<std::pair<std::string, std::string>> sourceLines(const SourceFacts& source)
{
    std::vector<std::pair<std::string, std::string>> lines;
    if (!source.isKnown())
        return lines;
    const std::string name = source.name == "-" ? "standard input" : forScreen(source.name);
    std::string text = source.source + ", " + name + " (" + forScreen(source.format) + "), " +
                       countedText(static_cast<std::size_t>(source.entries), "entry", "entries");
    if (source.skipped > 0)
        text += ", " + std::to_string(source.skipped) + " not understood";
    lines.emplace_back("Read from", text);
    for (const std::string& line : source.firstSkipped)
        lines.emplace_back("Not understood", forScreen(line));
    if (!source.sha256.empty())
        lines.emplace_back("SHA-256", source.sha256);
    if (!source.remark.empty())
        lines.emplace_back("Remark", source.remark);
    return lines;
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

} // namespace pryvane
