#include "app/program/OpenedDisk.h"

#include "core/Escape.h"
#include "core/Files.h"
#include "core/Texts.h"
#include "findings/MacDisk.h"
#include "volume/listing/ListingFormat.h"
#include "volume/listing/ListingReader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace pryvane {

namespace {

using Opened = Result<std::shared_ptr<OpenedDisk>>;

NameMatching matchingOf(const VolumeChoice& choice)
{
    return choice.caseSensitive ? NameMatching::Exact : NameMatching::AsOnMac;
}

template <typename Disk>
Opened opened(Result<std::unique_ptr<Disk>> disk)
{
    if (!disk)
        return disk.error();
    return std::make_shared<OpenedDisk>(std::move(disk).value());
}

bool isList(const std::string& path)
{
    const UniqueFd fd(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    std::string beginning(kLongestLine, '\0');
    const ssize_t got = fd ? read(fd.get(), beginning.data(), beginning.size()) : 0;
    beginning.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    return beginsLikeListing(beginning);
}

Opened openFile(const VolumeChoice& choice, const StopFlag& stop, OpeningProgress& progress)
{
    if (isList(choice.folder)) {
        // Everything is kept: the tools ask for more than a scan does.
        ListingOptions options;
        options.matching = matchingOf(choice);
        return opened(openListing(choice.folder, options, stop, progress.bytesOfList));
    }
    auto options = ImageOptions::withOwnReader();
    if (!options)
        return options.error();
    options->password = choice.password;
    options->caseSensitive = choice.caseSensitive;
    return opened(openImage(choice.folder, *options, stop, progress.image));
}

} // namespace

bool isFileOfHost(const std::string& path)
{
    struct stat data {};
    return stat(path.c_str(), &data) == 0 && !S_ISDIR(data.st_mode);
}

std::unique_ptr<SizeMeter> OpenedDisk::sizeMeter() const
{
    if (m_folders)
        return std::make_unique<VolumeSizeMeter>(*m_folders);
    return std::make_unique<IndexSizeMeter>(*m_names);
}

Opened openDisk(const VolumeChoice& choice, const StopFlag& stop, OpeningProgress& progress)
{
    if (isFileOfHost(choice.folder)) {
        auto disk = openFile(choice, stop, progress);
        if (disk) {
            if (const auto holds = mustHoldMac((*disk)->files()); !holds)
                return holds.error();
        }
        return disk;
    }
    VolumeFileSystem::Options options;
    options.nameMatching = matchingOf(choice);
    auto disk = opened(VolumeFileSystem::open(choice.folder, options));
    // This computer is what the window begins with where nothing else was named.
    if (disk && !(*disk)->folders()->isHostRoot()) {
        if (const auto holds = mustHoldMac((*disk)->files(), choice.folder); !holds)
            return holds.error();
    }
    return disk;
}

void DiskOpening::begin(const VolumeChoice& choice, Ended ended)
{
    stop();
    m_progress = std::make_shared<OpeningProgress>();
    m_stop = std::make_shared<StopFlag>();
    m_isRunning = true;
    const auto finish = [this, round = m_round, ended = std::move(ended),
                         progress = m_progress](Opened disk) {
        m_queue.post([this, round, ended, progress, disk = std::move(disk)]() mutable {
            if (round != m_round)
                return;
            m_isRunning = false;
            ended(std::move(disk), progress->image.isLocked);
        });
    };
    m_thread.start([choice, finish, progress = m_progress,
                    stop = m_stop] { finish(openDisk(choice, *stop, *progress)); },
                   [finish](const char* why) { finish(Error{why}); });
}

void DiskOpening::stop()
{
    ++m_round;
    m_isRunning = false;
    m_stop->request();
    m_thread.join();
}

std::string DiskOpening::progressText() const
{
    const std::uint64_t bytes = m_progress->bytesOfList;
    if (bytes > 0)
        return "Reading names: " + sizeText(static_cast<std::int64_t>(bytes));
    return "Reading names: " + countedText(m_progress->image.entries, "entry", "entries");
}

} // namespace pryvane
