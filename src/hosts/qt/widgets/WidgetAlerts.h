#pragma once

#include "platform/Messages.h"

namespace pryvane {

/// Alerts as message boxes over the active window. The Return key takes the first button, Escape
/// the one that says "No" or "Cancel", or the only one; otherwise a button must be chosen.
class WidgetAlerts final : public Alerts {
public:
    int runModal(const Alert& alert) override;
};

} // namespace pryvane
