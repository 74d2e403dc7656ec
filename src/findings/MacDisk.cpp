#include "findings/MacDisk.h"

#include "core/Escape.h"

#include <algorithm>
#include <array>

namespace pryvane {

namespace {

constexpr std::array<std::string_view, 4> kSystemFolders = {"/System/", "/usr/", "/bin/", "/sbin/"};

/// What of those folders a Mac keeps on its data volume, behind links of the file system's own.
constexpr std::array<std::string_view, 10> kOnDataVolume = {
    "/System/Library/Assets/",
    "/System/Library/AssetsV2/",
    "/System/Library/Caches/",
    "/System/Library/CoreServices/CoreTypes.bundle/Contents/Library/",
    "/System/Library/PreinstalledAssets/",
    "/System/Library/PreinstalledAssetsV2/",
    "/System/Library/Speech/",
    "/usr/libexec/cups/",
    "/usr/local/",
    "/usr/share/snmp/"};

constexpr std::size_t kMostLookedInto = 256; ///< of a root that may hold anything

template <std::size_t Count>
bool isBelow(std::string_view path, const std::array<std::string_view, Count>& folders)
{
    return std::ranges::any_of(folders, [&](auto folder) { return path.starts_with(folder); });
}

/// The folder in the root that holds a Mac, as drivers lay a disk out in "root"; empty: none.
std::string folderWithMac(FileSystem& disk)
{
    std::vector<std::string> found;
    std::size_t lookedInto = 0;
    for (const FolderEntry& entry : disk.list(FileURL::fileURLWithPath("/")).entries) {
        if (entry.kind == FileKind::Folder && ++lookedInto <= kMostLookedInto &&
            holdsMac(disk, "/" + entry.name))
            found.push_back(entry.name);
    }
    if (std::ranges::find(found, "root") != found.end())
        return "root";
    return found.empty() ? std::string() : *std::ranges::min_element(found);
}

} // namespace

Result<Done> mustHoldMac(FileSystem& disk, std::string_view hostFolder)
{
    if (holdsMac(disk))
        return Done{};
    const auto quoted = [](std::string_view path) { return "\"" + forScreen(path) + "\""; };
    std::string message = "there is no Mac " +
                          (hostFolder.empty() ? "on this disk" : "in " + quoted(hostFolder)) +
                          ": it has none of the folders Library, System, Users and Applications; ";
    // What is in an image cannot be named as a folder.
    if (disk.source().kind == DiskSource::Kind::Image)
        return Error{message + "pryvane-cli listing --image FILE --list shows what volumes it has"};
    const std::string instead = folderWithMac(disk);
    if (instead.empty())
        message += "give the folder at which the Mac disk is mounted";
    else
        message += "look at " + quoted(joinedPath(hostFolder.empty() ? "/" : hostFolder, instead)) +
                   " instead";
    return Error{std::move(message)};
}

bool isOnSystemVolume(std::string_view path)
{
    return isBelow(path, kSystemFolders) && !isBelow(path, kOnDataVolume);
}

} // namespace pryvane
