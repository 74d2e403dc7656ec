#pragma once

#include "core/Files.h"
#include "core/Result.h"

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace pryvane::cli {

/// The same program once more, with arguments of its own and nothing to read. What it says and
/// tells goes into files without a name, so that neither waits for the other.
struct ChildScan {
    pid_t process = -1;
    UniqueFd out, err;

    /// In a process group of its own: whoever started it hands on what stops it.
    [[nodiscard]] static Result<ChildScan> start(const std::vector<std::string>& arguments);

    /// Blocks until it has ended: its exit code, or the number of the signal that ended it, below
    /// zero. `ended` is called while the process's number cannot be another's yet.
    [[nodiscard]] int wait(const std::function<void()>& ended) const;
};

} // namespace pryvane::cli
