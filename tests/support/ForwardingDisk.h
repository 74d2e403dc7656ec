#pragma once

#include "platform/FileSystem.h"

namespace pryvane::test {

/// Hands every question on to a disk; a fake overrides those that it answers itself.
class ForwardingDisk : public FileSystem {
public:
    explicit ForwardingDisk(FileSystem& disk) : m_disk(disk) {}

    Presence presence(const FileURL& url) override { return m_disk.presence(url); }
    FileKind kind(const FileURL& url) override { return m_disk.kind(url); }
    std::optional<Sighting> sighting(const FileURL& url) override { return m_disk.sighting(url); }
    std::optional<FileIdentity> fileIdentity(const FileURL& url) override
    {
        return m_disk.fileIdentity(url);
    }
    FileTimes times(const FileURL& url) override { return m_disk.times(url); }
    Result<std::string> contentHash(const FileURL& url, const StopFlag& stop) override
    {
        return m_disk.contentHash(url, stop);
    }
    std::optional<std::string> spelledPath(const FileURL& url) override
    {
        return m_disk.spelledPath(url);
    }
    FolderListing list(const FileURL& folder) override { return m_disk.list(folder); }
    std::int64_t allocatedSize(const FileURL& url) override { return m_disk.allocatedSize(url); }
    int openFolder(const FileURL& url) override { return m_disk.openFolder(url); }
    bool writable(const FileURL& url) override { return m_disk.writable(url); }
    Result<std::string> readSmallFile(const FileURL& url, std::size_t limit) override
    {
        return m_disk.readSmallFile(url, limit);
    }
    std::string identity() const override { return m_disk.identity(); }
    DiskSource source() const override { return m_disk.source(); }
    std::string placeBehindLinks(const FileURL& url) const override
    {
        return m_disk.placeBehindLinks(url);
    }
    bool lacksSystemVolume() const override { return m_disk.lacksSystemVolume(); }
    void forgetListings() override { m_disk.forgetListings(); }

protected:
    FileSystem& m_disk;
};

} // namespace pryvane::test
