#pragma once

#include "platform/FileSystem.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <sys/stat.h>

namespace pryvane::test {

/// A temporary folder as a volume, with none of a real volume's care.
class PlainDisk final : public FileSystem {
public:
    explicit PlainDisk(const TemporaryFolder& root) : m_root(root) {}
    Presence presence(const FileURL& url) override
    {
        struct stat data {};
        return stat(m_root.hostPath(url.relativePath()).c_str(), &data) == 0 ? Presence::Present
                                                                             : Presence::Absent;
    }
    FileKind kind(const FileURL&) override { return FileKind::Unknown; }
    FolderListing list(const FileURL& folder) override
    {
        FolderListing listing;
        std::error_code failed;
        for (const auto& e :
             std::filesystem::directory_iterator(m_root.hostPath(folder.relativePath()), failed))
            listing.entries.push_back({e.path().filename().string(), FileKind::Unknown});
        listing.status = failed ? ListStatus::Missing : ListStatus::Listed;
        return listing;
    }
    std::int64_t allocatedSize(const FileURL& url) override
    {
        struct stat data {};
        return lstat(m_root.hostPath(url.relativePath()).c_str(), &data) == 0 &&
                       !S_ISDIR(data.st_mode)
                   ? data.st_blocks * 512
                   : 0;
    }
    bool writable(const FileURL&) override { return false; }
    Result<std::string> readSmallFile(const FileURL&, std::size_t) override { return Error{"no"}; }
    std::string identity() const override { return {}; }
    void forgetListings() override {}

private:
    const TemporaryFolder& m_root;
};

} // namespace pryvane::test
