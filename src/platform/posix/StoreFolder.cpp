#include "platform/posix/StoreFolder.h"

#include "core/Escape.h"
#include "core/Texts.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <vector>

namespace pryvane {

namespace {

constexpr std::string_view kFileName = "Pryvane.sqlite";

/// What SQLite may keep beside a file, and the file itself last.
constexpr std::array<std::string_view, 4> kSideFiles = {"-journal", "-wal", "-shm", ""};

/// Drops all but the newest files that were set aside, with what belongs to them.
void forgetOldAsides(const std::string& folder)
{
    const std::string prefix = std::string(kFileName) + std::string(kAsideMark);
    std::vector<std::string> asides;
    DIR* entries = opendir(folder.c_str());
    if (!entries)
        return;
    while (const dirent* entry = readdir(entries)) {
        const std::string_view name = entry->d_name;
        const bool sideFile = std::any_of(kSideFiles.begin(), kSideFiles.end() - 1,
                                          [&](auto suffix) { return name.ends_with(suffix); });
        if (name.starts_with(prefix) && !sideFile)
            asides.emplace_back(name);
    }
    closedir(entries);
    std::sort(asides.rbegin(), asides.rend());
    for (std::size_t i = kKeptAside; i < asides.size(); ++i) {
        for (const auto suffix : kSideFiles)
            ::unlink((folder + "/" + asides[i] + std::string(suffix)).c_str());
    }
}

} // namespace

Error folderError(std::string_view folder, std::string_view what)
{
    return Error{"Cannot keep the preferences in " + forScreen(folder) + ": " + std::string(what) +
                 "; repair that, " + std::string(kElsewhere) + "."};
}

std::string reasonOf(int error)
{
    return std::generic_category().message(error);
}

std::string storePath(const std::string& folder)
{
    return folder + "/" + std::string(kFileName);
}

Result<Done> makeFolders(const std::string& folder)
{
    std::size_t end = 0;
    while (end != std::string::npos) {
        end = folder.find('/', end + 1);
        const std::string part = folder.substr(0, end);
        struct stat data {};
        if (stat(part.c_str(), &data) == 0) {
            if (!S_ISDIR(data.st_mode))
                return folderError(folder, forScreen(part) + " is not a folder");
        } else if (mkdir(part.c_str(), 0700) != 0 && errno != EEXIST) {
            return folderError(folder, reasonOf(errno));
        }
    }
    return Done{};
}

Result<std::string> resolvedFolder(const std::string& folder)
{
    char* resolved = realpath(folder.c_str(), nullptr);
    if (!resolved)
        return folderError(folder, reasonOf(errno));
    std::string path = resolved;
    std::free(resolved);
    return path;
}

Result<InPlace> inPlace(const std::string& path)
{
    struct stat data {};
    if (lstat(path.c_str(), &data) != 0) {
        if (errno == ENOENT)
            return InPlace::Nothing;
        return folderError(path, reasonOf(errno));
    }
    if (!S_ISREG(data.st_mode))
        return Error{"Cannot keep the preferences in " + forScreen(path) + ": " +
                     (S_ISLNK(data.st_mode)   ? "a link"
                      : S_ISDIR(data.st_mode) ? "a folder"
                                              : "something that is no file") +
                     " stands in its place; remove that, " + std::string(kElsewhere) + "."};
    return data.st_size == 0 ? InPlace::EmptyFile : InPlace::File;
}

Result<Done> mayWrite(const std::string& folder, const std::string& path, InPlace found)
{
    if (faccessat(AT_FDCWD, folder.c_str(), R_OK | W_OK | X_OK, AT_EACCESS) != 0)
        return folderError(folder, "the folder is not yours to write: " + reasonOf(errno));
    if (found != InPlace::Nothing &&
        faccessat(AT_FDCWD, path.c_str(), R_OK | W_OK, AT_EACCESS) != 0)
        return folderError(folder,
                           forScreen(kFileName) + " is not yours to write: " + reasonOf(errno));
    return Done{};
}

Result<std::string> moveFileAside(const std::string& folder, const std::string& path)
{
    const std::string base = path + std::string(kAsideMark) + asideStamp();
    std::string aside = base;
    struct stat data {};
    for (int i = 2; lstat(aside.c_str(), &data) == 0; ++i)
        aside = base + "-" + std::to_string(i);
    for (const auto suffix : kSideFiles) {
        const std::string from = path + std::string(suffix), to = aside + std::string(suffix);
        if (rename(from.c_str(), to.c_str()) != 0 && (errno != ENOENT || suffix.empty()))
            return Error{"The preferences in " + forScreen(path) +
                         " are damaged and cannot be moved aside: " + reasonOf(errno) +
                         "; move that file away, " + std::string(kElsewhere) + "."};
    }
    forgetOldAsides(folder);
    return aside;
}

FolderLock::FolderLock(const std::string& folder)
    : m_folder(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    constexpr std::chrono::milliseconds kStep{10};
    auto left = kStorePatience / kStep;
    while (flock(m_folder, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK)
            return;
        if (left-- == 0) {
            m_timedOut = true;
            return;
        }
        std::this_thread::sleep_for(kStep);
    }
}

FolderLock::~FolderLock()
{
    if (m_folder >= 0)
        ::close(m_folder);
}

std::string asideStamp()
{
    const auto now = std::chrono::time_point_cast<Date::duration>(std::chrono::system_clock::now());
    std::string stamp = iso8601(now);
    std::erase_if(stamp, [](char c) { return c == '-' || c == ':'; });
    return stamp;
}

} // namespace pryvane
