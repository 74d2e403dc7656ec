// The tools screen without its window: from the catalogue over the preview to a clean disk.
#include "privacy/ToolsViewController.h"

#include "inventory/InventoryController.h"
#include "privacy/ExpectedItems.h"
#include "support/Fakes.h"

#include <gmock/gmock.h>

namespace pryvane::test {

namespace {

using State = ToolsViewController::State;
using testing::ElementsAre;

class ToolsViewControllerTest : public CleanerFixture {
protected:
    ToolsViewControllerTest()
    {
        volume.folder("/Applications/Safari.app");
        volume.file(m_history, std::string(5000, 'x'));
        volume.file(m_log, std::string(5000, 'x'));
    }

    void makeController()
    {
        startController(alerts);
        ASSERT_TRUE(reaches(State::Idle));
    }
    void startController(Alerts& asked)
    {
        controller = std::make_unique<ToolsViewController>(
            ToolsViewController::Services{services(), remover(), queue, asked, workspace}, "alice");
        controller->resetAndAddavailbleApplications();
    }
    bool reaches(State state)
    {
        return queue.runUntil([&] { return controller->state() == state; });
    }
    void preview()
    {
        controller->previewSelected();
        ASSERT_TRUE(reaches(State::Previewing));
    }
    /// Until the sizes are asked for anew.
    void clear()
    {
        alerts.answer(kAlertFirstButton);
        controller->cleanAndReloadData();
        ASSERT_TRUE(reaches(State::Scanning));
    }
    /// Ticks Safari's history and the system's logs.
    void tick()
    {
        for (std::size_t group = 0; group < controller->availbleApp().size(); ++group) {
            const auto& list = controller->availbleApp()[group].List;
            for (std::size_t item = 0; item < list.size(); ++item)
                controller->setChecked(group, item, list[item].NameText != "User preferences");
        }
    }

    const std::string m_history = kHome + "/Library/Safari/History.db";
    const std::string m_log = kHome + "/Library/Logs/a.log";
    ManualMainQueue queue;
    ScriptedAlerts alerts;
    FakeWorkspace workspace;
    std::unique_ptr<ToolsViewController> controller;
};

} // namespace

TEST_F(ToolsViewControllerTest, ClearsNothingThatWasNotPreviewed)
{
    makeController();
    controller->previewSelected(); // nothing is ticked
    EXPECT_EQ(controller->state(), State::Idle);
    tick();
    EXPECT_TRUE(controller->availbleApp()[0].isChecked);
    preview();
    controller->cancelPreview();
    controller->cleanAndReloadData();
    EXPECT_EQ(controller->state(), State::Idle);
    EXPECT_TRUE(volume.contains(m_history));
}

TEST_F(ToolsViewControllerTest, ListsWhatStayedAndWhy)
{
    remover().stubborn = {m_history};
    enum Running { Never, Before, BehindThePreview };
    for (const Running safari : {Never, Before, BehindThePreview}) {
        workspace.running.clear();
        if (safari == Before)
            workspace.running = {"Safari"};
        makeController();
        tick();
        preview();
        EXPECT_EQ(controller->preview().openBrowsers().size(), safari == Before ? 1U : 0U);
        if (safari != Never)
            workspace.running = {"Safari"};
        volume.remove(m_log); // by another tool, behind the first preview
        clear();
        std::size_t alreadyGone = 0;
        for (const CleanedItem& item : controller->outcome().items)
            alreadyGone += item.alreadyGone;
        EXPECT_EQ(alreadyGone, safari == Never ? 1U : 0U);
        ASSERT_EQ(controller->outcome().stayed.size(), 1U);
        EXPECT_EQ(controller->outcome().stayed[0].item, "History");
        const std::string reason = controller->outcome().stayed[0].reason;
        EXPECT_EQ(reason.starts_with("Safari is running"), safari != Never);
        EXPECT_THAT(alerts.asked().back().informativeText,
                    testing::AllOf(testing::HasSubstr("1: " + reason),
                                   testing::Not(testing::HasSubstr("You have successfully"))));
        ASSERT_TRUE(reaches(State::Idle));
    }
}

/// Whatever one click ticks can be had back: no password store, preference or bookmark goes.
TEST_F(ToolsViewControllerTest, AGroupsBoxTicksNothingThatIsDear)
{
    const std::string support = kHome + "/Library/Application Support/";
    const std::string safari = kHome + "/Library/Safari/", caches = kHome + "/Library/Caches/";
    std::vector<std::string> dear, cheap{m_history, m_log};
    const auto add = [](std::vector<std::string>& to, const std::string& folder,
                        const std::vector<std::string>& files) {
        for (const std::string& file : files)
            to.push_back(folder + file);
    };
    add(dear, safari,
        {"Configurations.plist.signed", "Bookmarks.plist", "SafariTabs.db", "History.db~"});
    for (const LikeChrome& browser : kLikeChrome) {
        chromeProfiles(R"("Default":{"name":"One"})", support + browser.folder);
        const std::string profile = support + browser.folder + "/Default/";
        volume.file(profile + "Extensions/id/1_0/manifest.json", R"({"name":"E","version":"1"})");
        add(dear, profile,
            {"Login Data", "Login Data-journal", "Login Data For Account", "Preferences",
             "Secure Preferences", "Bookmarks", "Cookies~", "~History", "Network/~Cookies",
             "Sessions~/1"});
        add(cheap, profile, {"Cookies", "History", "Network/Cookies", "Sessions/Tabs_1"});
        add(cheap, caches, {browser.caches + std::string("/x")});
    }
    // One profile, which is the folder itself.
    add(dear, support, {"com.operasoftware.Opera/Preferences"});
    add(cheap, support, {"com.operasoftware.Opera/History"});
    const std::string firefox = kFirefoxFolder + "/abc.default/";
    add(dear, firefox,
        {"logins.json", "key3.db", "key4.db", "logins-backup.json", "prefs.js", "user.js",
         "xulstore.json", "places.sqlite", "places.sqlite-wal", "cert8.db", "secmod.db",
         "persdict.dat", "mimeTypes.rdf", "searchplugins/own.xml", "cookies.sqlite~",
         "storage/default/moz-extension+++1/idb/vault.sqlite"});
    add(cheap, firefox,
        {"cookies.sqlite", "formhistory.sqlite",
         "storage/default/https+++example.org/ls/data.sqlite"});
    for (const auto* files : {&dear, &cheap})
        for (const std::string& file : *files)
            volume.file(file, std::string(5000, 'x'));

    makeController();
    std::vector<std::string> names, extensions;
    for (std::size_t group = 0; group < controller->availbleApp().size(); ++group) {
        names.push_back(controller->availbleApp()[group].Name);
        for (const ToolItem& item : controller->availbleApp()[group].List)
            if (item.isExt || item.isHeader)
                extensions.push_back(item.NameText);
        // The system's caches are those of all browsers, too.
        controller->setGroupChecked(group, names.back() != "System");
    }
    EXPECT_THAT(names, ElementsAre("Safari", "Chrome", "Firefox", "Edge", "Brave", "Chromium",
                                   "Vivaldi", "Opera", "Arc", "Browser_ext", "System"));
    EXPECT_THAT(extensions, testing::IsSupersetOf({"Microsoft Edge Extensions", "E v1 (One)",
                                                   "Brave Browser Extensions", "Arc Extensions"}));
    preview();
    clear();
    ASSERT_TRUE(reaches(State::Idle));
    for (const std::string& file : dear)
        EXPECT_TRUE(volume.contains(file)) << file;
    for (const std::string& file : cheap)
        EXPECT_EQ(volume.contains(file), file == m_log) << file;

    // By itself it is ticked, named apart, and left out once more.
    for (std::size_t item = 0; item < controller->availbleApp()[1].List.size(); ++item)
        controller->setChecked(1, item, true);
    preview();
    std::vector<std::string> named;
    for (const auto& item : controller->preview().items()) {
        const CleaningRow& row = controller->preview().rows[item.first];
        if (row.cost == Cost::Dear && item.ticked)
            named.push_back(row.item);
        EXPECT_FALSE(item.meaning.empty()) << row.item;
    }
    EXPECT_THAT(named, ElementsAre("Login Data (One)", "User preferences (One)"));
    controller->leaveDearOut();
    EXPECT_EQ(controller->preview().totals().entries, 0U);
}

TEST_F(ToolsViewControllerTest, MayBeScannedAnewAndDestroyedAtAnyMoment)
{
    for (int i = 0; i < 300; ++i)
        volume.file(kHome + "/Library/Caches/" + std::to_string(i) + "/file");
    for (int round = 0; round < 20; ++round) {
        startController(alerts);
        controller->resetAndAddavailbleApplications();
        if (round % 2) {
            ASSERT_TRUE(reaches(State::Idle));
            EXPECT_EQ(controller->availbleApp().size(), 3U) << "groups of both scans";
        }
        controller.reset();
        queue.drain();
        InventoryController inventory({services(), queue}, "alice");
        inventory.viewWillAppear();
        if (round % 2)
            inventory.stop();
        ASSERT_TRUE(round % 4 == 0 || queue.runUntil([&] { return !inventory.isGathering(); }));
        EXPECT_FALSE(round % 2 && inventory.isWhole());
    }
    queue.drain();
}

/// The message runs a loop of its own, in which the user may turn to another volume.
TEST_F(ToolsViewControllerTest, MayGoWhileItsMessageIsShown)
{
    struct LastAlert final : Alerts {
        std::function<void()> shown;
        int runModal(const Alert&) override
        {
            shown();
            return kAlertFirstButton;
        }
    } last;
    last.shown = [this] { controller.reset(); };
    startController(last);
    ASSERT_TRUE(reaches(State::Idle));
    tick();
    preview();
    controller->cleanAndReloadData();
    ASSERT_TRUE(queue.runUntil([&] { return !controller; }));
    queue.drain();
    EXPECT_FALSE(volume.contains(m_log));
}

} // namespace pryvane::test
