#include "hosts/VolumeWorkspace.h"

#include "support/TemporaryFolder.h"
#include "volume/VolumeFileSystem.h"

#include <gtest/gtest.h>

namespace pryvane {
namespace {

TEST(VolumeWorkspaceTest, FindsApplicationsAndTheirIdentifiers)
{
    const test::TemporaryFolder disk;
    const auto listWith = [](std::string_view before) {
        return "<plist><dict>" + std::string(before) +
               "<key>CFBundleIdentifier</key><string>com.example.app</string></dict></plist>";
    };
    const std::string list = listWith("");
    disk.file("Applications/Both.app/Contents/Info.plist", list);
    disk.file("Users/ann/Applications/Both.app/Contents/Info.plist", "x");
    disk.file("Users/ann/Applications/Own App.app/Contents/Info.plist", list);
    disk.file("Applications/Padded.app/Contents/Info.plist", listWith(std::string(60'000, ' ')));
    disk.file("Applications/Long.app/Contents/Info.plist", listWith(std::string(65'536, ' ')));
    disk.folder("Users/bob/Applications/Other.app");
    disk.file("Applications/File.app");
    disk.folder("Applications/Linked.app/Contents");
    disk.link("Applications/Linked.app/Contents/Info.plist",
              "/Applications/Both.app/Contents/Info.plist");
    const auto volume = std::move(VolumeFileSystem::open(disk.path()).value());
    VolumeWorkspace workspace(*volume, {"ann"}, {});

    const auto path = [&workspace](std::string_view name) {
        const auto url = workspace.fullPathForApplication(name);
        return url ? url->relativePath() : "none";
    };
    EXPECT_EQ(path("Both"), "/Applications/Both.app");
    EXPECT_EQ(path("Own App"), "/Users/ann/Applications/Own App.app");
    for (const char* name : {"Other", "File", "", "../Applications/Both", "Contents"})
        EXPECT_EQ(path(name), "none") << name;

    const auto identifier = [&workspace](std::string_view bundle) {
        return workspace.bundleIdentifier(FileURL::fileURLWithPath(bundle));
    };
    EXPECT_EQ(identifier("/Applications/Both.app"), "com.example.app");
    EXPECT_EQ(identifier("/Users/ann/Applications/Own App.app/"), "com.example.app");
    EXPECT_EQ(identifier("/Users/ann/Applications/Both.app"), std::nullopt);
    EXPECT_EQ(identifier("/Applications/File.app"), std::nullopt);
    EXPECT_EQ(identifier("/Applications/Linked.app"), std::nullopt);
    EXPECT_EQ(identifier("/Applications/Padded.app"), "com.example.app");
    EXPECT_EQ(identifier("/Applications/Long.app"), std::nullopt); // more than 64 KiB
}

} // namespace
} // namespace pryvane
