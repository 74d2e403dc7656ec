#include "hosts/posix/FolderGrants.h"

#include "core/ErrorText.h"
#include "core/Escape.h"
#include "volume/HostVolume.h"

#include <cerrno>
#include <cstdio>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace pryvane {

namespace {

constexpr std::string_view kHead = "pryvane-grant-1 ";

/// What stands behind the handle. The file system's own number rather than the device's: that
/// changes when a disk is mounted again. An inode is used again soon after its folder has gone, so
/// the time at which it was made is part of it.
std::optional<std::string> identityOf(int folder)
{
    struct statvfs fileSystem {};
    struct stat data {};
    if (fstatvfs(folder, &fileSystem) != 0 || fstat(folder, &data) != 0)
        return std::nullopt;
    const BirthTime birth = birthTime(folder).value_or(BirthTime());
    char text[96];
    const int length = std::snprintf(text, sizeof text, "%llx-%llx-%llx.%llx",
                                     static_cast<unsigned long long>(fileSystem.f_fsid),
                                     static_cast<unsigned long long>(data.st_ino),
                                     static_cast<unsigned long long>(birth.seconds),
                                     static_cast<unsigned long long>(birth.nanoseconds));
    return std::string(text, static_cast<std::size_t>(length));
}

} // namespace

Result<Bytes> FolderGrants::make(const FileURL& folder)
{
    UniqueFd handle(m_disk.openFolder(folder));
    const auto identity = handle ? identityOf(handle.get()) : std::nullopt;
    if (!identity)
        return Error{"\"" + forScreen(folder.absolutePath()) +
                     "\" cannot be opened: " + errorText(errno) + "; choose another folder"};
    m_granted.push_back(std::move(handle));
    return Bytes{std::string(kHead) + *identity + " " + folder.absolutePath()};
}

bool FolderGrants::reopen(const Bytes& token)
{
    const std::string_view text = token.data;
    const auto end = text.find(' ', kHead.size());
    if (!text.starts_with(kHead) || end == std::string_view::npos)
        return false;
    const std::string_view path = text.substr(end + 1);
    if (!path.starts_with('/') || path.find('\0') != std::string_view::npos)
        return false;
    UniqueFd handle(m_disk.openFolder(FileURL::fileURLWithPath(path)));
    if (!handle || identityOf(handle.get()) != text.substr(kHead.size(), end - kHead.size()))
        return false;
    m_granted.push_back(std::move(handle));
    return true;
}

bool FolderGrants::writable(const FileURL& folder)
{
    return !m_granted.empty() && m_disk.writable(folder);
}

} // namespace pryvane
