#include "inventory/facts/Whereabouts.h"

#include <algorithm>
#include <array>

namespace pryvane {

namespace {

template <std::size_t Count>
[[nodiscard]] bool isBelowAny(std::string_view path,
                              const std::array<std::string_view, Count>& folders)
{
    return std::any_of(folders.begin(), folders.end(),
                       [&](std::string_view folder) { return path.starts_with(folder); });
}

constexpr auto kTemporary = std::to_array<std::string_view>({
    "/tmp/",
    "/private/tmp/",
    "/var/tmp/",
    "/private/var/tmp/",
    "/var/folders/",
    "/private/var/folders/",
});

/// Folders of the system's own volume, which a Mac's data volume does not hold.
constexpr auto kSystemFolders =
    std::to_array<std::string_view>({"/System/", "/usr/", "/bin/", "/sbin/"});

} // namespace

ProgramPlace placeOf(std::string_view path)
{
    constexpr std::string_view kUsers = "/Users/";
    constexpr std::string_view kShared = "/Users/Shared/";
    if (!path.starts_with('/'))
        return {};
    ProgramPlace place{PlaceKind::Usual, {}};
    if (path.starts_with(kUsers) && !path.starts_with(kShared)) {
        const std::string_view name = path.substr(kUsers.size());
        place.home = std::string(name.substr(0, name.find('/')));
        place.kind = PlaceKind::Home;
    }
    if (path.starts_with(kShared))
        place.kind = PlaceKind::Shared;
    if (isBelowAny(path, kTemporary))
        place.kind = PlaceKind::TemporaryFolder;
    for (std::size_t at = path.find("/."); at != std::string_view::npos;
         at = path.find("/.", at + 1)) {
        const std::string_view name = path.substr(at + 1, path.find('/', at + 1) - at - 1);
        if (name != "." && name != "..")
            place.kind = PlaceKind::HiddenFolder;
    }
    return place;
}

std::string_view applicationOf(std::string_view path)
{
    constexpr std::string_view kExtension = ".app";
    for (std::size_t at = path.find(kExtension); at != std::string_view::npos;
         at = path.find(kExtension, at + 1)) {
        const std::size_t end = at + kExtension.size();
        if (end == path.size() || path[end] == '/')
            return path.substr(0, end);
    }
    return {};
}

ProgramOnDisk ProgramFinder::find(const std::string& path)
{
    ProgramOnDisk program;
    // A text that was shortened leads nowhere.
    if (!path.starts_with('/') || path.size() > kLongestFactText)
        return program;
    program.path = path;
    ProgramPlace place = placeOf(path);
    program.place = place.kind;
    program.home = std::move(place.home);
    auto known = m_known.find(path);
    if (known == m_known.end())
        known = m_known.emplace(path, look(path)).first;
    program.whereabouts = known->second;
    return program;
}

Whereabouts ProgramFinder::look(const std::string& path)
{
    switch (m_disk.presence(FileURL::fileURLWithPath(path))) {
    case Presence::Present:
        return Whereabouts::There;
    case Presence::Unknown:
        return Whereabouts::NotKnown;
    case Presence::Absent:
        break;
    }
    const bool isSystems = isBelowAny(path, kSystemFolders) && !path.starts_with("/usr/local/");
    const bool isElsewhere = path.starts_with("/Volumes/");
    return (isSystems && !holdsSystem()) || isElsewhere ? Whereabouts::NotKnown
                                                        : Whereabouts::Missing;
}

bool ProgramFinder::holdsSystem()
{
    if (!m_holdsSystem)
        m_holdsSystem = m_disk.exists(FileURL::fileURLWithPath("/System/Library/CoreServices"));
    return *m_holdsSystem;
}

} // namespace pryvane
