// What is cleared belongs to the home looked at: whatever links somebody puts inside the volume,
// nothing behind them is offered, measured or removed.
#include "support/CleanerFixture.h"
#include "support/RemovalFixtures.h"

#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <thread>

namespace pryvane::test {

namespace {

namespace fs = std::filesystem;

const std::string kBob = "/Users/bob";
const std::string kFirefoxProfile = kFirefoxFolder + "/abc.default";

struct LinkedPlace {
    std::string link, target;
    /// A file that makes the browser list what lies behind the link.
    std::string listing = {}, content = {};
};

const std::string kChromeState = R"({"profile":{"info_cache":{"Default":{"name":"Alice"}}}})";

std::string addOnAt(const std::string& path)
{
    return R"({"addons":[{"path":")" + path +
           R"(","version":"1.0","defaultLocale":{"name":"Ad Remover"}}]})";
}

const LinkedPlace kLinkedPlaces[] = {
    {kHome + "/Library/Containers/evil/Data", "../../../../bob"},
    {kHome + "/Library/Containers/evil", "/Users/bob/Library/Containers/own"},
    {kHome + "/Library/Containers", "../../bob/Library/Containers"},
    {kHome + "/Library/Caches", "../Documents"},
    {kHome + "/Library/Safari/LocalStorage", "../../Documents"},
    {kHome + "/Library/Preferences", "../../bob/Library/Preferences"},
    {kChromeFolder, kBob + "/Library/Application Support/Google/Chrome"},
    {kChromeFolder + "/Default", kBob + "/Library/Application Support/Google/Chrome/Default",
     kChromeFolder + "/Local State", kChromeState},
    {kChromeFolder + "/Default/Extensions/evilid", kHome, kChromeFolder + "/Local State",
     kChromeState},
    {kHome + "/Library/Safari/Extensions", "../.."},
    {kHome + "/Library/Safari", "../../bob/Library/Safari"},
    {kFirefoxProfile + "/extensions", kHome, kFirefoxProfile + "/extensions.json",
     addOnAt(kFirefoxProfile + "/extensions/Documents")},
    {kFirefoxProfile, kBob + "/Library/Application Support/Firefox/Profiles/b"},
    {kHome, "bob"},
};

class ClearingLinksTest : InMemory, public CleanerFixture {
protected:
    ClearingLinksTest()
    {
        for (const char* browser : {"Safari", "Google Chrome", "Firefox", "Mail"})
            volume.folder("/Applications/" + std::string(browser) + ".app");
    }

    /// What must stay: another user's home and what alice keeps outside of any browser.
    void plantVictims() const
    {
        const std::string support = "/Library/Application Support";
        for (const char* path :
             {"/Library/Caches/c", "/Library/Logs/l", "/Library/Safari/History.db",
              "/Library/Safari/Extensions/e.safariextz",
              "/Library/Containers/own/Data/Library/Caches/c",
              "/Library/Preferences/com.apple.LaunchServices.QuarantineEventsV2"})
            volume.file(kBob + path);
        const std::string chrome = kBob + support + "/Google/Chrome";
        chromeProfiles(R"("Default":{"name":"Bob"})", chrome);
        volume.file(chrome + "/Default/History");
        volume.file(chrome + "/Default/Extensions/id/1/manifest.json",
                    R"({"name":"Bob's own","version":"1"})");
        volume.file(kBob + support + "/Firefox/Profiles/b/cookies.sqlite");
        volume.file(kBob + support + "/Firefox/Profiles/b/extensions/x.xpi");
    }

    void plantDocuments(const std::string& home) const
    {
        volume.file(home + "/Documents/Library/Caches/letter");
        volume.file(home + "/Documents/letter");
        volume.file(home + "/Desktop/manifest.json", R"({"name":"Nice","version":"1"})");
        volume.file(home + "/Desktop/photo");
    }

    [[nodiscard]] std::vector<std::string> victims(const std::string& alice = kHome) const
    {
        std::vector<std::string> all;
        for (const std::string& path : {kBob, alice + "/Documents", alice + "/Desktop"})
            for (const auto& entry : fs::recursive_directory_iterator(volume.hostPath(path)))
                all.push_back(entry.path());
        return all;
    }
};

/// Ticks everything there is, whether or not the screen would let it be ticked.
void tickAll(std::vector<ToolGroup>& groups)
{
    for (ToolGroup& group : groups)
        for (ToolItem& item : group.List)
            item.isChecked = true;
}

} // namespace

class LinkedPlaceTest : public ClearingLinksTest,
                        public testing::WithParamInterface<LinkedPlace> {};

INSTANTIATE_TEST_SUITE_P(All, LinkedPlaceTest, testing::ValuesIn(kLinkedPlaces),
                         [](const auto& row) {
                             std::string name = std::to_string(row.index) + row.param.link;
                             std::erase_if(name, [](char c) { return !std::isalnum(c); });
                             return name;
                         });

TEST_P(LinkedPlaceTest, LeadsToNothingThatCouldGo)
{
    const LinkedPlace& row = GetParam();
    const bool isHome = row.link == kHome;
    plantVictims();
    plantDocuments(isHome ? kBob : kHome);
    if (isHome)
        fs::remove_all(volume.hostPath(kHome));
    volume.link(row.link, row.target);
    if (!row.listing.empty())
        volume.file(row.listing, row.content);
    const auto before = victims(isHome ? kBob : kHome);

    auto groups = privacyGroups();
    for (const ToolGroup& group : groups) {
        for (const ToolItem& item : group.List) {
            for (const ToolLocation& location : item.AllList)
                EXPECT_FALSE((location.url.absolutePath() + "/").starts_with(row.link + "/") &&
                             location.url.absolutePath() != row.link)
                    << group.Name << "/" << item.NameText << ": " << location.url.relativePath();
            EXPECT_EQ(item.NameText.find("Bob"), std::string::npos) << item.NameText;
            EXPECT_NE(item.NameText, "Documents");
        }
        EXPECT_EQ(group.bytes, 0) << group.Name;
    }
    tickAll(groups);
    const auto outcome = cleanSelected(previewOf(groups), remover(), stop);
    // Where an item itself is a link, that goes, and nothing behind it.
    EXPECT_EQ(outcome.entriesRemoved, row.link.ends_with("/LocalStorage") ? 1U : 0U);
    EXPECT_EQ(victims(isHome ? kBob : kHome), before);
}

/// The folder that is looked at turns into a link, and back, all the time.
TEST_F(ClearingLinksTest, ExchangedWhileClearingLoseNothingBeside)
{
    const auto wanted = static_cast<std::size_t>(sizeAsked("PRYVANE_TEST_RACES", 20'000)) / 20;
    const std::string containers = kHome + "/Library/Containers/";
    const std::string cache = "/Data/Library/Caches/own";
    volume.folder(containers + "a/Data/Library/Caches");
    volume.folder(containers + "b/Data/Library/Caches");
    volume.link(containers + "a/link", "../../../../bob");             // another home
    volume.link(containers + "b/link", "../../../../alice/Documents"); // the user's own
    plantVictims();
    plantDocuments(kHome);
    const auto before = victims();
    const auto open = [this](const std::string& path) {
        return UniqueFd(::open(volume.hostPath(path).c_str(), O_PATH | O_CLOEXEC));
    };
    const UniqueFd a = open(containers + "a"), b = open(containers + "b");
    const UniqueFd ownA = open(containers + "a/Data/Library/Caches");
    const UniqueFd ownB = open(containers + "b/Data/Library/Caches");
    std::atomic<bool> done{false}, possible{true};
    std::thread attacker([&] {
        for (int i = 0; !done && possible; ++i)
            possible = renameat2((i % 2 ? a : b).get(), "Data", (i % 2 ? a : b).get(), "link",
                                 RENAME_EXCHANGE) == 0;
    });
    std::size_t clearings = 0, stayed = 0;
    std::uint64_t removed = 0;
    while (clearings < wanted && possible) {
        for (const UniqueFd* own : {&ownA, &ownB})
            UniqueFd(openat(own->get(), "own", O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
        disk().forgetListings();
        auto groups = PrivacyCatalogue(services(), "alice", stop).groups();
        tickAll(groups);
        const auto preview = previewOf(groups);
        const auto outcome = cleanSelected(preview, remover(), stop);
        clearings += preview.rows.size();
        removed += outcome.entriesRemoved;
        stayed += outcome.stayed.size();
    }
    done = true;
    attacker.join();
    if (!possible)
        GTEST_SKIP() << "this file system cannot exchange names";
    EXPECT_EQ(victims(), before);
    EXPECT_GT(removed, 0U) << "the race was not run";
    EXPECT_GT(stayed, 0U) << "the race was not run";
}

} // namespace pryvane::test
