#pragma once

#include <cstdio>

namespace pryvane::bench {

/// This process's own peak, in kilobytes. What a parent is told of its children would hold the
/// parent's size at the fork.
inline long peakMemory()
{
    long kilobytes = 0;
    if (std::FILE* status = std::fopen("/proc/self/status", "r")) {
        char line[128];
        while (std::fgets(line, sizeof line, status)) {
            if (std::sscanf(line, "VmHWM: %ld", &kilobytes) == 1)
                break;
        }
        std::fclose(status);
    }
    return kilobytes;
}

} // namespace pryvane::bench
