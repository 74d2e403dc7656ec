#include "inventory/FirefoxProfiles.h"

#include <algorithm>
#include <utility>

namespace pryvane {

namespace {

constexpr std::string_view kProfiles = "Profiles/";

/// A section of the file, as far as it was read.
struct Section {
    bool isProfile = false;
    bool isRelative = true;
    std::string path;
};

void take(const Section& section, BoundedList<std::string>& folders)
{
    if (!section.isProfile || section.path.empty())
        return;
    std::string_view path = section.path;
    const bool isBeside = section.isRelative && path.starts_with(kProfiles);
    path.remove_prefix(isBeside ? kProfiles.size() : 0);
    const bool isOne = !path.empty() && path.size() <= 255 && path != "." && path != ".." &&
                       path.find_first_of(std::string_view("/\0", 2)) == path.npos;
    if (!isBeside || !isOne || folders.entries.size() == kMostProfiles) {
        folders.whole = false;
        return;
    }
    if (std::ranges::find(folders.entries, path) == folders.entries.end())
        folders.entries.emplace_back(path);
}

} // namespace

BoundedList<std::string> firefoxProfileFolders(std::string_view profilesIni)
{
    BoundedList<std::string> folders;
    Section section;
    while (!profilesIni.empty()) {
        const auto end = std::min(profilesIni.find('\n'), profilesIni.size());
        std::string_view line = profilesIni.substr(0, end);
        profilesIni.remove_prefix(std::min(end + 1, profilesIni.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (line.starts_with('[')) {
            take(std::exchange(section, {}), folders);
            section.isProfile = line.starts_with("[Profile");
        } else if (line.starts_with("IsRelative=")) {
            section.isRelative = line != "IsRelative=0";
        } else if (line.starts_with("Path=")) {
            section.path = line.substr(std::string_view("Path=").size());
        }
    }
    take(section, folders);
    return folders;
}

} // namespace pryvane
