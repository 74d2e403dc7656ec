#pragma once

#include "core/Result.h"

namespace pryvane {

/// Start at login through the login helper, a small program of its own. Main thread only.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    /// Registers the helper for the next login, or takes it out. Taking out what is not there is a
    /// success; on an error nothing changed.
    virtual Result<Done> setEnabled(bool enabled) = 0;

    /// Whether the helper runs right now; false where that cannot be told.
    [[nodiscard]] virtual bool helperIsRunning() = 0;
};

} // namespace pryvane
