#include "volume/image/reader/ImageVolumes.h"

#include <array>

namespace pryvane {

namespace {

constexpr std::size_t kMostVolumes = 500;

std::string lastProblem(const char* otherwise)
{
    const char* text = tsk_error_get();
    std::string problem = text != nullptr ? text : otherwise;
    tsk_error_reset();
    return problem;
}

bool isApple(TSK_FS_TYPE_ENUM type)
{
    return type == TSK_FS_TYPE_HFS || type == TSK_FS_TYPE_APFS;
}

std::uint16_t roleOf(TSK_IMG_INFO& image, std::uint64_t start, std::uint32_t blockSize,
                     std::uint64_t block)
{
    constexpr std::uint64_t kRoleAt = 0x3c4; // in the volume's superblock
    unsigned char bytes[2] = {};
    const std::uint64_t at = start + block * blockSize + kRoleAt;
    if (tsk_img_read(&image, static_cast<TSK_OFF_T>(at), reinterpret_cast<char*>(bytes), 2) != 2)
        return 0;
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}

} // namespace

std::string ImageVolumes::open(const std::string& path)
{
    const char* paths[] = {path.c_str()};
    m_image.reset(tsk_img_open_utf8(1, paths, TSK_IMG_TYPE_DETECT, 0));
    if (!m_image)
        return lastProblem("it is no image that can be read");
    // The library opens a file only when it first reads from it.
    std::array<char, 512> first{};
    static_cast<void>(tsk_img_read(m_image.get(), 0, first.data(), first.size()));
    tsk_error_reset();
    return {};
}

void ImageVolumes::look()
{
    Partitions table(tsk_vs_open(m_image.get(), 0, TSK_VS_TYPE_DETECT));
    tsk_error_reset();
    if (!table) {
        look(0, 0);
        return;
    }
    for (TSK_PNUM_T i = 0; i < table->part_count && m_volumes.size() < kMostVolumes; ++i) {
        const TSK_VS_PART_INFO* part = tsk_vs_part_get(table.get(), i);
        if (part == nullptr || (part->flags & TSK_VS_PART_FLAG_ALLOC) == 0)
            continue;
        ImagePartition partition;
        partition.number = static_cast<std::uint32_t>(m_partitions.size()) + 1;
        partition.start = (part->start + table->offset / table->block_size) * table->block_size;
        partition.length = part->len * table->block_size;
        partition.description = part->desc != nullptr ? part->desc : "";
        look(partition.number, partition.start);
        m_partitions.push_back(std::move(partition));
    }
}

void ImageVolumes::look(std::uint32_t partition, std::uint64_t start)
{
    const auto offset = static_cast<TSK_OFF_T>(start);
    const Pool pool(tsk_pool_open_img_sing(m_image.get(), offset, TSK_POOL_TYPE_APFS));
    tsk_error_reset();
    if (pool) {
        lookIntoPool(partition, start, *pool);
        return;
    }
    const OpenVolume volume(tsk_fs_open_img(m_image.get(), offset, TSK_FS_TYPE_HFS_DETECT));
    tsk_error_reset();
    if (!volume || !isApple(volume->ftype))
        return;
    ImageVolume found;
    found.partition = partition;
    found.start = start;
    found.fileSystem = "HFS+";
    m_volumes.push_back(std::move(found));
}

void ImageVolumes::lookIntoPool(std::uint32_t partition, std::uint64_t start,
                                const TSK_POOL_INFO& pool)
{
    std::uint32_t number = 0;
    for (const TSK_POOL_VOLUME_INFO* info = pool.vol_list;
         info != nullptr && m_volumes.size() < kMostVolumes; info = info->next) {
        ImageVolume found;
        found.partition = partition;
        found.number = ++number;
        found.start = start;
        found.block = info->block;
        found.role = roleOf(*m_image, start, pool.block_size, info->block);
        found.encrypted = (info->flags & TSK_POOL_VOLUME_FLAG_ENCRYPTED) != 0;
        found.caseSensitive = (info->flags & TSK_POOL_VOLUME_FLAG_CASE_SENSITIVE) != 0;
        found.fileSystem = "APFS";
        found.name = info->desc != nullptr ? info->desc : "";
        m_volumes.push_back(std::move(found));
    }
}

OpenVolume ImageVolumes::openVolume(const ImageVolume& volume, const std::string& password,
                                    std::string& problem)
{
    const auto offset = static_cast<TSK_OFF_T>(volume.start);
    OpenVolume open;
    if (volume.fileSystem == "APFS") {
        m_pool.reset(tsk_pool_open_img_sing(m_image.get(), offset, TSK_POOL_TYPE_APFS));
        TSK_IMG_INFO* const inPool =
            m_pool ? m_pool->get_img_info(m_pool.get(), volume.block) : nullptr;
        if (inPool != nullptr)
            open.reset(tsk_fs_open_img_decrypt(inPool, offset, TSK_FS_TYPE_APFS, password.c_str()));
    } else {
        open.reset(tsk_fs_open_img(m_image.get(), offset, TSK_FS_TYPE_HFS_DETECT));
    }
    if (!open)
        problem = lastProblem("the volume cannot be opened");
    return open;
}

} // namespace pryvane
