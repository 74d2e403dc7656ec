#pragma once

#include "core/Files.h"
#include "core/StopFlag.h"
#include "platform/FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <sys/stat.h>
#include <sys/types.h>

namespace pryvane {

/// Tells the allocated bytes of files: 512-byte blocks × 512, or the length rounded up to 512 where
/// the file system leaves the blocks out. Remembers which one that is. For one thread at a time.
class FileSizes {
public:
    /// Of what stands in that open folder and is none itself.
    [[nodiscard]] std::int64_t bytes(const struct stat& data, int folder)
    {
        return data.st_blocks == 0 && data.st_size > 0 && S_ISREG(data.st_mode)
                   ? withoutBlocks(data, folder)
                   : std::int64_t{data.st_blocks} * 512;
    }

private:
    [[nodiscard]] std::int64_t withoutBlocks(const struct stat& data, int folder);

    std::optional<dev_t> m_device; ///< that was asked last
    bool m_byLength = false;
};

/// What is to be measured at one location: a folder, open for reading, or else so many bytes.
struct Measurable {
    UniqueFd folder;
    std::int64_t bytes = 0;
};

/// Tells what a location holds when its turn has come; called on any thread.
using OpenMeasurable = std::function<Measurable(std::size_t location)>;

/// Measures locations on so many threads, the calling one included: 512-byte blocks × 512 of all
/// entries that are not folders, once per name, links not followed. What cannot be read counts 0.
/// Locations are begun in their order, several folders are in flight at once. Needs a bounded
/// number of descriptors, however deep the folders are nested. See SizeMeter for stop and `told`.
void allocatedSizes(std::size_t locations, unsigned threads, const OpenMeasurable& open,
                    const StopFlag& stop, SizeProgress& progress, const SizeMeter::Told& told);

/// The same for one open folder, on the calling thread alone.
[[nodiscard]] std::int64_t allocatedSizeBelow(UniqueFd folder);

} // namespace pryvane
