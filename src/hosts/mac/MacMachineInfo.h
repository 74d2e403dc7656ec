#pragma once

#include "platform/Machine.h"

namespace pryvane {

/// The facts as a Mac tells them: its name from the sharing settings, model and serial number from
/// its firmware.
class MacMachineInfo final : public MachineInfo {
public:
    [[nodiscard]] std::optional<std::string> computerName() override;
    [[nodiscard]] std::string loginName() override;
    [[nodiscard]] std::string machineModel() override;
    [[nodiscard]] std::optional<std::string> serialNumber() override;
};

} // namespace pryvane
