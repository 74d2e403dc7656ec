#pragma once

#include "core/NotificationCenter.h"
#include "findings/ScanState.h"
#include "platform/PlatformServices.h"
#include "scan/DiskAccess.h"
#include "signatures/MakersApplications.h"
#include "store/MemoryUserDefaults.h"
#include "support/Fakes.h"
#include "support/TemporaryFolder.h"
#include "volume/VolumeFileSystem.h"

#include <gtest/gtest.h>

#include <memory>

namespace pryvane::test {

/// Answers as the test set it up, and counts what was asked.
class FakeDiskAccess final : public DiskAccess {
public:
    bool wholeDisk = true;
    bool writable = true;
    bool reopens = true; ///< an earlier grant
    std::optional<Bytes> bookmark = Bytes{"token"};
    int confirmations = 0;
    int userQuestions = 0;

    bool isHDAccessible() override { return wholeDisk; }
    bool isUserAccessible() override
    {
        ++userQuestions;
        return reopens;
    }
    bool isWritable(const FileURL&) override { return writable; }
    void confirmAccessAction() override { ++confirmations; }
    Result<Bytes> makeBookmark(const FileURL&) override
    {
        if (bookmark)
            return *bookmark;
        return Error{"no such folder"};
    }
};

/// A volume of real files with the services of one process round it; what the user would answer is
/// scripted.
class EngineFixture : public testing::Test {
protected:
    EngineFixture()
    {
        volume.folder("/Users/alice/Library");
        auto opened = VolumeFileSystem::open(volume.path(), {});
        if (!opened)
            throw std::runtime_error(opened.error().message);
        disk = std::move(opened).value();
        state.arrDefaultTorvellApp = makersApplicationKeys();
    }

    PlatformServices services() { return servicesOn(*disk); }
    /// With another disk in place of the volume.
    PlatformServices servicesOn(FileSystem& other)
    {
        return {other,  defaults,     notifications, mainQueue,    clock,
                alerts, folderPicker, workspace,     userNotifier, log};
    }

    TemporaryFolder volume;
    std::unique_ptr<VolumeFileSystem> disk;
    MemoryUserDefaults defaults;
    NotificationCenter notifications;
    ManualMainQueue mainQueue;
    FakeClock clock;
    ScriptedAlerts alerts;
    ScriptedFolderPicker folderPicker;
    FakeWorkspace workspace;
    RecordingUserNotifier userNotifier;
    RecordingLog log;
    ScanState state;
    FakeDiskAccess access;
};

} // namespace pryvane::test
