#include "signatures/MakersApplications.h"

#include "core/StopFlag.h"
#include "support/Fakes.h"

#include <gtest/gtest.h>

namespace pryvane::test {

TEST(MakersApplications, NameIsMatchedByTheFirstKeyThatFits)
{
    EXPECT_EQ(getOriginalAppName("Tidewell 3.app"), "Tidewell");
    EXPECT_EQ(getOriginalAppName("Pryvane by Norvesta.app"), "Norvesta");
    EXPECT_EQ(getOriginalAppName("tidewell.app"), std::nullopt);
}

TEST(MakersApplications, ListsOnlyStrangersUnderTheMakersNames)
{
    FakeWorkspace workspace;
    const auto install = [&](const std::string& name, const char* identifier) {
        const auto bundle = FileURL::fileURLWithPath("/Applications/" + name + ".app");
        workspace.applications[name] = bundle;
        if (identifier)
            workspace.bundleIdentifiers[bundle.absolutePath()] = identifier;
    };
    install("Norvesta", "com.torvell.norvesta");
    install("Tidewell", "net.stranger.tidewell");
    install("Quillmark", nullptr);

    const struct {
        const char* path;
        std::size_t times;
    } cases[] = {
        {"/Library/LaunchAgents/com.okaz.plist", 1},     // not an application
        {"/Applications/Codec-M.App", 1},                // nor is this
        {"/Applications/Codec-M.app", 0},                // none of the names
        {"/Applications/Codec-M.app/", 0},               //
        {"/Applications/Norvesta.app", 0},               // the maker's own
        {"/Applications/Tidewell.app", 1},               // not the maker's
        {"/Library/Tidewell/Quillmark/Tidewell.app", 2}, // two names in the path
        {"/Applications/Quillmark.app", 1},              // no identifier to be read
        {"/Applications/Pryvane.app", 0},                // not installed
        {"/Library/Caches/Tidewell/x.okaz.app", 0},      // a name in the path, none in the name
        {"/Library/Caches/Tidewell/Norvesta.app", 0},    //
        {"/Library/Caches/Norvesta/Tidewell.app", 2},
    };
    const auto keys = makersApplicationKeys();
    MakersApplications rule(workspace);
    StopFlag stop;
    for (const auto& row : cases)
        EXPECT_EQ(rule.timesListed(FileURL::fileURLWithPath(row.path), keys, stop), row.times)
            << row.path;
    const auto tidewell = FileURL::fileURLWithPath("/Applications/Tidewell.app");
    EXPECT_EQ(rule.timesListed(tidewell, {}, stop), 0U);

    // What was read holds for the scan, and a stopped scan reads nothing more.
    stop.request();
    workspace.bundleIdentifiers.clear();
    EXPECT_EQ(rule.timesListed(FileURL::fileURLWithPath("/Norvesta.app"), keys, stop), 0U);
    rule.forget();
    EXPECT_EQ(rule.timesListed(tidewell, keys, stop), std::nullopt);
}

} // namespace pryvane::test
