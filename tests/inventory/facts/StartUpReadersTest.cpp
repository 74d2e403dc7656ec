// What starts by itself, and who may come in: the readers of the files that say so.
#include "inventory/facts/BackgroundItems.h"
#include "inventory/facts/Bookmarks.h"
#include "inventory/facts/FactFixtures.h"
#include "inventory/facts/LaunchJobs.h"
#include "inventory/facts/SystemFiles.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

namespace pryvane::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using namespace std::string_literals;

std::string joined(const std::vector<std::string>& parts, const char* between)
{
    std::string text;
    for (const std::string& part : parts)
        text += (text.empty() ? "" : between) + part;
    return text;
}

const char* stateText(std::optional<OnOff> state)
{
    return state == OnOff::On ? " on" : state == OnOff::Off ? " off" : "";
}

/// "label: program arguments [when] as USER on|off hidden in APPLICATION for UUID by DEVELOPER".
std::string textOf(const StartUpItem& item)
{
    std::string text = item.label + ": " + item.programText;
    if (!item.arguments.empty())
        text += " " + joined(item.arguments, " ");
    text += " [" + joined(item.when, "; ") + "]";
    if (!item.runsAs.empty())
        text += " as " + item.runsAs;
    text += stateText(item.state);
    text += item.hidden ? " hidden" : "";
    text += item.application.empty() ? "" : " in " + item.application;
    text += item.origin.user.empty() ? "" : " for " + item.origin.user.substr(0, 8);
    return text + (item.developer.empty() ? "" : " by " + item.developer);
}

std::string textOf(const RemoteFact& fact)
{
    return fact.what + stateText(fact.state) + (fact.detail.empty() ? "" : ": " + fact.detail);
}

template <typename Entry>
std::vector<std::string> rowsOf(const Result<ReadFacts<Entry>>& read)
{
    if (!read)
        return {read.error().message};
    std::vector<std::string> rows;
    for (const Entry& entry : read->entries)
        rows.push_back(textOf(entry));
    if (!read->problem.empty())
        rows.push_back("problem: " + read->problem);
    return rows;
}

std::string jobText(const Plist::Entries& entries)
{
    const auto job = readLaunchJob(dict(entries).xml());
    return job ? textOf(*job) : job.error().message;
}

/// The newer background items with two accounts, as version `version`.
Plist backgroundItems(int version)
{
    Archive archive;
    const Plist group =
        archive.add(dict({{"type", 32}, {"identifier", archive.add("Some Developer")}}));
    const Plist daemon =
        archive.add(dict({{"type", 0x10010},
                          {"disposition", 3},
                          {"identifier", archive.add("com.a.daemon")},
                          {"name", archive.add("daemon")},
                          {"url", archive.addUrl("file:///Library/LaunchDaemons/a%20b.plist")},
                          {"executablePath", archive.add("/usr/local/bin/a")},
                          {"programArguments", archive.addList({archive.add("-x")})}}));
    const Plist app = archive.add(dict({{"type", 2},
                                        {"disposition", 3},
                                        {"identifier", archive.add("2.com.b")},
                                        {"name", archive.add("B")},
                                        {"bundleIdentifier", archive.add("com.b")},
                                        {"url", archive.addUrl("file:///Applications/B.app/")}}));
    const Plist inside =
        archive.add(dict({{"type", 8},
                          {"disposition", 6},
                          {"identifier", archive.add("8.com.b.agent")},
                          {"container", archive.add("2.com.b")},
                          {"developerName", archive.add("Bee")},
                          {"url", archive.addUrl("Contents/Library/LaunchAgents/b.plist")}}));
    const Plist users = archive.addDictionary(
        {{std::string(kSystemItems), archive.addList({group, daemon})},
         {"B39008E8-5A4C-4551-B795-07EB2968EAEF", archive.addList({app, inside})}});
    const Plist store = archive.add(dict({{"itemsByUserIdentifier", users}}));
    return archive.finished({{"version", version}, {"store", store}});
}

/// A bookmark of these names below the root.
std::string bookmark(const std::vector<std::string>& names)
{
    const auto little = [](std::size_t number) {
        std::string bytes;
        for (int i = 0; i < 4; ++i)
            bytes += static_cast<char>(number >> (8 * i) & 0xff);
        return bytes;
    };
    std::string body(4, '\0');
    std::string offsets;
    for (const std::string& name : names) {
        offsets += little(body.size());
        body +=
            little(name.size()) + little(0x101) + name + std::string((4 - name.size() % 4) % 4, 0);
    }
    const std::size_t path = body.size();
    body += little(offsets.size()) + little(0x601) + offsets;
    const std::size_t table = body.size();
    body.replace(0, 4, little(table));
    body += little(32) + little(0xfffffffe) + little(1) + little(0) + little(1) + little(0x1004) +
            little(path) + little(0);
    return "book" + little(body.size() + 48) + little(0x10040000) + little(48) +
           std::string(32, '\0') + body;
}

} // namespace

TEST(LaunchJobs, SayWhatRunsWhenAndAsWhom)
{
    const Plist times =
        list({dict({{"Hour", 3}, {"Minute", 5}}), dict({{"Weekday", 1}}), dict({{"Minute", 7}})});
    const struct {
        const char* what;
        Plist::Entries job;
        const char* text;
    } rows[] = {
        {"arguments alone",
         {{"Label", "a"}, {"ProgramArguments", list({"/bin/sh", "-c", "x"})}, {"RunAtLoad", true}},
         "a: /bin/sh -c x [when loaded]"},
        {"a program with its own name first",
         {{"Label", "a"}, {"Program", "/opt/x/k"}, {"ProgramArguments", list({"k", "-v"})}},
         "a: /opt/x/k -v []"},
        {"a program and arguments without it",
         {{"Label", "a"}, {"Program", "/Test"}, {"ProgramArguments", list({"--flag", "arg1"})}},
         "a: /Test --flag arg1 []"},
        {"inside a bundle",
         {{"Label", "a"}, {"BundleProgram", "Contents/MacOS/h"}},
         "a: Contents/MacOS/h []"},
        {"every time there is",
         {{"Label", "a"},
          {"KeepAlive", true},
          {"StartInterval", 60},
          {"StartCalendarInterval", times},
          {"WatchPaths", list({"/tmp/a"})},
          {"QueueDirectories", list({"/q"})},
          {"StartOnMount", true},
          {"MachServices", dict({{"x", true}})}},
         "a:  [kept running; every 60 seconds; at 03:05; at weekday 1; at minute 7 of each hour; "
         "when /tmp/a changes; while something lies in /q; when a disk is mounted; when asked "
         "for]"},
        {"kept running under conditions",
         {{"Label", "a"}, {"KeepAlive", dict({{"SuccessfulExit", false}})}},
         "a:  [kept running under conditions]"},
        {"as somebody, switched off",
         {{"Label", "a"}, {"UserName", "root"}, {"Disabled", true}},
         "a:  [] as root off"},
        {"values of other kinds",
         {{"Label", "a"},
          {"Program", 1},
          {"ProgramArguments", "x"},
          {"StartInterval", "x"},
          {"WatchPaths", "/x"},
          {"UserName", list({})}},
         "a:  []"},
        {"nothing",
         {{"Other", true}},
         "it is not understood: it names neither a job nor a program"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(jobText(row.job), row.text) << row.what;
    EXPECT_FALSE(readLaunchJob(list({}).xml()));
    EXPECT_FALSE(readLaunchJob("no property list"));
    // The many arguments of no honest job are cut short.
    const auto many =
        readLaunchJob(dict({{"ProgramArguments", list(std::vector<Plist>(5000, "x"))}}).xml());
    ASSERT_TRUE(many);
    EXPECT_LE(many->arguments.size(), kMostFactParts + 1);
}

TEST(LaunchJobs, SwitchedJobsInBothForms)
{
    const auto off = [](bool is) { return dict({{"Disabled", is}}); };
    for (const std::string& file :
         {dict({{"com.openssh.sshd", false}, {"com.a", true}, {"com.b", "?"}}).binary(),
          dict({{"com.openssh.sshd", off(false)}, {"com.a", off(true)}}).xml()}) {
        const auto jobs = readDisabledJobs(file);
        ASSERT_TRUE(jobs);
        EXPECT_THAT(*jobs,
                    ElementsAre(std::pair{"com.openssh.sshd"s, false}, std::pair{"com.a"s, true}));
    }
    EXPECT_FALSE(readDisabledJobs(list({}).xml()));
}

TEST(BackgroundItems, KnownVersionsAreRead)
{
    for (const int version : {3, 4, 8, 13, 16, 17}) {
        const Plist items = backgroundItems(version);
        EXPECT_THAT(rowsOf(readBackgroundItems(version < 8 ? items.xml() : items.binary())),
                    ElementsAre("daemon: /usr/local/bin/a -x [daemon] on for FFFFEEEE",
                                "B: /Applications/B.app [at login] on in com.b for B39008E8",
                                "8.com.b.agent: /Applications/B.app/Contents/Library/LaunchAgents/"
                                "b.plist [agent] off hidden in /Applications/B.app for B39008E8 "
                                "by Bee"))
            << version;
    }

    // A file for each account.
    Archive archive;
    const Plist one = archive.add(dict({{"type", 4}, {"name", archive.add("L")}}));
    const Plist store = archive.add(dict({{"records", archive.addList({one})}}));
    EXPECT_THAT(rowsOf(readBackgroundItems(
                    archive.finished({{"version", 18}, {"userStore", store}}).binary())),
                ElementsAre("L:  [at login]"));

    // Containers of older systems.
    Archive older;
    const Plist mark = older.add(Plist::data(bookmark({"Applications", "Some App.app"})));
    const Plist item =
        older.add(dict({{"bookmark", older.add(dict({{"data", mark}}))}, {"hidden", true}}));
    const Plist container = older.add(dict({{"internalItems", older.addList({item})}}));
    const Plist items = older.add(dict({{"allContainers", older.addList({container})}}));
    const Plist root = older.addDictionary({{"version", older.add(2)}, {"backgroundItems", items}});
    EXPECT_THAT(rowsOf(readBackgroundItems(older.finished({{"root", root}}).binary())),
                ElementsAre("Some App.app: /Applications/Some App.app [at login] hidden"));
}

TEST(BackgroundItems, UnknownLayoutsAreNotAnEmptyList)
{
    Archive empty, other, untyped;
    const Plist strange = other.add(dict({{"itemsByRainbow", other.addList({})}}));
    const Plist listed = untyped.addList({untyped.add(dict({{"name", untyped.add("x")}}))});
    const Plist store =
        untyped.add(dict({{"itemsByUserIdentifier", untyped.addDictionary({{"u", listed}})}}));
    const struct {
        const char* what;
        std::string bytes;
    } rows[] = {
        {"no property list", "x"},
        {"no archive", dict({{"version", 4}}).binary()},
        {"no version", empty.finished({}).binary()},
        {"a version to come", backgroundItems(19).binary()},
        {"version 1", backgroundItems(1).binary()},
        {"no items", empty.finished({{"version", 4}}).binary()},
        {"items of another form", other.finished({{"version", 4}, {"store", strange}}).binary()},
        {"records of no kind", untyped.finished({{"version", 4}, {"store", store}}).binary()},
    };
    for (const auto& row : rows)
        EXPECT_THAT(rowsOf(readBackgroundItems(row.bytes)),
                    ElementsAre(HasSubstr("the background items are not understood")))
            << row.what;
}

TEST(BackgroundItems, CirclesAndCrowdsEnd)
{
    // The store is its own list of items, and each of its records.
    Archive circle;
    const Plist self = Plist::reference(1);
    circle.add(dict({{"itemsByUserIdentifier", self},
                     {"NS.keys", self},
                     {"NS.objects", list({self, self})},
                     {"type", 2},
                     {"url", self},
                     {"NS.relative", self},
                     {"NS.base", self}}));
    EXPECT_FALSE(
        rowsOf(readBackgroundItems(circle.finished({{"version", 4}, {"store", self}}).binary()))
            .empty());

    // 2,000 accounts that share one list of 2,000 items: what fits, and a word that there is more.
    Archive crowd;
    const Plist one = crowd.add(dict({{"type", 2}, {"name", crowd.add("x")}}));
    const Plist many = crowd.addList(std::vector<Plist>(2000, one));
    const Plist accounts = crowd.addDictionary(Plist::Entries(2000, {"u", many}));
    const Plist store = crowd.add(dict({{"itemsByUserIdentifier", accounts}}));
    const auto read =
        readBackgroundItems(crowd.finished({{"version", 4}, {"store", store}}).binary());
    ASSERT_TRUE(read);
    EXPECT_LE(read->entries.size(), kMostFactsOfASource);
    EXPECT_FALSE(read->problem.empty());
}

TEST(LoginItems, HooksRulesAndExtensions)
{
    const Plist hooks = dict({{"LoginHook", "/x/in.sh"},
                              {"LogoutHook", "/x/out.sh"},
                              {"AutoLaunchedApplicationDictionary",
                               list({dict({{"Path", "/A.app"}, {"Hide", true}})})}});
    EXPECT_THAT(rowsOf(readLoginHooks(hooks.xml())),
                ElementsAre("LoginHook: /x/in.sh [at every login] as root",
                            "LogoutHook: /x/out.sh [at every logout] as root",
                            "A.app: /A.app [at login] hidden"));
    EXPECT_THAT(rowsOf(readLoginHooks(dict({}).xml())), IsEmpty());

    const Plist run =
        dict({{"type", "Run"}, {"command", "/x"}, {"user", "root"}, {"arguments", list({"-a"})}});
    const Plist rules = list({dict({{"name", "r"},
                                    {"enabled", true},
                                    {"eventTypes", list({"startup"})},
                                    {"actions", list({run, dict({{"type", "Log"}})})}})});
    EXPECT_THAT(rowsOf(readEventRules(rules.xml())),
                ElementsAre("r: /x -a [at the event startup] as root on"));

    const Plist extension =
        dict({{"identifier", "com.e"}, {"teamID", "T1"}, {"state", "activated_enabled"}});
    EXPECT_THAT(rowsOf(readSystemExtensions(dict({{"extensions", list({extension})}}).xml())),
                ElementsAre("com.e:  [activated_enabled] on by T1"));
    for (const auto& bytes : {""s, "x"s, Plist("x").xml()}) {
        EXPECT_FALSE(readLoginItems(bytes));
        EXPECT_FALSE(readLoginHooks(bytes));
        EXPECT_FALSE(readEventRules(bytes));
        EXPECT_FALSE(readSystemExtensions(bytes));
    }
    EXPECT_FALSE(readEventRules(dict({}).xml()) || readSystemExtensions(dict({}).xml()));
}

TEST(SystemFiles, Crontabs)
{
    EXPECT_THAT(
        rowsOf(readCrontab("# comment\nMAILTO=a@b\nPATH = /bin\n\n"
                           "*/5 *\t* * * /x/y -a | z\r\n@reboot /boot.sh\n1 2 3 4 5 echo a=b",
                           Crontab::OfUser)),
        ElementsAre("/x/y -a | z: /x/y [*/5 *\t* * *]", "/boot.sh: /boot.sh [@reboot]",
                    "echo a=b:  [1 2 3 4 5]"));
    EXPECT_THAT(rowsOf(readCrontab("0 0 * * * root /x\nbroken\n", Crontab::OfSystem)),
                ElementsAre("/x: /x [0 0 * * *] as root", "problem: line 2 is not understood"));
    EXPECT_THAT(rowsOf(readCrontab("", Crontab::OfUser)), IsEmpty());
}

TEST(SystemFiles, RemoteAccess)
{
    EXPECT_THAT(rowsOf(readAuthorisedKeys("# mine\nssh-ed25519 AAAA a\n\n  \nssh-rsa B b")),
                ElementsAre("Keys that may log in: 2 keys"));
    EXPECT_THAT(rowsOf(readAuthorisedKeys("#\n")), IsEmpty());
    EXPECT_THAT(rowsOf(readHosts("##\n127.0.0.1\tlocalhost\n255.255.255.255\tbroadcasthost\n"
                                 "::1             localhost\nfe80::1%lo0 localhost\n"
                                 "127.0.0.1 bank.example # x\n")),
                ElementsAre("Line of the hosts file: 127.0.0.1 bank.example # x"));
    std::string long_;
    for (int i = 0; i < 1500; ++i)
        long_ += "0.0.0.0 a" + std::to_string(i) + "\n";
    const auto many = rowsOf(readHosts(long_));
    EXPECT_EQ(many.size(), 1001U);
    EXPECT_EQ(many.back(), "Lines of the hosts file: 500 more lines");

    const Plist service = dict({{"UserDefinedName", "Wi-Fi"},
                                {"DNS", dict({{"ServerAddresses", list({"1.2.3.4", "5.6.7.8"})}})},
                                {"Proxies", dict({{"HTTPEnable", 1},
                                                  {"HTTPProxy", "p.example"},
                                                  {"HTTPPort", 8080},
                                                  {"SOCKSEnable", 0},
                                                  {"SOCKSProxy", "s.example"}})}});
    EXPECT_THAT(
        rowsOf(readNetworkSettings(dict({{"NetworkServices", dict({{"U-1", service}})}}).xml())),
        ElementsAre("Name servers (DNS) set by hand: 1.2.3.4, 5.6.7.8 (Wi-Fi)",
                    "Proxy for web pages on: p.example:8080 (Wi-Fi)",
                    "Proxy for all connections (SOCKS) off: s.example (Wi-Fi)"));
    EXPECT_THAT(rowsOf(readRemoteManagement(dict({{"ARD_AllLocalUsers", true},
                                                  {"VNCLegacyConnectionsEnabled", 0},
                                                  {"ScreenSharingReqPermEnabled", "?"}})
                                                .xml())),
                ElementsAre("Remote management: every account may be used on",
                            "Remote management: viewers with a password of their own off"));
}

TEST(Bookmarks, ForeignBytesGiveNoPath)
{
    const std::string whole = bookmark({"Users", "alice", "x.app"});
    EXPECT_EQ(pathOfBookmark(whole), "/Users/alice/x.app");
    for (std::size_t length = 0; length + 4 < whole.size(); ++length)
        EXPECT_EQ(pathOfBookmark(std::string_view(whole).substr(0, length)), "") << length;
    // Behind the head: tag, length, text, and the end's tag.
    const std::string head = "\0\0\0\0\0\x80\0\x03"s + std::string(50, '\0');
    EXPECT_EQ(
        pathOfAlias(head + "\0\x12\0\x05"s + "A/b.c" + "\0"s + "\0\x13\0\x01/\0\xff\xff\0\0"s),
        "/A/b.c");
    EXPECT_EQ(pathOfAlias(head + "\0\x12\0\x03"s + "x/y" + "\0"s + "\0\x13\0\x08"s + "/Volumes" +
                          "\xff\xff"),
              "/Volumes/x/y");
    EXPECT_EQ(pathOfAlias(head + "\0\x12\xff\x05"s + "A/b.c"), "");
    EXPECT_EQ(pathOfAlias("\0\0"s), "");
}

TEST(RealFiles, GiveTheirRows)
{
    if (samplePath("").empty())
        GTEST_SKIP() << "PRYVANE_SAMPLES names no folder of real files";
    EXPECT_THAT(
        rowsOf(readBackgroundItems(contentOf(samplePath("BackgroundItems-v4.btm")))),
        ElementsAre("Syncthing: /Applications/Syncthing.app [at login] on in "
                    "com.github.xor-gate.syncthing-macosx for B39008E8",
                    "amsdstat: /usr/libexec/amsdstat [daemon] on in Unknown Developer for "
                    "FFFFEEEE",
                    "postfixsetup: /usr/libexec/postfix/postfixsetup [daemon] on in Unknown "
                    "Developer for FFFFEEEE"));
    EXPECT_THAT(rowsOf(readBackgroundItems(contentOf(samplePath("backgrounditems-sierra.btm")))),
                ElementsAre("Syncthing.app: /Applications/Syncthing.app [at login]"));
    EXPECT_THAT(rowsOf(readLoginItems(contentOf(samplePath("com.apple.loginitems.plist")))),
                ElementsAre("iTunesHelper: /Applications/iTunes.app/Contents/MacOS/"
                            "iTunesHelper.app [at login] hidden"));
    const auto job = readLaunchJob(contentOf(samplePath("launchd.plist")));
    ASSERT_TRUE(job);
    EXPECT_EQ(textOf(*job),
              "com.foobar.test: /Test --flag arg1 [when loaded; kept running; every 3600 seconds; "
              "at month 1, 12:00; at month 1, 13:00; when /tmp/dir changes; when /tmp/exist "
              "changes; while something lies in /tmp/queue; when a disk is mounted] as nobody");
}

} // namespace pryvane::test
