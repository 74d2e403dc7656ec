#include "app/views/Faces.h"
#include "browser/BrowserFixture.h"
#include "browser/views/ReportBrowserView.h"
#include "cli/CliFixture.h"
#include "hosts/qt/EventLoop.h"
#include "hosts/qt/QtMainLoop.h"
#include "reports/pdf/PDFGenerate.h"
#include "reports/pdf/PdfFixtures.h"
#include "store/SqliteUserDefaults.h"
#include "support/DesktopFakes.h"
#include "support/Volumes.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QTest>

#include <filesystem>
#include <iostream>
#include <map>
#include <unistd.h>

namespace pryvane::test {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr uid_t kNobody = 65534;

/// A disk with a finding in a home of mode 0700 and one outside it, another disk without them, and
/// the store with the report of the first.
struct Scene {
    Scene()
    {
        setenv("PRYVANE_DATA_DIR", data.path().c_str(), 1);
        volume.file("/Users/alice/Library/LaunchAgents/com.refog.agent.plist");
        other.folder("/Users/alice");
        made = command({"scan", "--user", "alice"}, volume.path()).code == 1;
        std::filesystem::permissions(volume.hostPath("/Users/alice"), std::filesystem::perms(0700));
        for (const auto* folder : {&volume, &other, &data, &out})
            std::filesystem::permissions(folder->path(), std::filesystem::perms(0777));
        for (const auto& entry : std::filesystem::directory_iterator(data.path()))
            std::filesystem::permissions(entry.path(), std::filesystem::perms(0666));
    }

    static Outcome command(std::vector<std::string> arguments, const std::string& at)
    {
        arguments.insert(arguments.end(), {"--volume", at});
        StopFlag never;
        return onConsole({.interrupted = never}, [&](const cli::Console& console) {
            return cli::CommandLine().run(std::move(arguments), console);
        });
    }

    TemporaryFolder volume, other, data, out;
    bool made = false;
};

Scene* scene = nullptr;

/// What the details of the stored report say in the window, looked at from that disk.
std::string detailsFrom(const TemporaryFolder& folder)
{
    RecordingLog log;
    auto opened = SqliteUserDefaults::openReadOnly(scene->data.path(), log);
    EXPECT_TRUE(opened.ok());
    const auto disk = volumeAt(folder, NameMatching::AsOnMac);
    NotificationCenter notifications;
    QtMainQueue queue;
    FakeClock clock;
    ScriptedAlerts alerts;
    ScriptedFolderPicker picker;
    FakeWorkspace workspace;
    RecordingUserNotifier notifier;
    RecordingHost host;
    StubbornRemover remover(*disk);
    FakeMachine machine;
    PDFGenerate pdf{factsIn(scene->out.path()), *disk, machine};
    ReportPrinting printing{pdf, host, log};
    ReportViewController browser({*disk, *opened->defaults, notifications, queue, clock, alerts,
                                  picker, workspace, notifier, log},
                                 {host, host, printing, remover, "alice"});
    ReportBrowserView view(browser, {queue, pdf, "alice", {}});
    view.resize(1000, 700);
    view.show();
    const auto settled = [&] { return runUntil([&] { return !browser.isBusy(); }); };
    browser.viewWillAppear();
    EXPECT_TRUE(settled());
    const std::string list = textOf(view);
    browser.selectRow(0);
    browser.viewReport();
    EXPECT_TRUE(settled());
    runFor(std::chrono::milliseconds(50));
    const std::string details = textOf(view);
    view.hide();
    return list + details;
}

/// Somebody else than the home's owner looks at its report.
TEST(HiddenHome, WhatCannotBeAskedIsNeverToldAsGone)
{
    const std::string id = [&] {
        const std::string list = Scene::command({"report", "list"}, scene->volume.path()).out;
        return list.substr(0, list.find(' '));
    }();
    for (const TemporaryFolder* folder : {&scene->volume, &scene->other}) {
        SCOPED_TRACE(folder == &scene->other ? "another disk" : "a home of mode 0700");
        const auto told = [&](std::vector<std::string> command) {
            const Outcome outcome = Scene::command(std::move(command), folder->path());
            EXPECT_EQ(outcome.code, 0) << outcome.err;
            return outcome.out + "\n" + outcome.err;
        };
        const std::string file = scene->out.hostPath("report.pdf");
        std::map<std::string, std::string> faces{
            {"show", told({"report", "show", id})},
            {"json", told({"report", "export", id})},
            {"csv", told({"report", "export", id, "--format", "csv"})},
            {"html", told({"report", "export", id, "--format", "html"})},
            {"window", detailsFrom(*folder)},
            {"pdf", told({"report", "pdf", id, file})}};
        faces["pdf"] += joinedTextOf(file);
        const std::map<std::string, std::string> words{
            {"show", " unknown "},      {"json", "\"presence\": \"unknown\""},
            {"csv", ",unknown,alice,"}, {"html", "<td>not known: "},
            {"window", "not known"},    {"pdf", "Not Checked"}};
        for (const auto& [face, text] : faces) {
            SCOPED_TRACE(face + ": " + text);
            EXPECT_THAT(text, HasSubstr("com.refog.agent.plist"));
            EXPECT_THAT(text, HasSubstr(words.at(face)));
            for (const char* wrong : {"gone", "Gone", "<td>no</td>", ",no,", "\"gone\"", "absent",
                                      "Removed", "Quarantined"})
                EXPECT_THAT(text, Not(HasSubstr(wrong)));
        }
    }
}

} // namespace
} // namespace pryvane::test

int main(int argc, char** argv)
{
    if (geteuid() != 0) {
        std::cout << "only root may become another user\n";
        return 77;
    }
    testing::InitGoogleTest(&argc, argv);
    pryvane::test::Scene made;
    pryvane::test::scene = &made;
    if (!made.made || setresuid(0, pryvane::test::kNobody, 0) != 0)
        return 1;
    int code = 0;
    {
        QApplication::setSetuidAllowed(true);
        QApplication application(argc, argv);
        pryvane::ui::applyTheme(application);
        code = RUN_ALL_TESTS();
    }
    // The folders are taken away by whom they belong to.
    return setresuid(0, 0, 0) == 0 ? code : 1;
}
