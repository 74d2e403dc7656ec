#include "removal/disk/JournalScene.h"
#include "removal/disk/VolumeRemover.h"

#include <gtest/gtest.h>

#include <csignal>
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

void removeAll(JournalScene& scene)
{
    RemovalJournalFile journal(scene.data.path(), *scene.disk, scene.clock);
    VolumeRemover remover(*scene.disk, journal, {scene.data.path()});
    remover.remove(scene.items(), StopFlag(), [](std::size_t, const RemovalResult&) {});
}

/// Kills it at its steps, evenly chosen, and looks each time what journal and disk say.
TEST(RemovalCrash, JournalAndDiskAgreeWhereverTheProgramIsKilled)
{
    JournalScene scene;
    const auto work = [&] { removeAll(scene); };
    int steps = 0, kills = 0;
    if (killedAt(0, work, steps) == End::NotAllowed)
        GTEST_SKIP() << "this host does not let one program step through another";
    const int stride = std::max(1, steps / std::max(1, sizeAsked("PRYVANE_TEST_KILLS", 500)));
    auto end = End::Killed;
    for (int step = 1, taken = 0; end == End::Killed; step += stride) {
        scene.setUp();
        end = killedAt(step, work, taken);
        kills += end == End::Killed ? 1 : 0;
        ASSERT_EQ(scene.disagreement(), "") << "killed at step " << step;
    }
    RecordProperty("kills", kills);
    EXPECT_GT(kills, 20);
    EXPECT_FALSE(scene.volume.contains("/a/folder")) << "the last run was not killed";
}

} // namespace

} // namespace pryvane::test
