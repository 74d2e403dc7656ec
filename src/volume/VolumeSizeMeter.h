#pragma once

#include "platform/SizeMeter.h"
#include "volume/VolumeFileSystem.h"

namespace pryvane {

/// Measures on a volume. Callable from any thread.
class VolumeSizeMeter final : public SizeMeter {
public:
    /// The volume must outlive this.
    explicit VolumeSizeMeter(VolumeFileSystem& volume);
    VolumeSizeMeter(VolumeFileSystem& volume, unsigned threads)
        : m_volume(volume), m_threads(threads)
    {
    }

    void measure(std::span<const FileURL> locations, const StopFlag& stop, SizeProgress& progress,
                 const Told& told) override;

private:
    VolumeFileSystem& m_volume;
    unsigned m_threads;
};

} // namespace pryvane
