#pragma once

#include "platform/FileSystem.h"
#include "platform/FolderAccess.h"

#include <memory>
#include <string>

namespace pryvane {

/// Grants as security-scoped bookmarks, which a sandboxed program needs after its next start, and
/// which another one may use as well.
class BookmarkGrants final : public GrantTokens {
public:
    /// `volumeFolder` is the volume's host folder. The file system must outlive this.
    BookmarkGrants(FileSystem& disk, std::string volumeFolder);
    ~BookmarkGrants() override;

    [[nodiscard]] Result<Bytes> make(const FileURL& folder) override;
    [[nodiscard]] bool reopen(const Bytes& token) override;
    [[nodiscard]] bool writable(const FileURL& folder) override;

private:
    struct Granted;
    FileSystem& m_disk;
    std::string m_volumeFolder; ///< empty for "/"
    std::unique_ptr<Granted> m_granted;
};

} // namespace pryvane
