#include "hosts/linux/LinuxWorkspace.h"

#include "formats/PropertyList.h"
#include "hosts/linux/RunningApplications.h"

namespace pryvane {

std::optional<FileURL> LinuxWorkspace::fullPathForApplication(std::string_view name)
{
    if (name.empty() || name.find('/') != name.npos)
        return std::nullopt;
    const std::string bundle = std::string(name) + ".app";
    for (const std::string& folder :
         {std::string("/Applications"), "/Users/" + m_user + "/Applications"}) {
        const std::string path = joinedPath(folder, bundle);
        if (m_disk.exists(FileURL::fileURLWithPath(path + "/")))
            return FileURL::fileURLWithPath(path);
    }
    return std::nullopt;
}

std::optional<std::string> LinuxWorkspace::bundleIdentifier(const FileURL& bundle)
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

std::vector<std::string> LinuxWorkspace::runningApplications()
{
    // Those of this host have nothing to do with a disk that is mounted on it.
    return m_disk.isHostRoot() ? runningApplicationsOfHost() : std::vector<std::string>();
}

} // namespace pryvane
