// The facts of a planted disk, through the disk's own interface.
#include "inventory/facts/FactScan.h"

#include "inventory/facts/FactFixtures.h"
#include "inventory/facts/FactTable.h"
#include "inventory/facts/Whereabouts.h"
#include "support/Volumes.h"
#include "support/WatchedDisk.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace pryvane::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const std::string kTcc = "Library/Application Support/com.apple.TCC/TCC.db";

class FactScan : public testing::Test {
protected:
    Facts gather(const FactKinds& kinds = FactKinds::all())
    {
        disk = volumeAt(volume, NameMatching::AsOnMac);
        watched = std::make_unique<WatchedDisk>(*disk);
        return gatherFacts(*watched, factHomes(*watched, UserChoice::everyone()), kinds, stop);
    }

    TemporaryFolder volume;
    std::unique_ptr<VolumeFileSystem> disk;
    std::unique_ptr<WatchedDisk> watched;
    StopFlag stop;
};

std::string textOf(const ProgramOnDisk& program)
{
    constexpr const char* kWhere[] = {"not known", "there", "missing"};
    constexpr const char* kPlaces[] = {"", "", ", hidden", ", temporary", ", shared", ", home of "};
    const auto place = static_cast<std::size_t>(program.place);
    return std::string(kWhere[static_cast<std::size_t>(program.whereabouts)]) + kPlaces[place] +
           (program.place == PlaceKind::Home ? program.home : "");
}

std::vector<std::string> watchersOf(const Facts& facts)
{
    std::vector<std::string> rows;
    for (const Permission& row : facts.permissions)
        rows.push_back(row.origin.user + "|" + row.service + "|" +
                       (row.name.empty() ? row.client : row.name) + "|" + textOf(row.program));
    return rows;
}

std::vector<std::string> startUpOf(const Facts& facts)
{
    constexpr const char* kStates[] = {"|?|", "|on|", "|off|"};
    std::vector<std::string> rows;
    for (const StartUpItem& item : facts.startUp)
        rows.push_back(item.origin.user + "|" + item.label +
                       kStates[static_cast<std::size_t>(item.state)] + textOf(item.program));
    return rows;
}

std::vector<std::string> troublesOf(const Facts& facts)
{
    std::vector<std::string> rows;
    for (const SourceNote& note : facts.sources)
        if (note.state != SourceNote::State::Read)
            rows.push_back(note.path + ": " + note.reason);
    return rows;
}

} // namespace

TEST_F(FactScan, WhoMayWatchIsToldForEveryAccount)
{
    volume.file("Library/Application Support/.rec/recorder");
    volume.file("Applications/Chat.app/Contents/Info.plist",
                dict({{"CFBundleIdentifier", "com.chat"}, {"CFBundleName", "Chat"}}).xml());
    volume.file("Users/bob/k");
    volume.file(kTcc,
                permissionsOf("('kTCCServiceScreenCapture','/Library/Application Support/"
                              ".rec/recorder',1,2,4),('kTCCServiceCamera','com.chat',0,0,2)"));
    volume.file("Users/alice/" + kTcc,
                permissionsOf("('kTCCServiceListenEvent','/private/tmp/x',1,2,2),"
                              "('a','com.gone',0,2,2)"));
    volume.file("Users/bob/" + kTcc,
                permissionsOf("('a','/Users/bob/k',1,2,2),('a','/Users/Shared/k',1,2,2),"
                              "('a','/usr/libexec/sshd',1,2,2),('a','/opt/x',1,2,2)"));
    volume.file("private/var/containers/Data/ProtectedSystem/0A-1B/Data/" + kTcc,
                permissionsOf("('b','/opt/y',1,2,2)"));
    const Facts facts = gather({.permissions = true});
    EXPECT_THAT(watchersOf(facts),
                ElementsAre("|kTCCServiceScreenCapture|recorder|there, hidden",
                            "|kTCCServiceCamera|Chat|there",
                            "alice|kTCCServiceListenEvent|x|missing, temporary",
                            "alice|a|com.gone|not known", "bob|a|k|there, home of bob",
                            "bob|a|k|missing, shared", "bob|a|sshd|not known", "bob|a|x|missing",
                            "account not known (0A-1B)|b|y|missing"));
    EXPECT_THAT(troublesOf(facts), IsEmpty());
    EXPECT_EQ(facts.permissions[0].origin.source, "/" + kTcc);
    EXPECT_THAT(facts.startUp, IsEmpty());
    stop.request();
    EXPECT_THAT(gather().permissions, IsEmpty());
}

TEST_F(FactScan, WhatStartsKnowsWhetherItIsSwitchedOff)
{
    volume.file("private/var/db/dslocal/nodes/Default/users/alice.plist",
                accountOf("alice", "/Users/alice"));
    const std::string switched = "private/var/db/com.apple.xpc.launchd/";
    volume.file(switched + "disabled.plist",
                dict({{"d.off", true}, {"d.on", false}, {"com.openssh.sshd", false}}).xml());
    volume.file(switched + "disabled.501.plist", dict({{"a.off", true}, {"shared", true}}).xml());
    volume.file("opt/run");
    volume.file("Library/LaunchDaemons/1.plist", jobOf("d.off", "/opt/run"));
    volume.file("Library/LaunchDaemons/2.plist", jobOf("d.on", "/opt/run", true));
    volume.file("Library/LaunchDaemons/3.plist", jobOf("d.itself", "/opt/none", true));
    volume.file("Library/LaunchAgents/4.plist", jobOf("shared", "/opt/run"));
    volume.file("Users/alice/Library/LaunchAgents/.5.plist", jobOf("a.off", "/opt/run"));
    volume.file("Applications/B.app/Contents/Library/LaunchAgents/6.plist",
                jobOf("inside", "Contents/MacOS/h"));
    volume.file("Applications/B.app/Contents/MacOS/h");
    volume.file("private/var/at/tabs/alice", "* * * * * /tmp/.x/run\n");
    volume.file("Users/alice/.zshrc");
    const Facts facts = gather({.startUp = true});
    EXPECT_THAT(startUpOf(facts),
                ElementsAre("|d.off|off|there", "|d.on|on|there", "|d.itself|off|missing",
                            "|shared|on|there", "alice|a.off|off|there", "|inside|on|there",
                            "alice|/tmp/.x/run|?|missing, hidden", "alice|.zshrc|?|there, hidden"));
    EXPECT_THAT(facts.startUp[3].when, ElementsAre("switched off for alice"));
    EXPECT_TRUE(facts.startUp[4].hidden);
    EXPECT_EQ(facts.startUp[5].application, "/Applications/B.app");
    EXPECT_THAT(facts.remoteAccess, IsEmpty());

    volume.file("Library/LaunchDaemons/com.teamviewer.service.plist",
                jobOf("com.teamviewer.service", "/x"));
    volume.file("Users/alice/.ssh/authorized_keys", "ssh-rsa A\n");
    std::vector<std::string> remote;
    for (const RemoteFact& fact : gather({.remoteAccess = true}).remoteAccess)
        remote.push_back(fact.origin.user + "|" + fact.what + "|" + fact.detail);
    EXPECT_THAT(remote,
                testing::IsSupersetOf({"|Remote login (SSH)|", "alice|Keys that may log in|1 key",
                                       "|Starts by itself: TeamViewer|com.teamviewer.service"}));
}

TEST_F(FactScan, WhatCannotBeReadIsNamedAndTheRestIsRead)
{
    volume.folder("Library/LaunchDaemons");
    mkfifo(volume.hostPath("Library/LaunchDaemons/fifo.plist").c_str(), 0600);
    volume.link("Library/LaunchDaemons/link.plist", "/dev/zero");
    volume.file("Library/LaunchDaemons/broken.plist", "<plist><dict>");
    volume.file("Library/LaunchDaemons/good.plist", jobOf("good", "/x"));
    volume.link("Library/LaunchDaemons/loop.plist", "loop.plist");
    volume.file(kTcc, permissionsOf("('a','b',0,2,2)"));
    volume.file(kTcc + "-wal", std::string(5000, 'w'));
    volume.file("Users/alice/" + kTcc, "no database");
    const std::string items = "private/var/db/com.apple.backgroundtaskmanagement/BackgroundItems-";
    volume.file(items + "v4.btm", "old");
    volume.file(items + "v13.btm", "new");
    const Facts facts = gather();
    EXPECT_FALSE(watched->read.contains("/" + items + "v4.btm")) << "the newest counts";
    EXPECT_THAT(startUpOf(facts), ElementsAre("|good|on|missing"));
    EXPECT_EQ(facts.permissions.size(), 1U);
    const std::string daemons = "/Library/LaunchDaemons/";
    EXPECT_THAT(
        troublesOf(facts),
        UnorderedElementsAre(
            "/" + kTcc +
                "-wal: what was last written to the database and waits here is "
                "not read",
            "/Users/alice/" + kTcc + ": the database is not understood: it does not begin like one",
            testing::StartsWith("/" + items + "v13.btm: the background items are not"),
            testing::StartsWith(daemons + "broken.plist: the property list cannot be"),
            daemons + "fifo.plist: not a regular file", daemons + "link.plist: not a regular file",
            daemons + "loop.plist: not a regular file"));
}

TEST_F(FactScan, TheGuideListsTheSources)
{
    const std::string guide = contentOf(PRYVANE_GUIDE);
    for (const FactSource& source : factSources()) {
        const std::string row = std::string("| `") + source.place + "` | " + source.what + " | " +
                                source.systems + " |\n";
        EXPECT_NE(guide.find(row), std::string::npos) << "missing in the guide: " << row;
    }
}

TEST(FactTables, AreGroupedWithWhatWasDeniedLast)
{
    Facts facts;
    for (const auto& [service, client, decision] :
         {std::tuple{"kTCCServiceUnheardOf", "=1+1", Decision::Allowed},
          std::tuple{"kTCCServiceCamera", "denied", Decision::Denied},
          std::tuple{"kTCCServiceCamera", "a \"b\",\n", Decision::Allowed},
          std::tuple{"kTCCServiceListenEvent", "\x1b[2J", Decision::Limited}}) {
        Permission& row = facts.permissions.emplace_back();
        row.service = service;
        row.client = client;
        row.decision = decision;
        row.origin.source = "/db";
    }
    facts.permissions[3].reason = 3;
    const FactTable table = factTable(facts, FactKind::Permissions);
    EXPECT_EQ(factsCsv(table),
              "Group,Program,Decision,What for,Decided by,Since,Whose,On the disk,Path or "
              "identifier,Source\r\n"
              "Sees what you type,\\x1b[2J,limited,keys and mouse,you (3),,"
              "whole Mac,not known,\\x1b[2J,/db\r\n"
              "Listens or watches,\"a \"\"b\"\",\\n\",allowed,the camera,,,whole Mac,not "
              "known,\"a \"\"b\"\",\\n\",/db\r\n"
              "Listens or watches,denied,denied,the camera,,,whole Mac,not known,denied,/db\r\n"
              "Other permissions,\"'=1+1\",allowed,kTCCServiceUnheardOf,,,whole Mac,not "
              "known,\"'=1+1\",/db\r\n");
    EXPECT_TRUE(table.rows[2].isDenied);
    EXPECT_EQ(factsText(table).find('\x1b'), std::string::npos);
}

TEST(ProgramPlaces, AreToldByNames)
{
    const struct {
        const char* path;
        PlaceKind kind;
        const char* home;
    } rows[] = {
        {"/Applications/A.app/Contents/MacOS/A", PlaceKind::Usual, ""},
        {"/opt/.x", PlaceKind::HiddenFolder, ""},
        {"/opt/.x/y/z", PlaceKind::HiddenFolder, ""},
        {"/opt/../x/./y", PlaceKind::Usual, ""},
        {"/tmp/x", PlaceKind::TemporaryFolder, ""},
        {"/tmpx/x", PlaceKind::Usual, ""},
        {"/private/var/folders/a/b", PlaceKind::TemporaryFolder, ""},
        {"/Users/Shared/x", PlaceKind::Shared, ""},
        {"/Users/Shared/.x/y", PlaceKind::HiddenFolder, ""},
        {"/Users/bob/x", PlaceKind::Home, "bob"},
        {"x", PlaceKind::NotKnown, ""},
        {"", PlaceKind::NotKnown, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(placeOf(row.path).kind, row.kind) << row.path;
        EXPECT_EQ(placeOf(row.path).home, row.home) << row.path;
    }
    EXPECT_EQ(applicationOf("/A/B.app/C.app/d"), "/A/B.app");
    EXPECT_EQ(applicationOf("/A/B.apple/x"), "");
    EXPECT_EQ(applicationOf("/A/B.app"), "/A/B.app");
}

} // namespace pryvane::test
