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

/// "label: program arguments [when] as USER on|off hidden in APPLICATION for UUID by DEVELOPER".
std::string textOf(const StartUpItem& item)
{
    std::string text = item.label + ": " + item.programText;
    if (!item.arguments.empty())
        text += " " + joined(item.arguments, " ");
    text += " [" + joined(item.when, "; ") + "]";
    if (!item.runsAs.empty())
        text += " as " + item.runsAs;
    text += item.state == OnOff::On ? " on" : item.state == OnOff::Off ? " off" : "";
    text += item.hidden ? " hidden" : "";
    text += item.application.empty() ? "" : " in " + item.application;
    text += item.origin.user.empty() ? "" : " for " + item.origin.user.substr(0, 8);
    return text + (item.developer.empty() ? "" : " by " + item.developer);
}

std::string textOf(const RemoteFact& fact)
{
    return fact.what +
           (fact.state == OnOff::On    ? " on"
            : fact.state == OnOff::Off ? " off"
                                       : "") +
           (fact.detail.empty() ? "" : ": " + fact.detail);
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

std::string jobText(const std::string& entries)
{
    const auto job = readLaunchJob(xmlOf(element("dict", entries)));
    return job ? textOf(*job) : job.error().message;
}

std::string arrayOf(const std::vector<std::string>& texts)
{
    std::string all;
    for (const std::string& text : texts)
        all += string(text);
    return element("array", all);
}

const std::string kYes = "<true/>";
const std::string kNo = "<false/>";

/// One record of the newer background items.
std::string record(Archive& archive, const std::vector<std::pair<std::string, std::string>>& fields)
{
    std::string all;
    for (const auto& [key, value] : fields)
        all += entry(key, value);
    return archive.add(element("dict", all));
}

/// The newer background items with two accounts, as version `version`.
std::string backgroundItems(long long version, Archive::Form form = Archive::Form::Binary)
{
    Archive archive;
    const std::string group =
        record(archive, {{"type", integer(32)}, {"identifier", archive.addText("Some Developer")}});
    const std::string daemon =
        record(archive, {{"type", integer(0x10010)},
                         {"disposition", integer(3)},
                         {"identifier", archive.addText("com.a.daemon")},
                         {"name", archive.addText("daemon")},
                         {"url", archive.addUrl("file:///Library/LaunchDaemons/a%20b.plist")},
                         {"executablePath", archive.addText("/usr/local/bin/a")},
                         {"programArguments", archive.addList({archive.addText("-x")})}});
    const std::string app =
        record(archive, {{"type", integer(2)},
                         {"disposition", integer(3)},
                         {"identifier", archive.addText("2.com.b")},
                         {"name", archive.addText("B")},
                         {"bundleIdentifier", archive.addText("com.b")},
                         {"url", archive.addUrl("file:///Applications/B.app/")}});
    const std::string inside =
        record(archive, {{"type", integer(8)},
                         {"disposition", integer(6)},
                         {"identifier", archive.addText("8.com.b.agent")},
                         {"container", archive.addText("2.com.b")},
                         {"developerName", archive.addText("Bee")},
                         {"url", archive.addUrl("Contents/Library/LaunchAgents/b.plist")}});
    const std::string store = archive.add(element(
        "dict",
        entry("itemsByUserIdentifier",
              archive.addDictionary(
                  {{std::string(kSystemItems), archive.addList({group, daemon})},
                   {"B39008E8-5A4C-4551-B795-07EB2968EAEF", archive.addList({app, inside})}}))));
    return archive.finished(entry("version", integer(version)) + entry("store", store), form);
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
    const struct {
        const char* what;
        std::string job;
        std::string text;
    } rows[] = {
        {"arguments alone",
         entry("Label", string("a")) + entry("ProgramArguments", arrayOf({"/bin/sh", "-c", "x"})) +
             entry("RunAtLoad", kYes),
         "a: /bin/sh -c x [when loaded]"},
        {"a program with its own name first",
         entry("Label", string("a")) + entry("Program", string("/opt/x/k")) +
             entry("ProgramArguments", arrayOf({"k", "-v"})),
         "a: /opt/x/k -v []"},
        {"a program and arguments without it",
         entry("Label", string("a")) + entry("Program", string("/Test")) +
             entry("ProgramArguments", arrayOf({"--flag", "arg1"})),
         "a: /Test --flag arg1 []"},
        {"inside a bundle",
         entry("Label", string("a")) + entry("BundleProgram", string("Contents/MacOS/h")),
         "a: Contents/MacOS/h []"},
        {"every time there is",
         entry("Label", string("a")) + entry("KeepAlive", kYes) +
             entry("StartInterval", integer(60)) +
             entry("StartCalendarInterval",
                   element("array", element("dict", entry("Hour", integer(3)) +
                                                        entry("Minute", integer(5))) +
                                        element("dict", entry("Weekday", integer(1))) +
                                        element("dict", entry("Minute", integer(7))))) +
             entry("WatchPaths", arrayOf({"/tmp/a"})) + entry("QueueDirectories", arrayOf({"/q"})) +
             entry("StartOnMount", kYes) + entry("MachServices", element("dict", entry("x", kYes))),
         "a:  [kept running; every 60 seconds; at 03:05; at weekday 1; at minute 7 of each hour; "
         "when /tmp/a changes; while something lies in /q; when a disk is mounted; when asked "
         "for]"},
        {"kept running under conditions",
         entry("Label", string("a")) +
             entry("KeepAlive", element("dict", entry("SuccessfulExit", kNo))),
         "a:  [kept running under conditions]"},
        {"as somebody, switched off",
         entry("Label", string("a")) + entry("UserName", string("root")) + entry("Disabled", kYes),
         "a:  [] as root off"},
        {"values of other kinds",
         entry("Label", string("a")) + entry("Program", integer(1)) +
             entry("ProgramArguments", string("x")) + entry("StartInterval", string("x")) +
             entry("WatchPaths", string("/x")) + entry("UserName", element("array", "")),
         "a:  []"},
        {"nothing", entry("Other", kYes),
         "it is not understood: it names neither a job nor a program"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(jobText(row.job), row.text) << row.what;
    EXPECT_FALSE(readLaunchJob(xmlOf(element("array", ""))));
    EXPECT_FALSE(readLaunchJob("no property list"));
    // The many arguments of no honest job are cut short.
    const auto many = readLaunchJob(xmlOf(
        element("dict", entry("ProgramArguments", arrayOf(std::vector<std::string>(5000, "x"))))));
    ASSERT_TRUE(many);
    EXPECT_LE(many->arguments.size(), kMostFactParts + 1);
}

TEST(LaunchJobs, SwitchedJobsInBothForms)
{
    using Jobs = std::vector<std::pair<std::string, bool>>;
    const Jobs expected = {{"com.openssh.sshd", false}, {"com.a", true}};
    const auto today = readDisabledJobs(
        binaryOf(element("dict", entry("com.openssh.sshd", kNo) + entry("com.a", kYes) +
                                     entry("com.b", string("?")))));
    const auto old = readDisabledJobs(
        xmlOf(element("dict", entry("com.openssh.sshd", element("dict", entry("Disabled", kNo))) +
                                  entry("com.a", element("dict", entry("Disabled", kYes))))));
    ASSERT_TRUE(today && old);
    EXPECT_EQ(*today, expected);
    EXPECT_EQ(*old, expected);
    EXPECT_FALSE(readDisabledJobs(xmlOf(element("array", ""))));
}

TEST(BackgroundItems, KnownVersionsAreRead)
{
    for (const long long version : {3, 4, 8, 13, 16, 17})
        EXPECT_THAT(
            rowsOf(readBackgroundItems(backgroundItems(
                version, version < 8 ? Archive::Form::Xml : Archive::Form::Binary))),
            ElementsAre("daemon: /usr/local/bin/a -x [daemon] on for FFFFEEEE",
                        "B: /Applications/B.app [at login] on in com.b for B39008E8",
                        "8.com.b.agent: /Applications/B.app/Contents/Library/LaunchAgents/"
                        "b.plist [agent] off hidden in /Applications/B.app for B39008E8 by Bee"))
            << version;

    // A file for each account.
    Archive archive;
    const std::string one = record(archive, {{"type", integer(4)}, {"name", archive.addText("L")}});
    const std::string store =
        archive.add(element("dict", entry("records", archive.addList({one}))));
    EXPECT_THAT(rowsOf(readBackgroundItems(
                    archive.finished(entry("version", integer(18)) + entry("userStore", store)))),
                ElementsAre("L:  [at login]"));
}

TEST(BackgroundItems, ContainersOfOlderSystems)
{
    Archive archive;
    const std::string mark = bookmark({"Applications", "Some App.app"});
    std::string base64;
    {
        static const char* kDigits =
            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        for (std::size_t i = 0; i + 2 < mark.size(); i += 3) {
            const auto at = [&](std::size_t j) { return static_cast<unsigned char>(mark[i + j]); };
            const unsigned all = at(0) << 16 | at(1) << 8 | at(2);
            for (int shift = 18; shift >= 0; shift -= 6)
                base64 += kDigits[all >> shift & 63];
        }
    }
    const std::string bookmarkObject =
        archive.add(element("dict", entry("data", archive.add(element("data", base64)))));
    const std::string item =
        archive.add(element("dict", entry("bookmark", bookmarkObject) + entry("hidden", kYes)));
    const std::string container =
        archive.add(element("dict", entry("internalItems", archive.addList({item}))));
    const std::string items =
        archive.add(element("dict", entry("allContainers", archive.addList({container}))));
    const std::string root =
        archive.addDictionary({{"version", archive.add(integer(2))}, {"backgroundItems", items}});
    EXPECT_THAT(rowsOf(readBackgroundItems(archive.finished(entry("root", root)))),
                ElementsAre("Some App.app: /Applications/Some App.app [at login] hidden"));
}

TEST(BackgroundItems, UnknownLayoutsAreNotAnEmptyList)
{
    Archive empty;
    Archive other;
    const std::string strange =
        other.add(element("dict", entry("itemsByRainbow", other.addList({}))));
    Archive untyped;
    const std::string list = untyped.addList({record(untyped, {{"name", untyped.addText("x")}})});
    const std::string store = untyped.add(
        element("dict", entry("itemsByUserIdentifier", untyped.addDictionary({{"u", list}}))));
    const struct {
        const char* what;
        std::string bytes;
    } rows[] = {
        {"no property list", "x"},
        {"no archive", binaryOf(element("dict", entry("version", integer(4))))},
        {"no version", empty.finished("")},
        {"a version to come", backgroundItems(19)},
        {"version 1", backgroundItems(1)},
        {"no items", empty.finished(entry("version", integer(4)))},
        {"items of another form",
         other.finished(entry("version", integer(4)) + entry("store", strange))},
        {"records of no kind",
         untyped.finished(entry("version", integer(4)) + entry("store", store))},
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
    const std::string self = reference(1);
    circle.add(element("dict", entry("itemsByUserIdentifier", self) + entry("NS.keys", self) +
                                   entry("NS.objects", element("array", self + self)) +
                                   entry("type", integer(2)) + entry("url", self) +
                                   entry("NS.relative", self) + entry("NS.base", self)));
    EXPECT_FALSE(rowsOf(readBackgroundItems(
                            circle.finished(entry("version", integer(4)) + entry("store", self))))
                     .empty());

    // 2,000 accounts that share one list of 2,000 items: what fits, and a word that there is more.
    Archive crowd;
    const std::string one = record(crowd, {{"type", integer(2)}, {"name", crowd.addText("x")}});
    const std::string many = crowd.addList(std::vector<std::string>(2000, one));
    std::vector<std::pair<std::string, std::string>> accounts(2000, {"u", many});
    const std::string store =
        crowd.add(element("dict", entry("itemsByUserIdentifier", crowd.addDictionary(accounts))));
    const auto read =
        readBackgroundItems(crowd.finished(entry("version", integer(4)) + entry("store", store)));
    ASSERT_TRUE(read);
    EXPECT_LE(read->entries.size(), kMostFactsOfASource);
    EXPECT_FALSE(read->problem.empty());
}

TEST(LoginItems, HooksRulesAndExtensions)
{
    EXPECT_THAT(
        rowsOf(readLoginHooks(xmlOf(element(
            "dict", entry("LoginHook", string("/x/in.sh")) +
                        entry("LogoutHook", string("/x/out.sh")) +
                        entry("AutoLaunchedApplicationDictionary",
                              element("array", element("dict", entry("Path", string("/A.app")) +
                                                                   entry("Hide", kYes)))))))),
        ElementsAre("LoginHook: /x/in.sh [at every login] as root",
                    "LogoutHook: /x/out.sh [at every logout] as root",
                    "A.app: /A.app [at login] hidden"));
    EXPECT_THAT(rowsOf(readLoginHooks(xmlOf(element("dict", "")))), IsEmpty());
    EXPECT_THAT(
        rowsOf(readEventRules(xmlOf(element(
            "array",
            element("dict",
                    entry("name", string("r")) + entry("enabled", kYes) +
                        entry("eventTypes", arrayOf({"startup"})) +
                        entry("actions",
                              element("array",
                                      element("dict", entry("type", string("Run")) +
                                                          entry("command", string("/x")) +
                                                          entry("user", string("root")) +
                                                          entry("arguments", arrayOf({"-a"}))) +
                                          element("dict", entry("type", string("Log")))))))))),
        ElementsAre("r: /x -a [at the event startup] as root on"));
    EXPECT_FALSE(readEventRules(xmlOf(element("dict", ""))));
    EXPECT_THAT(
        rowsOf(readSystemExtensions(xmlOf(element(
            "dict",
            entry("extensions",
                  element("array",
                          element("dict", entry("identifier", string("com.e")) +
                                              entry("teamID", string("T1")) +
                                              entry("state", string("activated_enabled"))))))))),
        ElementsAre("com.e:  [activated_enabled] on by T1"));
    EXPECT_FALSE(readSystemExtensions(xmlOf(element("dict", ""))));
    for (const auto& bytes : {""s, "x"s, xmlOf(string("x"))}) {
        EXPECT_FALSE(readLoginItems(bytes));
        EXPECT_FALSE(readLoginHooks(bytes));
        EXPECT_FALSE(readEventRules(bytes));
        EXPECT_FALSE(readSystemExtensions(bytes));
    }
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

    const std::string service = element(
        "dict",
        entry("UserDefinedName", string("Wi-Fi")) +
            entry("DNS",
                  element("dict", entry("ServerAddresses", arrayOf({"1.2.3.4", "5.6.7.8"})))) +
            entry("Proxies", element("dict", entry("HTTPEnable", integer(1)) +
                                                 entry("HTTPProxy", string("p.example")) +
                                                 entry("HTTPPort", integer(8080)) +
                                                 entry("SOCKSEnable", integer(0)) +
                                                 entry("SOCKSProxy", string("s.example")))));
    EXPECT_THAT(rowsOf(readNetworkSettings(xmlOf(element(
                    "dict", entry("NetworkServices", element("dict", entry("U-1", service))))))),
                ElementsAre("Name servers (DNS) set by hand: 1.2.3.4, 5.6.7.8 (Wi-Fi)",
                            "Proxy for web pages on: p.example:8080 (Wi-Fi)",
                            "Proxy for all connections (SOCKS) off: s.example (Wi-Fi)"));
    EXPECT_THAT(rowsOf(readRemoteManagement(
                    xmlOf(element("dict", entry("ARD_AllLocalUsers", kYes) +
                                              entry("VNCLegacyConnectionsEnabled", integer(0)) +
                                              entry("ScreenSharingReqPermEnabled", string("?")))))),
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
