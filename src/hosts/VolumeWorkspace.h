#pragma once

#include "platform/FileSystem.h"
#include "platform/Machine.h"

#include <functional>
#include <string>
#include <vector>

namespace pryvane {

/// Looks for applications where a Mac keeps them on the volume. As callable as its file system.
class VolumeWorkspace final : public Workspace {
public:
    /// The display names of the known applications that run on this host.
    using Running = std::function<std::vector<std::string>()>;

    /// The users in whose homes applications are looked for, as Users.h names them. Without
    /// `running` none counts as running. The file system must outlive this.
    VolumeWorkspace(FileSystem& disk, std::vector<std::string> users, Running running)
        : m_disk(disk), m_users(std::move(users)), m_running(std::move(running))
    {
    }

    [[nodiscard]] std::optional<FileURL> fullPathForApplication(std::string_view name) override;
    [[nodiscard]] std::optional<std::string> bundleIdentifier(const FileURL& bundle) override;
    [[nodiscard]] std::vector<std::string> runningApplications() override;

private:
    FileSystem& m_disk;
    const std::vector<std::string> m_users;
    const Running m_running;
};

} // namespace pryvane
