#pragma once

#include "app/program/Arguments.h"
#include "core/Result.h"
#include "core/StopFlag.h"
#include "core/tasks/BoundQueue.h"
#include "core/tasks/Worker.h"
#include "volume/VolumeFileSystem.h"
#include "volume/image/ImageDisk.h"
#include "volume/index/IndexFileSystem.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace pryvane {

/// A disk as the window looks at it: mounted folders, or the names that a file holds.
class OpenedDisk {
public:
    explicit OpenedDisk(std::unique_ptr<VolumeFileSystem> folders) : m_folders(std::move(folders))
    {
    }
    explicit OpenedDisk(std::unique_ptr<IndexFileSystem> names) : m_names(std::move(names)) {}

    [[nodiscard]] FileSystem& files() const
    {
        return m_folders ? static_cast<FileSystem&>(*m_folders) : *m_names;
    }
    /// Null where only names were read: nothing can be changed or shown in a file viewer then.
    [[nodiscard]] VolumeFileSystem* folders() const { return m_folders.get(); }
    /// Whether it is this computer's own.
    [[nodiscard]] bool isHostRoot() const { return m_folders && m_folders->isHostRoot(); }
    [[nodiscard]] std::unique_ptr<SizeMeter> sizeMeter() const;

private:
    std::unique_ptr<VolumeFileSystem> m_folders;
    std::unique_ptr<IndexFileSystem> m_names;
};

/// What others may see of an opening that is under way, and of how it failed.
struct OpeningProgress {
    ImageProgress image;
    std::atomic<std::uint64_t> bytesOfList{0};
};

/// Opens what is there: a folder, an image, or a list; an error in words where it holds no Mac. A
/// file takes a while, as all its names are read. Any thread.
[[nodiscard]] Result<std::shared_ptr<OpenedDisk>>
openDisk(const VolumeChoice& choice, const StopFlag& stop, OpeningProgress& progress);

/// Whether something other than a folder stands there.
[[nodiscard]] bool isFileOfHost(const std::string& path);

/// Opens one file at a time on a thread of its own. Main thread only.
class DiskOpening {
public:
    using Ended = std::function<void(Result<std::shared_ptr<OpenedDisk>> disk, bool isLocked)>;

    explicit DiskOpening(MainQueue& queue) : m_queue(queue) {}
    ~DiskOpening() { stop(); }
    DiskOpening(const DiskOpening&) = delete;
    DiskOpening& operator=(const DiskOpening&) = delete;

    /// Ends what it opens now, and calls `ended` once this is open or cannot be.
    void begin(const VolumeChoice& choice, Ended ended);
    /// Nothing is told of what was being opened.
    void stop();

    [[nodiscard]] bool isRunning() const { return m_isRunning; }
    /// How far it is, in words.
    [[nodiscard]] std::string progressText() const;

private:
    BoundQueue m_queue;
    bool m_isRunning = false;
    std::uint64_t m_round = 0; ///< tells the news of one opening from those of one before
    std::shared_ptr<OpeningProgress> m_progress = std::make_shared<OpeningProgress>();
    std::shared_ptr<StopFlag> m_stop = std::make_shared<StopFlag>();
    Worker m_thread; // last: it ends before anything it uses
};

} // namespace pryvane
