#pragma once

#include "platform/FileSystem.h"
#include "scan/DiskAccess.h"

namespace pryvane::cli {

/// An explicit command-line call is a grant of its own: what the operating system allows is
/// accessible, and nothing is kept.
class GrantedAccess final : public DiskAccess {
public:
    explicit GrantedAccess(FileSystem& disk) : m_disk(disk) {}

    [[nodiscard]] bool isHDAccessible() override { return true; }
    bool isUserAccessible() override { return true; }
    [[nodiscard]] bool isWritable(const FileURL& folder) override
    {
        return m_disk.writable(folder);
    }
    void confirmAccessAction() override {}
    [[nodiscard]] Result<Bytes> makeBookmark(const FileURL&) override
    {
        return Error{"the command line keeps no grants; open the window to make one"};
    }

private:
    FileSystem& m_disk;
};

} // namespace pryvane::cli
