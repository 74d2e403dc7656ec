#include "removal/disk/VolumeRemover.h"
#include "support/JournalScene.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <sys/ptrace.h>
#include <sys/wait.h>

namespace pryvane::test {

namespace {

enum class End : std::uint8_t { Killed, ByItself, NotAllowed };

/// Runs the work in a process of its own and kills that at its n-th entry into the kernel or return
/// from it, whichever of its threads that is; `taken` are the steps it came to.
End killedAt(int step, const std::function<void()>& work, int& taken)
{
    taken = 0;
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            _exit(77);
        if (raise(SIGSTOP) != 0)
            _exit(77);
        work();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, __WALL);
    if (!WIFSTOPPED(status))
        return End::NotAllowed;
    ptrace(PTRACE_SETOPTIONS, child, nullptr,
           PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_EXITKILL);
    ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    while (true) {
        const pid_t thread = waitpid(-1, &status, __WALL);
        if (thread < 0)
            return End::ByItself;
        if (!WIFSTOPPED(status)) {
            if (thread != child)
                continue; // one of its threads
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
            return End::ByItself;
        }
        const int signal = WSTOPSIG(status);
        if (signal == (SIGTRAP | 0x80) && ++taken == step) {
            kill(child, SIGKILL);
            while (waitpid(-1, &status, __WALL) > 0 || errno == EINTR) {
            }
            return End::Killed;
        }
        const bool ours = signal == (SIGTRAP | 0x80) || signal == SIGTRAP || signal == SIGSTOP;
        ptrace(PTRACE_SYSCALL, thread, nullptr, ours ? 0L : static_cast<long>(signal));
    }
}

/// Kills the work at its steps, evenly chosen, and looks each time what journal and disk say.
struct Verdict {
    int kills = 0;
    int disagreements = 0;
    std::string first;
    bool allowed = true;
};

int killsWanted()
{
    const char* wanted = std::getenv("PRYVANE_TEST_KILLS");
    return wanted ? std::max(1, std::atoi(wanted)) : 500;
}

Verdict killedEverywhere(JournalScene& scene, int most, const std::function<void()>& work)
{
    Verdict verdict;
    int steps = 0;
    verdict.allowed = killedAt(0, work, steps) != End::NotAllowed;
    if (!verdict.allowed)
        return verdict;
    const int stride = std::max(1, steps / most);
    for (int step = 1, taken = 0;; step += stride) {
        scene.setUp();
        const End end = killedAt(step, work, taken);
        const std::string wrong = scene.disagreement();
        verdict.kills += end == End::Killed ? 1 : 0;
        if (!wrong.empty() && verdict.disagreements++ == 0)
            verdict.first = "killed at step " + std::to_string(step) + ": " + wrong;
        if (end == End::ByItself)
            return verdict;
    }
}

void removeAll(JournalScene& scene, RemovalJournal& journal)
{
    VolumeRemover remover(*scene.disk, journal, {scene.data.path()});
    remover.remove(scene.items(), StopFlag(), [](std::size_t, const RemovalResult&) {});
}

TEST(RemovalCrash, JournalAndDiskAgreeWhereverTheProgramIsKilled)
{
    JournalScene scene;
    const Verdict verdict = killedEverywhere(scene, killsWanted(), [&] {
        RemovalJournalFile journal(scene.data.path(), *scene.disk, scene.clock);
        removeAll(scene, journal);
    });
    if (!verdict.allowed)
        GTEST_SKIP() << "this host does not let one program step through another";
    RecordProperty("kills", verdict.kills);
    EXPECT_EQ(verdict.disagreements, 0) << verdict.first;
    EXPECT_GT(verdict.kills, 20);
    EXPECT_FALSE(scene.volume.contains("/a/folder")) << "the last run was not killed";
}

/// Without an intention in the journal the harness must see that something went.
TEST(RemovalCrash, TheHarnessSeesARemovalWithoutAJournal)
{
    JournalScene scene;
    const Verdict verdict = killedEverywhere(scene, 60, [&] {
        NoRemovalJournal none;
        removeAll(scene, none);
    });
    if (!verdict.allowed)
        GTEST_SKIP() << "this host does not let one program step through another";
    EXPECT_NE(verdict.first.find("without an intention"), std::string::npos) << verdict.first;
}

} // namespace

} // namespace pryvane::test
