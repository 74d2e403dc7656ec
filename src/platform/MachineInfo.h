#pragma once

#include <optional>
#include <string>

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

} // namespace pryvane
