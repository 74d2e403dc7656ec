#include "support/RemovalFixtures.h"

#include <algorithm>
#include <filesystem>

namespace pryvane::test {

namespace fs = std::filesystem;

std::vector<RemovalResult> RemovalDisk::remove(std::span<const RemovalItem> items) const
{
    NoRemovalJournal journal;
    VolumeRemover remover(*volume, journal, ownFolders);
    return removed(remover, items);
}

RemovalForecast RemovalDisk::plan(const RemovalItem& item) const
{
    NoRemovalJournal journal;
    RemovalForecast last;
    VolumeRemover(*volume, journal, ownFolders)
        .plan({&item, 1}, StopFlag(),
              [&](std::size_t, const RemovalForecast& told) { last = told; });
    return last;
}

std::vector<RemovalResult> removed(VolumeRemover& remover, std::span<const RemovalItem> items,
                                   const StopFlag& stop)
{
    std::vector<RemovalResult> told;
    remover.remove(items, stop, [&](std::size_t item, const RemovalResult& result) {
        EXPECT_EQ(item, told.size());
        told.push_back(result);
    });
    return told;
}

std::string treeBelow(const std::string& hostFolder)
{
    std::vector<std::string> lines;
    std::error_code missing;
    for (const auto& entry : fs::recursive_directory_iterator(hostFolder, missing)) {
        const auto status = entry.symlink_status();
        std::string line = entry.path().string().substr(hostFolder.size());
        if (fs::is_symlink(status))
            line += " -> " + fs::read_symlink(entry.path()).string();
        else if (fs::is_regular_file(status))
            line += " " + std::to_string(entry.file_size());
        lines.push_back(line + "\n");
    }
    std::sort(lines.begin(), lines.end());
    std::string text;
    for (const std::string& line : lines)
        text += line;
    return text;
}

std::string inWords(const RemovalResult& result)
{
    const std::string count = std::to_string(result.entriesRemoved);
    switch (result.outcome) {
    case RemovalOutcome::Removed:
        return "removed " + count + (result.remark.empty() ? "" : "; ") + result.note();
    case RemovalOutcome::AlreadyGone:
        return "gone" + result.reason();
    case RemovalOutcome::Failed:
        return "failed after " + count + ": " + result.reason();
    }
    return "?";
}

std::vector<std::string> inWords(const std::vector<RemovalResult>& results)
{
    std::vector<std::string> words;
    for (const RemovalResult& result : results)
        words.push_back(inWords(result));
    return words;
}

} // namespace pryvane::test
