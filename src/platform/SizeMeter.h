#pragma once

#include "core/StopFlag.h"
#include "platform/FileURL.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace pryvane {

/// How far a measurement is, for a display that looks now and then.
struct SizeProgress {
    std::atomic<std::uint64_t> entries{0}; ///< files and links looked at
};

/// Measures many locations of one volume at once, on all cores. Links are not followed and folders
/// themselves count 0; each entry counts its allocated 512-byte blocks × 512, once per name.
class SizeMeter {
public:
    virtual ~SizeMeter() = default;

    /// Called once for each location when its bytes are known, in any order, on any thread, but
    /// never on two at once.
    using Told = std::function<void(std::size_t location, std::int64_t bytes)>;

    /// Blocks until all locations are told. A stop ends it between two entries; locations that were
    /// not finished are not told. What is missing or cannot be read counts 0.
    virtual void measure(std::span<const FileURL> locations, const StopFlag& stop,
                         SizeProgress& progress, const Told& told) = 0;
};

} // namespace pryvane
