#pragma once

#include "platform/DesktopPrograms.h"
#include "volume/VolumeFileSystem.h"

namespace pryvane {

/// The system's file viewer, with the item selected. What is shown lies inside the volume, whatever
/// links the path goes through.
class NativeFileViewer final : public FileViewer {
public:
    /// The volume must outlive this.
    explicit NativeFileViewer(VolumeFileSystem& volume) : m_volume(volume) {}

    Result<Done> reveal(const FileURL& item) override;

private:
    VolumeFileSystem& m_volume;
};

} // namespace pryvane
