#pragma once

#include "platform/DesktopWindows.h"

namespace pryvane {

/// The dock's icon by the program's activation policy.
class ActivationDockIcon final : public DockIcon {
public:
    [[nodiscard]] ActivationPolicy policy() const override { return m_policy; }
    void setPolicy(ActivationPolicy policy) override;

private:
    ActivationPolicy m_policy = ActivationPolicy::Regular;
};

} // namespace pryvane
