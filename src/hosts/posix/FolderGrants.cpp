#include "hosts/posix/FolderGrants.h"

#include "core/Escape.h"
#include "core/Result.h"
#include "volume/VolumeIdentity.h"

#include <cerrno>
#include <optional>
#include <string_view>

namespace pryvane {

namespace {

constexpr std::string_view kHead = "pryvane-grant-1 ";

} // namespace

Result<Bytes> FolderGrants::make(const FileURL& folder)
{
    UniqueFd handle(m_disk.openFolder(folder));
    const auto identity = handle ? folderIdentity(handle.get()) : std::nullopt;
    if (!identity)
        return Error{"\"" + forScreen(folder.absolutePath()) +
                     "\" cannot be opened: " + errorText(errno) + "; choose another folder"};
    m_granted.push_back(std::move(handle));
    return Bytes{std::string(kHead) + identity->text + " " + folder.absolutePath()};
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
    const auto identity = handle ? folderIdentity(handle.get()) : std::nullopt;
    if (!identity || identity->text != text.substr(kHead.size(), end - kHead.size()))
        return false;
    m_granted.push_back(std::move(handle));
    return true;
}

bool FolderGrants::writable(const FileURL& folder)
{
    return !m_granted.empty() && m_disk.writable(folder);
}

} // namespace pryvane
