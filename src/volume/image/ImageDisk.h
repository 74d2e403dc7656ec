#pragma once

#include "core/Result.h"
#include "core/StopFlag.h"
#include "volume/index/IndexFileSystem.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pryvane {

struct ImageOptions {
    std::string program;         ///< the reader, an absolute path
    std::uint32_t partition = 0; ///< 0: any
    std::string volume;          ///< name or number of an APFS volume; empty: any
    std::string password;        ///< of an encrypted volume
    std::string sha256;          ///< of the image where it was asked for, for its facts
    bool caseSensitive = false;  ///< whatever the volume itself says
    std::chrono::milliseconds patience{30'000}; ///< with a reader that says nothing
    std::chrono::seconds longest{7200};         ///< for all of it, however much it says
    std::size_t mostEntries = 100'000'000;
    std::size_t mostNameBytes = std::size_t{2} << 30; ///< of all names

    /// With the reader that lies beside this program. The error says where it is missing.
    [[nodiscard]] static Result<ImageOptions> withOwnReader();
};

/// What others may see of a reading that is under way, and of how it failed.
struct ImageProgress {
    std::atomic<std::uint64_t> entries{0}; ///< names read so far
    std::atomic<bool> isLocked{false};     ///< it failed for want of the right password
};

/// What an image consists of.
struct ImageLayout {
    struct Partition {
        std::uint32_t number = 0;
        std::uint64_t start = 0;  ///< bytes
        std::uint64_t length = 0; ///< bytes
        std::string description;
    };
    struct Volume {
        std::uint32_t partition = 0; ///< 0: the image has no partitions
        std::uint32_t number = 0;    ///< in its container, from 1; 0 without one
        std::uint16_t role = 0;
        bool encrypted = false;
        bool caseSensitive = false;
        std::string fileSystem;
        std::string name;
    };
    std::vector<Partition> partitions;
    std::vector<Volume> volumes;
};

/// What APFS says a volume is for: "Data"; empty where it says nothing.
[[nodiscard]] std::string imageRoleText(std::uint16_t role);

/// The partitions and volumes of an image. Its bytes are read by a process of its own, which can do
/// nothing else. The error says what is wrong, and so in what follows.
[[nodiscard]] Result<ImageLayout> imageLayout(const std::string& path, const ImageOptions& options,
                                              const StopFlag& stop);

/// Reads all names of one volume of the image and makes a disk of them. The process stays to read
/// contents.
[[nodiscard]] Result<std::unique_ptr<IndexFileSystem>> openImage(const std::string& path,
                                                                 const ImageOptions& options,
                                                                 const StopFlag& stop,
                                                                 ImageProgress& progress);

} // namespace pryvane
