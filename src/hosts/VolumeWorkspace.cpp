#include "hosts/VolumeWorkspace.h"

#include "formats/PropertyList.h"
#include "platform/Users.h"

#include <cstddef>

namespace pryvane {

std::optional<FileURL> VolumeWorkspace::fullPathForApplication(std::string_view name)
{
    if (name.empty() || name.find('/') != name.npos)
        return std::nullopt;
    const std::string bundle = std::string(name) + ".app";
    const auto inFolder = [&](const std::string& folder) -> std::optional<FileURL> {
        const std::string path = joinedPath(folder, bundle);
        if (m_disk.exists(FileURL::fileURLWithPath(path + "/")))
            return FileURL::fileURLWithPath(path);
        return std::nullopt;
    };
    auto found = inFolder("/Applications");
    for (auto user = m_users.begin(); user != m_users.end() && !found; ++user)
        found = inFolder(homePath(*user) + "/Applications");
    return found;
}

std::optional<std::string> VolumeWorkspace::bundleIdentifier(const FileURL& bundle)
{
    constexpr std::size_t kLimit = std::size_t{64} * 1024;
    const auto url =
        FileURL::fileURLWithPath(joinedPath(bundle.absolutePath(), "Contents/Info.plist"));
    auto content = m_disk.readSmallFile(url, kLimit);
    if (!content)
        return std::nullopt;
    const auto list = PropertyList::read(std::move(content).value());
    const auto identifier = list ? list->root()["CFBundleIdentifier"].text() : std::nullopt;
    return identifier ? std::optional<std::string>(*identifier) : std::nullopt;
}

std::vector<std::string> VolumeWorkspace::runningApplications()
{
    return m_running ? m_running() : std::vector<std::string>();
}

} // namespace pryvane
