#include "findings/Subject.h"

#include "support/Volumes.h"

#include <gtest/gtest.h>

namespace pryvane::test {
namespace {

constexpr const char* kNames = "/Library/Preferences/SystemConfiguration/preferences.plist";
constexpr const char* kSystem = "/System/Library/CoreServices/SystemVersion.plist";

std::string dictionary(const std::string& entries)
{
    return "<plist version=\"1.0\"><dict>" + entries + "</dict></plist>";
}

std::string entry(const std::string& key, const std::string& value)
{
    return "<key>" + key + "</key><string>" + value + "</string>";
}

std::string inSystem(const std::string& entries)
{
    return dictionary("<key>System</key><dict><key>System</key><dict>" + entries +
                      "</dict></dict>");
}

TEST(Subject, IsReadFromTheDiskAsFarAsTheDiskTells)
{
    const std::string version = entry("ProductVersion", "13.4");
    const struct {
        std::string names, system; ///< the files' contents; empty: there is none
        const char* line;
    } rows[] = {
        {inSystem(entry("ComputerName", "Alice's Mac")),
         dictionary(version + entry("ProductBuildVersion", "22F66")),
         "Alice's Mac, macOS 13.4 (22F66), Folder disk; user alice"},
        {"", dictionary(version), "disk, macOS 13.4; user alice"},
        {"", "", "disk; user alice"},
        {"not a property list", "<plist>", "disk; user alice"},
        {inSystem(entry("ComputerName", "\x1b[31m")), "", "\\x1b[31m, Folder disk; user alice"},
        {dictionary(entry("System", "text")), "", "disk; user alice"},
        {inSystem(entry("ComputerName", std::string(2 << 20, 'x'))), "", "disk; user alice"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        const TemporaryFolder host;
        host.folder("/disk");
        if (!row.names.empty())
            host.file(std::string("/disk") + kNames, row.names);
        if (!row.system.empty())
            host.file(std::string("/disk") + kSystem, row.system);
        auto disk = VolumeFileSystem::open(host.hostPath("disk"));
        ASSERT_TRUE(disk.ok());
        EXPECT_EQ(subjectText(readSubject(**disk, {"alice"})), row.line);
    }
    EXPECT_EQ(subjectText({}), "not known");
}

TEST(Subject, OnlyWhatIsKnownToBeOfADiskAndUserIsAboutThem)
{
    const Subject alice{{}, {}, {}, {"alice", "bob"}};
    const Subject nobody{{DiskSource::Kind::Folder, "disk"}, {}, {}, {}};
    using Users = std::vector<std::string>;
    const Users bob{"bob"}, both{"alice", "bob"}, three{"alice", "bob", "carol"};
    EXPECT_TRUE(isAbout("1", alice, "1", bob));
    EXPECT_FALSE(isAbout("1", alice, "2", bob));
    EXPECT_FALSE(isAbout("1", alice, "1", Users{"carol"}));
    EXPECT_TRUE(isAbout("1", alice, "1", both));
    EXPECT_FALSE(isAbout("1", alice, "1", three)) << "one of everyone was not looked at";
    EXPECT_TRUE(isAbout("1", nobody, "1", {})) << "a disk without homes";
    EXPECT_FALSE(isAbout("", alice, "", bob)) << "two disks without an identity";
    EXPECT_FALSE(isAbout("1", {}, "1", bob)) << "an older report";
    EXPECT_FALSE(isAbout("1", {}, "1", {})) << "an older report";
}

} // namespace
} // namespace pryvane::test
