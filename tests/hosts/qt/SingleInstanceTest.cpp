#include "hosts/posix/SingleInstance.h"

#include "hosts/linux/XdgFolders.h"
#include "hosts/qt/EventLoop.h"
#include "hosts/qt/InstanceServer.h"
#include "support/TemporaryFolder.h"
#include "support/UnixSocket.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <functional>
#include <future>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace pryvane::test {
namespace {

using std::chrono::milliseconds;

/// No answer takes longer, and this much more is a busy machine's own.
constexpr milliseconds kLimit = SingleInstance::kPatience + milliseconds(3000);
constexpr uid_t kNobody = 65534;

struct SingleInstanceTest : testing::Test {
    TemporaryFolder folder;
    std::vector<InstanceRequest> taken;

    [[nodiscard]] SingleInstance claim() const
    {
        return SingleInstance::claim(folder.path(), folder.path()).value();
    }

    [[nodiscard]] InstanceServer serverOf(SingleInstance& first)
    {
        return {first.listen().value(), [this](const auto& request) { taken.push_back(request); }};
    }

    /// As a second program does it; this one's events go on meanwhile.
    [[nodiscard]] Result<Done> handOver(const InstanceRequest& request) const
    {
        auto outcome = std::async(std::launch::async, [&] { return claim().handOver(request); });
        static_cast<void>(runUntil(
            [&] { return outcome.wait_for(milliseconds(0)) == std::future_status::ready; }));
        return outcome.get();
    }

    /// In a process of its own, which `stage` must not leave; -1 where it cannot be made.
    static pid_t inProcess(uid_t user, const std::function<void()>& stage)
    {
        int ends[2];
        if (pipe(ends) != 0)
            return -1;
        const pid_t child = fork();
        if (child == 0) {
            if (user != geteuid() && setuid(user) != 0)
                _exit(1);
            stage();
            static_cast<void>(!write(ends[1], "x", 1));
            pause();
            _exit(0);
        }
        char ready = 0;
        close(ends[1]);
        static_cast<void>(!read(ends[0], &ready, 1));
        close(ends[0]);
        return child;
    }

    static void end(pid_t child)
    {
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
};

TEST_F(SingleInstanceTest, handsRequestsOver)
{
    SingleInstance first = claim();
    ASSERT_TRUE(first.isFirst());
    const InstanceServer server = serverOf(first);
    const std::vector<InstanceRequest> requests = {
        {},
        {"/mnt/a b\xff\n", "al%ice", true, "token-1"},
        {std::nullopt, "", false, ""},
        {"/" + std::string(3900, 'v'), std::nullopt, true, ""},
    };
    for (const auto& request : requests) {
        EXPECT_FALSE(claim().isFirst());
        EXPECT_TRUE(handOver(request).ok());
    }
    EXPECT_EQ(taken, requests);
    EXPECT_FALSE(handOver({"/" + std::string(kInstanceMessageLimit, 'v'), {}, false, ""}).ok());
    EXPECT_FALSE(handOver({std::string("/a\0b", 4), {}, false, ""}).ok());
    EXPECT_EQ(taken.size(), requests.size());
}

TEST_F(SingleInstanceTest, strangersHoldNobodyUp)
{
    SingleInstance first = claim();
    const InstanceServer server = serverOf(first);
    const std::string valid = encoded({"/volume", {}, false, ""}).value();
    const std::vector<std::string> strange = {
        "",
        "GET / HTTP/1.1\r\n\r\n",
        valid.substr(0, valid.size() - 1),
        valid + "unknown=1" + '\0',
        encoded({"relative", {}, false, ""}).value(),
        valid + std::string(64 * 1024, '\0'),
    };
    std::vector<UniqueFd> silent;
    for (int i = 0; i < 10; ++i)
        silent.push_back(connectedTo(first.socketPath()));
    for (const std::string& message : strange) {
        const UniqueFd sender = connectedTo(first.socketPath());
        ASSERT_TRUE(sender);
        send(sender.get(), message.data(), message.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        shutdown(sender.get(), SHUT_WR);
        Result<Done> outcome = Done{};
        EXPECT_LT(timeOf([&] { outcome = handOver({}); }), kLimit);
        EXPECT_TRUE(outcome.ok());
    }
    EXPECT_EQ(taken, std::vector<InstanceRequest>(strange.size()));
    // Those that say nothing are let go.
    char byte = 0;
    EXPECT_TRUE(runUntil([&] { return recv(silent.back().get(), &byte, 1, MSG_DONTWAIT) == 0; }));
}

TEST_F(SingleInstanceTest, aSilentOrKilledFirst)
{
    const pid_t first = inProcess(geteuid(), [&] {
        static auto held = claim();
        static auto socket = held.listen();
    });
    ASSERT_FALSE(claim().isFirst());
    Result<Done> outcome = Done{};
    EXPECT_LT(timeOf([&] { outcome = claim().handOver({}); }), kLimit);
    ASSERT_FALSE(outcome.ok());
    EXPECT_NE(outcome.error().message.find("does not answer"), std::string::npos);

    end(first);
    SingleInstance next = claim();
    EXPECT_TRUE(next.isFirst());
    const InstanceServer server = serverOf(next);
    EXPECT_TRUE(handOver({}).ok());
}

TEST_F(SingleInstanceTest, otherUsersAreNotBelieved)
{
    if (!runningAsRoot())
        GTEST_SKIP() << "acting as another user needs root";
    chmod(folder.path().c_str(), 0777);
    {
        const SingleInstance first = claim();
        const pid_t thief = inProcess(kNobody, [&] {
            static const UniqueFd listening = listeningAt(first.socketPath());
            if (!listening)
                _exit(1);
        });
        const auto outcome = claim().handOver({});
        ASSERT_FALSE(outcome.ok());
        EXPECT_NE(outcome.error().message.find("another user"), std::string::npos);
        end(thief);
    }
    SingleInstance first = claim();
    const InstanceServer server = serverOf(first);
    chmod(first.socketPath().c_str(), 0777);
    const pid_t stranger = inProcess(kNobody, [&] {
        const UniqueFd fd = connectedTo(first.socketPath());
        const std::string message = encoded({}).value();
        send(fd.get(), message.data(), message.size(), 0);
        shutdown(fd.get(), SHUT_WR);
    });
    runFor(milliseconds(100));
    EXPECT_TRUE(taken.empty());
    end(stranger);

    // Their own store is no business of ours.
    const TemporaryFolder own;
    EXPECT_TRUE(SingleInstance::claim(own.path(), own.path()).value().isFirst());
}

TEST_F(SingleInstanceTest, takesOnlyAPrivateRuntimeFolder)
{
    folder.folder("open");
    folder.folder("data");
    const std::string open = folder.hostPath("open");
    const std::string own = folder.hostPath("data/run");
    chmod(open.c_str(), 0755);
    setenv("XDG_RUNTIME_DIR", open.c_str(), 1);
    EXPECT_EQ(xdg::runtimeFolder(folder.hostPath("data")).value(), own);
    chmod(open.c_str(), 0700);
    EXPECT_EQ(xdg::runtimeFolder(folder.hostPath("data")).value(), open);
    unsetenv("XDG_RUNTIME_DIR");
    chmod(own.c_str(), 0750);
    EXPECT_FALSE(xdg::runtimeFolder(folder.hostPath("data")).ok());
}

} // namespace
} // namespace pryvane::test
