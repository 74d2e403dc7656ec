#pragma once

#include "privacy/PrivacyCleaning.h"
#include "privacy/PrivacyScan.h"
#include "support/StubbornRemover.h"
#include "support/Volumes.h"
#include "volume/VolumeFileSystem.h"

#include <gtest/gtest.h>

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace pryvane::test {

inline const std::string kHome = "/Users/alice";
inline const std::string kChromeFolder = kHome + "/Library/Application Support/Google/Chrome";
inline const std::string kFirefoxFolder = kHome + "/Library/Application Support/Firefox/Profiles";

/// A volume with alice's home, and what looks at it.
class CleanerFixture : public testing::Test {
protected:
    CleanerFixture() { volume.folder(kHome + "/Library"); }

    VolumeFileSystem& disk()
    {
        if (!m_disk) {
            m_disk = volumeAt(volume, NameMatching::AsOnMac);
            m_sizes = std::make_unique<VolumeSizeMeter>(*m_disk);
        }
        return *m_disk;
    }
    CleanerServices services()
    {
        VolumeFileSystem& opened = disk();
        return {opened, *m_sizes};
    }
    StubbornRemover& remover()
    {
        VolumeFileSystem& opened = disk();
        if (!m_remover)
            m_remover = std::make_unique<StubbornRemover>(opened);
        return *m_remover;
    }
    AdwareScan inventory() { return {services(), "alice", stop}; }

    std::vector<ToolGroup> privacyGroups()
    {
        std::vector<ToolGroup> groups;
        PrivacyProgress progress;
        scanPrivacy(services(), "alice", stop, progress,
                    [&](ToolGroup group) { groups.push_back(std::move(group)); });
        EXPECT_EQ(progress.measured, progress.locations);
        return groups;
    }

    /// Profiles as Chrome lists them, each "folder":{"name":"shown"}.
    void chromeProfiles(const std::string& profiles,
                        const std::string& folder = kChromeFolder) const
    {
        volume.file(folder + "/Local State", R"({"profile":{"info_cache":{)" + profiles + "}}}");
    }

    /// What would be cleared of the items that are ticked.
    CleaningPreview previewOf(std::span<const ToolGroup> groups,
                              const std::vector<std::string>& running = {})
    {
        return previewCleaning(selectedRows(groups), running, disk(), remover(), stop);
    }

    /// The absolute paths, in order.
    static std::vector<std::string> paths(const std::vector<FileURL>& urls)
    {
        std::vector<std::string> list;
        for (const FileURL& url : urls)
            list.push_back(url.absolutePath());
        return list;
    }

    TemporaryFolder volume;
    StopFlag stop;

private:
    std::unique_ptr<VolumeFileSystem> m_disk;
    std::unique_ptr<VolumeSizeMeter> m_sizes;
    std::unique_ptr<StubbornRemover> m_remover;
};

} // namespace pryvane::test
