#pragma once

#include "cli/Console.h"
#include "cli/ScanArguments.h"
#include "cli/ScanSources.h"

#include <vector>

namespace pryvane::cli {

/// Scans each of the disks in a process of its own, so many at the same time, as a scan of that
/// disk alone would: a disk that brings its scan down, or eats up its memory, brings down no other,
/// and each keeps its report in the store, which lets one write after the other. Results are
/// written whole, as they come, then a line for each disk in the order in which they were named.
/// Returns the worst exit code of all.
[[nodiscard]] int scanManyDisks(const std::vector<ScanSource>& sources,
                                const ScanArguments& arguments, const Console& console);

/// Of the exit codes of several scans the one that counts for all: what was interrupted before an
/// error, an error before findings, findings before what could not be looked at.
[[nodiscard]] int worseCode(int a, int b);

} // namespace pryvane::cli
