#pragma once

#include "cli/Host.h"
#include "core/Result.h"
#include "core/Texts.h"

#include <chrono>
#include <optional>

namespace pryvane::cli {

struct Console;

/// A scan of the window's schedule.
struct DueScan {
    Date moment; ///< of the schedule
    VolumeArguments volume;
};

/// A window that runs sees to the scans itself, and has taken one of its own within that time.
inline constexpr std::chrono::seconds kForTheWindow{10};

/// The scan that is due and that no window has taken; none: there is none, which has been said.
[[nodiscard]] Result<std::optional<DueScan>> dueScan(const Console& console);

} // namespace pryvane::cli
