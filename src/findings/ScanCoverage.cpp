#include "findings/ScanCoverage.h"

#include "core/Escape.h"

#include <algorithm>

namespace pryvane {

void noteHomes(FileSystem& disk, const std::string& homePath, ScanCoverage& coverage)
{
    auto homes = disk.homes();
    std::sort(homes.begin(), homes.end());
    if (disk.presence(FileURL::fileURLWithPath(homePath + "/")) == Presence::Absent) {
        coverage.missingHome = homePath;
        coverage.homes = std::move(homes);
        return;
    }
    std::erase(homes, homePath.substr(homePath.rfind('/') + 1));
    coverage.homesLeftOut = std::move(homes);
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
