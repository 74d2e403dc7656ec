#pragma once

#include "core/Files.h"
#include "platform/FileSystem.h"
#include "platform/FolderAccess.h"

#include <vector>

namespace pryvane {

/// Grants for folders of one volume. A token names the folder's path and what stood there when it
/// was picked: the file system, the inode and when that was made. The folder of a grant is held
/// open until the end.
class FolderGrants final : public GrantTokens {
public:
    explicit FolderGrants(FileSystem& disk) : m_disk(disk) {}

    [[nodiscard]] Result<Bytes> make(const FileURL& folder) override;
    [[nodiscard]] bool reopen(const Bytes& token) override;
    [[nodiscard]] bool writable(const FileURL& folder) override;

private:
    FileSystem& m_disk;
    std::vector<UniqueFd> m_granted;
};

} // namespace pryvane
