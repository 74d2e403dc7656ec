#pragma once

#include <cstdint>

namespace pryvane {

/// How the desktop lists the program: with an icon of its own, or not at all.
enum class ActivationPolicy : std::uint8_t { Regular = 0, Accessory = 1 };

/// The program's icon in the dock or task bar. Main thread only.
class DockIcon {
public:
    virtual ~DockIcon() = default;

    /// What was last set; Regular before that.
    [[nodiscard]] virtual ActivationPolicy policy() const = 0;

    /// Takes effect on the windows that are open and on those opened later. A desktop that cannot
    /// do it goes on as before, and policy() still tells what was asked for.
    virtual void setPolicy(ActivationPolicy policy) = 0;
};

} // namespace pryvane
