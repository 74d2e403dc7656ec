#pragma once

#include "platform/Machine.h"

#include <string>

namespace pryvane {

/// The facts as Linux tells them: the pretty host name or the host name, and what the firmware says
/// of model and serial number (the latter to root only, on most machines).
class LinuxMachineInfo final : public MachineInfo {
public:
    /// `root` is put before the system's own paths.
    explicit LinuxMachineInfo(std::string root = {}) : m_root(std::move(root)) {}

    [[nodiscard]] std::optional<std::string> computerName() override;
    [[nodiscard]] std::string loginName() override;
    [[nodiscard]] std::string machineModel() override;
    [[nodiscard]] std::optional<std::string> serialNumber() override;

private:
    /// The content of the first of these files that says something, without blanks around it.
    [[nodiscard]] std::optional<std::string>
    firstWord(std::initializer_list<const char*> paths) const;

    std::string m_root;
};

} // namespace pryvane
