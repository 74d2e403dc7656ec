#pragma once

#include "platform/Machine.h"
#include "volume/VolumeFileSystem.h"

#include <string>
#include <vector>

namespace pryvane {

/// The display names of the known applications that run on this host ("Google Chrome"), each once,
/// in the order of the table. A process is known by the name of its program or, where another
/// user's program may not be seen, by its own. `processes` is the folder of all processes.
[[nodiscard]] std::vector<std::string>
runningApplicationsOfHost(const std::string& processes = "/proc");

/// Looks for applications where a Mac keeps them on the volume. As callable as its file system.
class LinuxWorkspace final : public Workspace {
public:
    /// The users in whose homes applications are looked for, as Users.h names them. The file system
    /// must outlive this.
    LinuxWorkspace(VolumeFileSystem& disk, std::vector<std::string> users)
        : m_disk(disk), m_users(std::move(users)), m_isHostRoot(disk.isHostRoot())
    {
    }
    /// A disk that is not mounted.
    LinuxWorkspace(FileSystem& disk, std::vector<std::string> users)
        : m_disk(disk), m_users(std::move(users))
    {
    }

    [[nodiscard]] std::optional<FileURL> fullPathForApplication(std::string_view name) override;
    [[nodiscard]] std::optional<std::string> bundleIdentifier(const FileURL& bundle) override;
    [[nodiscard]] std::vector<std::string> runningApplications() override;

private:
    FileSystem& m_disk;
    const std::vector<std::string> m_users;
    bool m_isHostRoot = false;
};

} // namespace pryvane
