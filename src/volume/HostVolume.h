#pragma once

#include "volume/ConfinedRoot.h"

#include <optional>

/// What hosts do in ways of their own; CMake chooses the file that does it.
namespace pryvane {

/// Confinement by the kernel, or nothing where the host has none. The descriptor must outlive it.
[[nodiscard]] std::unique_ptr<ConfinedRoot> kernelConfinement(int rootFd);

struct BirthTime {
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;
};

/// When the folder was made, where the host and its file system tell.
[[nodiscard]] std::optional<BirthTime> birthTime(int fd);

} // namespace pryvane
