#include "app/AppFixture.h"
#include "app/NotAccessVC.h"
#include "support/Volumes.h"

#include <gmock/gmock.h>

namespace pryvane {
namespace {

using test::at;
using testing::ElementsAre;
using testing::IsEmpty;

class DiskAccessTest : public test::AppFixture {
protected:
    NotAccessVC access{services(), desktop.grantTokens, delegate};
};

TEST_F(DiskAccessTest, PanelsAllowOnlyTheirFolders)
{
    for (const char* path : {"/Users", "/Users/", "/Users/alice", "/Users/alice/"}) {
        EXPECT_TRUE(access.panelShouldEnableURL(at(path))) << path;
        EXPECT_FALSE(AppDelegate::panelShouldEnableURL(at(path))) << path;
    }
    for (const char* path : {"/Users/bob", "/Users/alice/Library", "/Users/.."}) {
        EXPECT_FALSE(access.panelShouldEnableURL(at(path))) << path;
        EXPECT_FALSE(AppDelegate::panelShouldEnableURL(at(path))) << path;
    }
    EXPECT_TRUE(access.panelShouldEnableURL(at("/")));
    EXPECT_TRUE(AppDelegate::panelShouldEnableURL(at("/")));
}

TEST_F(DiskAccessTest, AHomeGrantOpensTheMainWindow)
{
    delegate.applicationDidFinishLaunching();
    takeWindowCalls();
    folderPicker.answer(std::nullopt);
    access.confirmAccessAction();
    folderPicker.answer(at("/Users/bob")); // a panel that lets it through all the same
    access.confirmAccessAction();
    mainQueue.drain();
    EXPECT_FALSE(defaults.contains(preferences::kSaveDirectory));
    EXPECT_THAT(takeWindowCalls(), IsEmpty());

    folderPicker.answer(at("/Users"));
    access.confirmAccessAction();
    EXPECT_TRUE(access.isGranted());
    EXPECT_EQ(defaults.getBytes(preferences::kSaveDirectory), Bytes{"/Users"});
    EXPECT_FALSE(defaults.contains(preferences::kSaveDirectoryForHD));
    EXPECT_THAT(takeWindowCalls(), IsEmpty()) << "the window follows 0.3 s later";
    mainQueue.drain();
    EXPECT_THAT(takeWindowCalls(), ElementsAre("close access", "open main", "activate"));
    EXPECT_EQ(folderPicker.asked()[0].message, "Give access for scanning in your Home Directory");
    EXPECT_EQ(folderPicker.asked()[0].directory.relativePath(), "/Users/alice");

    EXPECT_TRUE(delegate.isWritable(at("/Users/alice")));
    EXPECT_FALSE(delegate.isUserDirAccessible()) << "a writable home answers NO";
    EXPECT_TRUE(delegate.isUserAccessible());
}

TEST_F(DiskAccessTest, AChoiceIsGrantedWithoutAPanelAndKeptForItsDisk)
{
    delegate.applicationDidFinishLaunching();
    takeWindowCalls();
    const auto choices = access.choices();
    ASSERT_EQ(choices.size(), 3U);
    EXPECT_EQ(choices[0].folder.absolutePath(), "/Users/alice");
    EXPECT_EQ(choices[2].folder.absolutePath(), "/");

    access.grant(AccessScope::ThisHome);
    EXPECT_EQ(defaults.getBytes(preferences::kSaveDirectory), Bytes{"/Users/alice"});
    EXPECT_FALSE(defaults.contains(preferences::kSaveDirectoryForHD));
    EXPECT_EQ(defaults.get(preferences::kWholeDisk), "");
    mainQueue.drain();
    EXPECT_THAT(takeWindowCalls(), ElementsAre("close access", "open main", "activate"));

    // Access to another disk takes the one grant's place; this disk's own still holds.
    ASSERT_FALSE(services().disk.identity().empty());
    ASSERT_TRUE(defaults.setObject(preferences::kSaveDirectory, Bytes{"/Users/of another"}).ok());
    EXPECT_TRUE(delegate.makeBookMarkURLAccessible(preferences::kSaveDirectory));

    access.grant(AccessScope::WholeDisk);
    EXPECT_EQ(defaults.getBytes(preferences::kSaveDirectoryForHD), Bytes{"/"});
    EXPECT_EQ(defaults.get(preferences::kWholeDisk), services().disk.identity());
    EXPECT_THAT(folderPicker.asked(), IsEmpty());
}

TEST_F(DiskAccessTest, AGrantThatCannotBeMadeClearsItsKeysAndIsTold)
{
    ASSERT_TRUE(defaults.setObject(preferences::kSaveDirectory, Bytes{"old"}).ok());
    ASSERT_TRUE(defaults.setObject(preferences::kSaveDirectoryForHD, Bytes{"old"}).ok());
    desktop.grantTokens.makeFails = true;
    alerts.answer(kAlertFirstButton);
    folderPicker.answer(at("/Users/alice"));
    access.confirmAccessAction();
    EXPECT_FALSE(defaults.contains(preferences::kSaveDirectory));
    EXPECT_TRUE(defaults.contains(preferences::kSaveDirectoryForHD));

    alerts.answer(kAlertFirstButton);
    folderPicker.answer(at("/"));
    delegate.confirmAccessAction();
    EXPECT_FALSE(defaults.contains(preferences::kSaveDirectoryForHD));
    mainQueue.drain();
    EXPECT_THAT(desktop.windows.calls, IsEmpty());
    EXPECT_EQ(alerts.asked()[1].informativeText, "Access Denied");
    EXPECT_EQ(alerts.asked()[1].messageText, "");
    EXPECT_THAT(log.lines(), testing::Contains("Error bookmarking selected URL: no such folder"));
}

TEST_F(DiskAccessTest, TheWholeDiskIsAskedForBeforeAScanUntilItIsGranted)
{
    delegate.requestScan();
    EXPECT_EQ(takeNotes(), kRequest);
    EXPECT_THAT(alerts.asked(), IsEmpty()) << "not while SandboxingDone is NO";

    set(preferences::kSandboxingDone, true);
    alerts.answer(kAlertFirstButton);
    delegate.requestScan();
    EXPECT_THAT(folderPicker.asked(), IsEmpty());
    EXPECT_EQ(takeNotes(), kRequest);
    EXPECT_EQ(alerts.asked()[0].messageText, "Access Alert");
    EXPECT_EQ(alerts.asked()[0].informativeText,
              "Pryvane does not have permission to scan your entire mac. Please grant root access "
              "or continue to only scan your user directory.");
    EXPECT_THAT(alerts.asked()[0].buttons, ElementsAre("Continue", "Confirm Access"));

    alerts.answer(kAlertFirstButton + 1);
    folderPicker.answer(at("/"));
    delegate.requestScan();
    EXPECT_EQ(takeNotes(), kRequest);
    EXPECT_EQ(defaults.getBytes(preferences::kSaveDirectory), Bytes{"/"});
    EXPECT_EQ(defaults.getBytes(preferences::kSaveDirectoryForHD), Bytes{"/"});
    EXPECT_TRUE(delegate.isHDAccessible());
    delegate.requestScan();
    EXPECT_EQ(alerts.asked().size(), 2U);

    desktop.grantTokens.valid.clear();
    EXPECT_FALSE(delegate.isHDAccessible());
    desktop.grantTokens.valid = {"/"};
    desktop.grantTokens.hostWritable.insert("/");
    EXPECT_FALSE(delegate.isHDAccessible()) << "a writable disk answers NO";
}

} // namespace
} // namespace pryvane
