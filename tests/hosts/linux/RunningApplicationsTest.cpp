#include "hosts/Host.h"
#include "hosts/linux/RunningPrograms.h"
#include "platform/Machine.h"
#include "support/RunningProgram.h"
#include "volume/VolumeFileSystem.h"

#include <gmock/gmock.h>

namespace pryvane {
namespace {

using test::TemporaryFolder;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kRest = " 1 2 2 0 -1 4194560 100 0 0 0 1 1";

TEST(RunningApplications, KnowsAProcessByItsProgram)
{
    test::RunningProgram running("firefox-esr");
    EXPECT_THAT(runningApplicationsOfHost(running.processes()), ElementsAre("Firefox"));
    running.quit();
    EXPECT_THAT(runningApplicationsOfHost(running.processes()), IsEmpty());
    const test::RunningProgram other("firefox2");
    EXPECT_THAT(runningApplicationsOfHost(other.processes()), IsEmpty());
}

TEST(RunningApplications, TellsEachOnceAndIsNotLedAstray)
{
    const TemporaryFolder processes;
    const auto process = [&](const std::string& number, const std::string& stat) {
        processes.file(number + "/stat", stat);
    };
    process("10", "10 (firefox) S" + kRest);
    process("11", "11 (firefox) S" + kRest);
    process("12", "12 (chrome) Z" + kRest);              // a zombie
    process("13", "13 (chrome) S 2 0 0 0 -1 2129984 0"); // a thread of the kernel
    process("14", "14 (x) S 1 2 2 0 -1 0 (chrome) R" + kRest);
    process("15", "15 (\n\xff\x1b[2J) R 1) S" + kRest);
    process("16", "16 (Safari");
    process("17", ")(");
    process("18", "");
    process("19", std::string(100'000, '('));
    process("20", "20 (chrome) S 1");
    processes.folder("21");
    processes.file("22", "a file");
    process("self", "9 (Safari) S" + kRest);
    // What runs under another's name, with a program that is known to be another.
    process("23", "23 (Safari) S" + kRest);
    processes.link("23/exe", "/usr/bin/something (deleted)");
    EXPECT_THAT(runningApplicationsOfHost(processes.path()), ElementsAre("Firefox"));

    process("24", "24 (GeckoMain) S" + kRest);
    processes.link("24/exe", "/opt/google/chrome/chrome (deleted)");
    EXPECT_THAT(runningApplicationsOfHost(processes.path()),
                ElementsAre("Google Chrome", "Firefox"));
    EXPECT_THAT(runningApplicationsOfHost(processes.hostPath("missing")), IsEmpty());
}

TEST(RunningApplications, HaveNothingToDoWithAMountedVolume)
{
    const test::RunningProgram running("firefox");
    const TemporaryFolder folder;
    const auto disk = VolumeFileSystem::open(folder.path());
    ASSERT_TRUE(disk);
    const auto host = makeHost();
    EXPECT_THAT(host->workspace(**disk, {}, false)->runningApplications(), IsEmpty());
    EXPECT_THAT(host->workspace(**disk, {}, true)->runningApplications(), Contains("Firefox"));
}

} // namespace
} // namespace pryvane
