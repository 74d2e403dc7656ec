#pragma once

#include "engine/walker/WalkReport.h"

#include <atomic>
#include <cstdint>

namespace pryvane {

/// Counts the entries of one pass for all its threads and tells what hangs on the count.
class WalkTally {
public:
    virtual ~WalkTally() = default;

    /// So many entries more.
    virtual void add(std::int64_t entries) = 0;

    /// The walk is at this file or folder; called for each entry, before it is counted by the
    /// counting pass, after it by the scanning pass.
    virtual void at(std::string_view path) = 0;

    /// A folder was read; may tell a display where the walk is.
    virtual void folderRead(std::string_view path) = 0;
};

} // namespace pryvane
