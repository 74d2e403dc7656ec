#pragma once

#include "platform/FileSystem.h"

#include <cstdint>
#include <string_view>

namespace pryvane {

/// What the two passes of a deep walk tell while they work. Calls come from the walk's threads, but
/// never two at a time, and the walk waits for them: they should be short. Paths are raw bytes, as
/// on the volume, and valid during the call only.
class WalkObserver {
public:
    virtual ~WalkObserver() = default;

    /// Whether counting() and location() are wanted; asked once when a pass begins.
    [[nodiscard]] virtual bool wantsLocations() const = 0;

    /// The counting pass has counted so many. About thirty times a second, for a display.
    virtual void counting(std::int64_t totalCount) = 0;

    /// The scanning pass is at this folder. As often.
    virtual void location(std::string_view path) = 0;

    /// Another hundredth of the counted entries has been walked.
    virtual void progress(std::int64_t steps) = 0;

    /// A file's path holds a text of the full-system list. In the order of the walk, one file once.
    /// `seen` is the file as the walk met it.
    virtual void match(std::string_view path, std::string_view name, const SeenEntry& seen) = 0;

    /// A folder that is there could not be read, or not to its end. In the order of the walk.
    virtual void refused(std::string_view path, std::string_view reason) = 0;

    /// Another disk is mounted there and was left out. In the order of the walk.
    virtual void otherDisk(std::string_view path) = 0;
};

} // namespace pryvane
