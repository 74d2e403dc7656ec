#pragma once

#include "platform/Workspace.h"
#include "volume/VolumeFileSystem.h"

namespace pryvane {

/// Looks for applications where a Mac keeps them on the volume. As callable as its file system.
class LinuxWorkspace final : public Workspace {
public:
    /// `user` is the short name of the account on the volume. The file system must outlive this.
    LinuxWorkspace(VolumeFileSystem& disk, std::string user) : m_disk(disk), m_user(std::move(user))
    {
    }

    [[nodiscard]] std::optional<FileURL> fullPathForApplication(std::string_view name) override;
    [[nodiscard]] std::optional<std::string> bundleIdentifier(const FileURL& bundle) override;
    [[nodiscard]] std::vector<std::string> runningApplications() override;

private:
    VolumeFileSystem& m_disk;
    std::string m_user;
};

} // namespace pryvane
