#include "removal/disk/EntryCount.h"

#include "removal/disk/HostRemoval.h"
#include "volume/folders/FolderHandle.h"

#include <string>
#include <vector>

namespace pryvane {

namespace {

constexpr std::uint64_t kMostEntries = 10'000;
constexpr int kMostLevels = 24; // each holds a folder open

void countBelow(FolderHandle& folder, int level, FolderBatch& batch, EntryCount& count)
{
    std::vector<std::string> subfolders;
    FolderBatch::Entry entry;
    do {
        if (!batch.fill(folder)) {
            count.whole = false;
            break;
        }
        while (batch.next(entry) && count.entries < kMostEntries) {
            ++count.entries;
            const bool isFolder =
                (entry.kind == FileKind::Unknown ? kindAt(folder.fd(), entry.name.data())
                                                 : entry.kind) == FileKind::Folder;
            if (isFolder)
                subfolders.emplace_back(entry.name);
        }
    } while (!batch.atEnd() && count.entries < kMostEntries);
    if (count.entries >= kMostEntries)
        count.whole = false;
    for (const std::string& name : subfolders) {
        FolderHandle child;
        if (level < kMostLevels && count.entries < kMostEntries)
            child = openBelow(folder.fd(), name);
        if (child)
            countBelow(child, level + 1, batch, count);
        else
            count.whole = false;
    }
}

} // namespace

EntryCount countEntries(FileSystem& disk, const FileURL& url, RemovalScope scope)
{
    EntryCount count;
    const FileKind kind = disk.kind(url);
    if (kind == FileKind::Missing)
        count.state = EntryCount::State::Missing;
    if (kind == FileKind::Missing || kind == FileKind::Unknown)
        return count;
    count.state = EntryCount::State::There;
    if (scope == RemovalScope::Item)
        count.entries = 1;
    if (kind != FileKind::Folder)
        return count;
    FolderHandle folder(disk.openFolder(url));
    FolderBatch batch;
    if (folder)
        countBelow(folder, 0, batch, count);
    else
        count.whole = false;
    // What a removal leaves of a folder whose content was to go is the folder itself.
    if (scope == RemovalScope::ContentsOf && count.whole && count.entries == 0)
        count.state = EntryCount::State::Missing;
    return count;
}

} // namespace pryvane
