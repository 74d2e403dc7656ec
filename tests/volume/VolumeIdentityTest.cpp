#include "volume/VolumeIdentity.h"

#include <gtest/gtest.h>

#include <array>

namespace pryvane {
namespace {

constexpr std::array<std::uint8_t, 16> kOne = {1, 2, 3};
constexpr std::array<std::uint8_t, 16> kOther = {1, 2, 4};

/// A disk's root as a Mac tells of it, which gives numbers out as it mounts.
FolderMarks onMac(std::optional<std::array<std::uint8_t, 16>> volume, std::uint64_t number,
                  std::optional<BirthTime> made = BirthTime{1700000000, 5})
{
    return {volume, number, false, 2, made};
}

/// The same on Linux, where the number comes from the disk.
FolderMarks onLinux(std::uint64_t number, std::optional<BirthTime> made = BirthTime{1700000000, 5})
{
    return {std::nullopt, number, true, 2, made};
}

/// A wrong answer lets the report of one disk remove what lies on another.
TEST(VolumeIdentity, RestsOnWhatTheDiskItselfHolds)
{
    const struct {
        const char* of;
        FolderMarks one;
        FolderMarks other;
        bool isSame;
    } rows[] = {
        {"two disks of a Mac mounted in turn under one number", onMac(kOne, 7), onMac(kOther, 7),
         false},
        {"one disk of a Mac mounted under two numbers", onMac(kOne, 7), onMac(kOne, 8), true},
        {"two folders made in turn under one inode", onMac(kOne, 7),
         onMac(kOne, 7, BirthTime{1700000000, 6}), false},
        {"a Mac's disk without an identifier", onMac({}, 7), onMac({}, 7), false},
        {"a Mac's disk without a time", onMac(kOne, 7, {}), onMac(kOne, 7, {}), false},
        {"one disk on Linux", onLinux(7), onLinux(7), true},
        {"two disks on Linux", onLinux(7), onLinux(8), false},
        {"two disks made in turn on Linux", onLinux(7), onLinux(7, BirthTime{1700000001, 5}),
         false},
        {"a disk without a number on Linux", onLinux(0), onLinux(0), false},
        {"a disk without a time on Linux", onLinux(7, {}), onLinux(7, {}), false},
    };
    for (const auto& row : rows) {
        const FolderIdentity one = identityOf(row.one);
        const FolderIdentity other = identityOf(row.other);
        EXPECT_EQ(one.isComplete && other.isComplete && one.text == other.text, row.isSame)
            << row.of << ": " << one.text << " and " << other.text;
    }
    EXPECT_EQ(identityOf(onLinux(0xabc)).text, "abc-2-6553f100.5") << "as reports have it";
}

} // namespace
} // namespace pryvane
