#include "support/RemovalFixtures.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace pryvane::test {

namespace fs = std::filesystem;

int sizeAsked(const char* variable, int otherwise)
{
    const char* const asked = std::getenv(variable);
    return asked ? std::atoi(asked) : otherwise;
}

InMemory::InMemory()
{
    if (const char* folder = std::getenv("TMPDIR"))
        m_before = folder;
    if (access("/dev/shm", W_OK) == 0)
        setenv("TMPDIR", "/dev/shm", 1);
}

InMemory::~InMemory()
{
    if (m_before)
        setenv("TMPDIR", m_before->c_str(), 1);
    else
        unsetenv("TMPDIR");
}

RemovalResult RemovalDisk::remove(const RemovalItem& item) const
{
    NoRemovalJournal journal;
    RemovalResult last;
    VolumeRemover(*volume, journal, ownFolders)
        .remove({&item, 1}, StopFlag(),
                [&](std::size_t, const RemovalResult& told) { last = told; });
    return last;
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

} // namespace pryvane::test
