#include "scan/RootChoice.h"

#include "scan/EngineFixture.h"

namespace pryvane {
namespace {

class RootChoiceTest : public test::EngineFixture {
protected:
    std::string chosen(bool homeIsWritable = true)
    {
        RootChoice choice(services(), access, options);
        const auto root = choice.choose(homeIsWritable);
        return root ? root->relativePath() : "none";
    }
    ScanOptions options{"alice", {}};
};

TEST_F(RootChoiceTest, AGrantOfItsOwnAsksNothing)
{
    options.grantedRoot = FileURL::fileURLWithPath("/");
    EXPECT_EQ(chosen(), "/");
}

TEST_F(RootChoiceTest, WholeDiskIsUsedOrAskedFor)
{
    ASSERT_TRUE(defaults.set(preferences::kSandboxingDone, true));
    EXPECT_EQ(chosen(), "/");

    access.wholeDisk = false;
    alerts.answer(kAlertFirstButton);
    EXPECT_EQ(chosen(), "/");
    alerts.answer(kAlertFirstButton + 1);
    EXPECT_EQ(chosen(), "/Users/alice/");
    EXPECT_EQ(access.confirmations, 1);
    ASSERT_EQ(alerts.asked().size(), 2U);
    EXPECT_EQ(alerts.asked()[0].messageText, "Access Alert");
    EXPECT_EQ(alerts.asked()[0].informativeText,
              "Norvesta does not have permission to scan your entire mac. Please grant root access "
              "or continue to only scan your user directory.");
}

TEST_F(RootChoiceTest, AnEarlierGrantIsReopened)
{
    ASSERT_TRUE(defaults.setObject(preferences::kSaveDirectory, Bytes{"token"}));
    EXPECT_EQ(chosen(), "/Users/alice/");
    EXPECT_EQ(access.userQuestions, 1);

    EXPECT_EQ(chosen(false), "/Users/alice/") << "a disk that can only be read";
    access.reopens = false;
    folderPicker.answer(std::nullopt);
    EXPECT_EQ(chosen(false), "/Users/alice/");
    EXPECT_EQ(folderPicker.asked().size(), 1U);
}

TEST_F(RootChoiceTest, AFirstGrantIsKeptTwiceAndStillScansTheHome)
{
    folderPicker.answer(FileURL::fileURLWithPath("/Volumes/Other"));
    EXPECT_EQ(chosen(), "/Users/alice/");
    EXPECT_EQ(defaults.getBytes(preferences::kSaveDirectory), Bytes{"token"});
    EXPECT_EQ(defaults.getBytes(preferences::kSaveDirectoryForHD), Bytes{"token"});
    EXPECT_TRUE(defaults.get(preferences::kLibraryAccess));
    EXPECT_EQ(folderPicker.asked()[0].prompt, "Confirm Access");
    EXPECT_EQ(folderPicker.asked()[0].message, "Give access for scanning in your HardDisk");
    EXPECT_EQ(folderPicker.asked()[0].directory.relativePath(), "/Users/alice");
}

TEST_F(RootChoiceTest, AFailedGrantLeavesNoRoot)
{
    access.bookmark.reset();
    folderPicker.answer(FileURL::fileURLWithPath("/gone"));
    alerts.answer(kAlertFirstButton);
    EXPECT_EQ(chosen(), "none");
    EXPECT_EQ(alerts.asked()[0].informativeText, "Access Denied");
    EXPECT_EQ(log.lines().back(), "Error bookmarking selected URL: no such folder");
    EXPECT_FALSE(defaults.contains(preferences::kSaveDirectory));
}

} // namespace
} // namespace pryvane
