#pragma once

#include "platform/Messages.h"

namespace pryvane {

/// Short messages by the system's notification centre, which asks the user once whether it may.
/// Does nothing for a program outside a bundle: the system ends one that asks.
class NativeNotifier final : public UserNotifier {
public:
    void deliver(const std::string& title, const std::string& informativeText) override;

private:
    bool m_asked = false;
};

} // namespace pryvane
