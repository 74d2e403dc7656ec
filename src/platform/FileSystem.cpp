#include "platform/FileSystem.h"

#include "core/Sha256.h"
#include "platform/MacFolders.h"

#include <algorithm>

namespace pryvane {

DiskMoment DiskMoment::of(std::int64_t seconds, std::int64_t nanoseconds)
{
    constexpr std::int64_t kFirst = -8'520'336'000, kLast = 7'258'118'399;
    if (seconds < kFirst || seconds > kLast)
        return {};
    return Date(std::chrono::seconds(seconds) +
                std::chrono::milliseconds(nanoseconds / 1'000'000 % 1000));
}

Result<std::string> FileSystem::contentHash(const FileURL& url, const StopFlag&)
{
    constexpr std::size_t kMost = std::size_t{64} << 20; // held in memory
    const auto content = readSmallFile(url, kMost);
    if (!content)
        return content.error();
    return sha256Hex(*content);
}

std::vector<std::string> FileSystem::homes()
{
    std::vector<std::string> names;
    for (const FolderEntry& entry : list(FileURL::fileURLWithPath("/Users")).entries) {
        const bool isHome = entry.kind == FileKind::Folder && entry.name != "Shared" &&
                            !entry.name.starts_with('.');
        if (isHome)
            names.push_back(entry.name);
    }
    return names;
}

std::vector<Presence> FileSystem::presencesIn(const FileURL& folder,
                                              std::span<const std::string_view> names)
{
    std::vector<Presence> there;
    for (const std::string_view name : names) {
        const auto url = FileURL::fileURLWithPath(joinedPath(folder.relativePath(), name));
        there.push_back(presence(url));
        if (there.back() != Presence::Present)
            continue;
        const auto spelled = spelledPath(url);
        if (spelled && *spelled != url.absolutePath())
            there.back() = Presence::Absent;
    }
    return there;
}

bool holdsMac(FileSystem& disk, std::string_view folder)
{
    return std::ranges::any_of(kMacFolders, [&](std::string_view name) {
        const std::string path = joinedPath(folder, name) + "/";
        return disk.presence(FileURL::fileURLWithPath(path)) != Presence::Absent;
    });
}

} // namespace pryvane
