#pragma once

#include "platform/FileURL.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// Facts about this computer and its user, as the printed report names them. Callable from any
/// thread; nothing is cached.
class MachineInfo {
public:
    virtual ~MachineInfo() = default;

    [[nodiscard]] virtual std::optional<std::string> computerName() = 0;
    [[nodiscard]] virtual std::string loginName() = 0;

    /// The model identifier, or "Just an Apple Computer" where the machine tells none.
    [[nodiscard]] virtual std::string machineModel() = 0;

    /// None where the machine tells none, or not to this user.
    [[nodiscard]] virtual std::optional<std::string> serialNumber() = 0;
};

/// What the desktop knows of applications. Callable from any thread.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Where the application of that display name is installed on the volume, if it is.
    [[nodiscard]] virtual std::optional<FileURL> fullPathForApplication(std::string_view name) = 0;

    /// The identifier in the property list of an application bundle, if it can be read.
    [[nodiscard]] virtual std::optional<std::string> bundleIdentifier(const FileURL& bundle) = 0;

    /// The display names of the applications that run on this host now ("Google Chrome"), each
    /// once; those that could keep files of the volume open are enough. None where the volume is
    /// not this host's own "/": then they have nothing to do with it.
    [[nodiscard]] virtual std::vector<std::string> runningApplications() = 0;
};

} // namespace pryvane
