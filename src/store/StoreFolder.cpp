#include "store/StoreFolder.h"

#include "core/Escape.h"
#include "core/Result.h"
#include "core/Texts.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace pryvane {

namespace {

constexpr std::string_view kFileName = "Pryvane.sqlite";

/// What SQLite may keep beside a file, and the file itself last.
constexpr std::array<std::string_view, 4> kSideFiles = {"-journal", "-wal", "-shm", ""};

/// Renames the file with all that belongs to it. On a failure what was renamed goes back; gives 0
/// or the reason.
int renameWhole(const std::string& from, const std::string& to)
{
    for (std::size_t i = 0; i < kSideFiles.size(); ++i) {
        const std::string suffix(kSideFiles[i]);
        if (::rename((from + suffix).c_str(), (to + suffix).c_str()) == 0)
            continue;
        const int error = errno;
        if (error == ENOENT && !suffix.empty())
            continue;
        while (i-- > 0) {
            const std::string undone(kSideFiles[i]);
            static_cast<void>(::rename((to + undone).c_str(), (from + undone).c_str()));
        }
        return error;
    }
    return 0;
}

/// 0 once the whole file was read; a missing one holds nothing to read.
int readThrough(const std::string& path, int access)
{
    const int file = ::open(path.c_str(), access | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return errno == ENOENT ? 0 : errno;
    std::string buffer(1 << 20, '\0');
    ssize_t got = 0;
    do
        got = ::read(file, buffer.data(), buffer.size());
    while (got > 0 || (got < 0 && errno == EINTR));
    const int error = got < 0 ? errno : 0;
    ::close(file);
    return error;
}

const char* kindInWords(mode_t mode)
{
    return S_ISLNK(mode) ? "a link" : S_ISDIR(mode) ? "a folder" : "something that is no file";
}

} // namespace

Error folderError(std::string_view folder, std::string_view what)
{
    return Error{"Cannot keep the preferences in " + forScreen(folder) + ": " + std::string(what) +
                 "; repair that, " + std::string(kElsewhere) + "."};
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
            return folderError(folder, errorText(errno));
        }
    }
    return Done{};
}

Result<std::string> resolvedFolder(const std::string& folder)
{
    char* resolved = realpath(folder.c_str(), nullptr);
    if (!resolved)
        return folderError(folder, errorText(errno));
    std::string path = resolved;
    std::free(resolved);
    return path;
}

Result<InPlace> inPlace(const std::string& path)
{
    auto found = InPlace::Nothing;
    for (const auto suffix : kSideFiles) {
        const std::string name = path + std::string(suffix);
        struct stat data {};
        if (lstat(name.c_str(), &data) != 0) {
            if (errno == ENOENT)
                continue;
            return folderError(name, errorText(errno));
        }
        if (!S_ISREG(data.st_mode))
            return Error{"Cannot keep the preferences in " + forScreen(path) + ": " +
                         kindInWords(data.st_mode) + " stands in the place of " +
                         forScreen(suffix.empty() ? "the file" : name) + "; remove that, " +
                         std::string(kElsewhere) + "."};
        if (suffix.empty())
            found = data.st_size == 0 ? InPlace::EmptyFile : InPlace::File;
    }
    return found;
}

Result<Done> readsThrough(const std::string& path, bool forWriting)
{
    for (const std::string& name : {path, path + "-journal"}) {
        if (const int error = readThrough(name, forWriting ? O_RDWR : O_RDONLY); error != 0)
            return Error{"Cannot read " + forScreen(name) + ": " + errorText(error) +
                         "; nothing was changed. Repair that and try again, " +
                         std::string(kElsewhere) + "."};
    }
    return Done{};
}

Result<Done> mayWrite(const std::string& folder, const std::string& path, InPlace found)
{
    if (faccessat(AT_FDCWD, folder.c_str(), R_OK | W_OK | X_OK, AT_EACCESS) != 0)
        return folderError(folder, "the folder is not yours to write: " + errorText(errno));
    if (found != InPlace::Nothing &&
        faccessat(AT_FDCWD, path.c_str(), R_OK | W_OK, AT_EACCESS) != 0)
        return folderError(folder,
                           forScreen(kFileName) + " is not yours to write: " + errorText(errno));
    return Done{};
}

Result<std::string> moveFileAside(const std::string& path)
{
    const std::string base = path + std::string(kAsideMark) + asideStamp();
    std::string aside = base;
    struct stat data {};
    for (int i = 2; lstat(aside.c_str(), &data) == 0; ++i)
        aside = base + "-" + std::to_string(i);
    if (const int error = renameWhole(path, aside); error != 0)
        return Error{"The preferences in " + forScreen(path) +
                     " are damaged and cannot be moved aside: " + errorText(error) +
                     "; move that file away, " + std::string(kElsewhere) + "."};
    return aside;
}

bool moveFileBack(const std::string& aside, const std::string& path)
{
    return renameWhole(aside, path) == 0;
}

void forgetOldAsides(const std::string& folder)
{
    const std::string prefix = std::string(kFileName) + std::string(kAsideMark);
    std::vector<std::pair<std::string, off_t>> asides;
    DIR* entries = opendir(folder.c_str());
    if (!entries)
        return;
    while (const dirent* entry = readdir(entries)) {
        const std::string_view name = entry->d_name;
        const bool sideFile = std::any_of(kSideFiles.begin(), kSideFiles.end() - 1,
                                          [&](auto suffix) { return name.ends_with(suffix); });
        struct stat data {};
        if (name.starts_with(prefix) && !sideFile &&
            fstatat(dirfd(entries), entry->d_name, &data, AT_SYMLINK_NOFOLLOW) == 0)
            asides.emplace_back(name, data.st_size);
    }
    closedir(entries);
    std::sort(asides.rbegin(), asides.rend());
    const auto largest =
        std::max_element(asides.begin(), asides.end(),
                         [](const auto& a, const auto& b) { return a.second < b.second; });
    for (std::size_t i = kKeptAside; i < asides.size(); ++i) {
        if (asides.begin() + static_cast<std::ptrdiff_t>(i) == largest)
            continue;
        for (const auto suffix : kSideFiles)
            ::unlink((folder + "/" + asides[i].first + std::string(suffix)).c_str());
    }
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
