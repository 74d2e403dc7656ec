#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <tsk/libtsk.h>
#include <vector>

namespace pryvane {

template <auto Close>
struct ClosedBy {
    template <typename Thing>
    void operator()(Thing* thing) const
    {
        Close(thing);
    }
};
using Image = std::unique_ptr<TSK_IMG_INFO, ClosedBy<tsk_img_close>>;
using Partitions = std::unique_ptr<TSK_VS_INFO, ClosedBy<tsk_vs_close>>;
using Pool = std::unique_ptr<const TSK_POOL_INFO, ClosedBy<tsk_pool_close>>;
using OpenVolume = std::unique_ptr<TSK_FS_INFO, ClosedBy<tsk_fs_close>>;

struct ImagePartition {
    std::uint32_t number = 0; ///< from 1
    std::uint64_t start = 0;  ///< bytes
    std::uint64_t length = 0; ///< bytes
    std::string description;
};

/// A volume that names could be read from.
struct ImageVolume {
    std::uint32_t partition = 0; ///< 0: the image is one volume, without partitions
    std::uint32_t number = 0;    ///< in its container, from 1; 0 where it has none of its own
    std::uint64_t start = 0;     ///< of the volume or its container, bytes
    std::uint64_t block = 0;     ///< of an APFS volume in its container
    std::uint16_t role = 0;      ///< as APFS stores it
    bool encrypted = false;
    bool caseSensitive = false;
    std::string fileSystem;
    std::string name;
};

/// An image's partitions and the volumes in them.
class ImageVolumes {
public:
    /// Empty, or why the image cannot be opened.
    [[nodiscard]] std::string open(const std::string& path);

    /// Finds what partitions and volumes it has.
    void look();

    [[nodiscard]] const std::vector<ImagePartition>& partitions() const { return m_partitions; }
    [[nodiscard]] const std::vector<ImageVolume>& volumes() const { return m_volumes; }

    /// Null, with the reason in `problem`, where it cannot be opened.
    [[nodiscard]] OpenVolume openVolume(const ImageVolume& volume, const std::string& password,
                                        std::string& problem);

private:
    void look(std::uint32_t partition, std::uint64_t start);
    void lookIntoPool(std::uint32_t partition, std::uint64_t start, const TSK_POOL_INFO& pool);

    Image m_image;
    Pool m_pool; ///< of the volume that is open
    std::vector<ImagePartition> m_partitions;
    std::vector<ImageVolume> m_volumes;
};

} // namespace pryvane
