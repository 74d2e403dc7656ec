#include "volume/VolumeSizeMeter.h"

#include "core/tasks/WorkCrew.h"

namespace pryvane {

VolumeSizeMeter::VolumeSizeMeter(VolumeFileSystem& volume)
    : VolumeSizeMeter(volume, CrewSize::usualThreads())
{
}

void VolumeSizeMeter::measure(std::span<const FileURL> locations, const StopFlag& stop,
                              SizeProgress& progress, const Told& told)
{
    allocatedSizes(
        locations.size(), m_threads,
        [&](std::size_t location) { return m_volume.measurable(locations[location]); }, stop,
        progress, told);
}

} // namespace pryvane
