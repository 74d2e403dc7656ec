// Every system call with which a command reaches its store fails, once or from then on.

#include "cli/CliFixture.h"
#include "platform/Messages.h"
#include "store/SqliteUserDefaults.h"
#include "support/FaultyCalls.h"
#include "support/StoreFixtures.h"
#include "support/Volumes.h"

#include <array>
#include <cerrno>
#include <filesystem>

namespace pryvane::test {

namespace {

using Lasting = FaultyCalls::Lasting;

struct Command {
    const char* name;
    std::vector<std::string> arguments;
    bool reads; ///< and changes nothing
};

class StoreFaults : public CliFixture, public testing::WithParamInterface<Command> {
protected:
    StoreFaults()
    {
        setenv("PRYVANE_DATA_DIR", store().c_str(), 1);
        volume.file("/tmp/.mdworker");
        scan();
        scan();
        EXPECT_EQ(reportIds().size(), 2U);
        sound = contentOf(file());
    }

    [[nodiscard]] std::string store() const { return shelf->hostPath("kept"); }
    [[nodiscard]] std::string file() const { return store() + "/" + std::string(kStoreFile); }

    void putBack()
    {
        std::filesystem::remove_all(store());
        std::filesystem::create_directory(store());
        setContent(file(), sound);
    }

    /// Runs it in a process of its own; "code count words".
    std::string runFaulty(const Command& command, int number, int error, Lasting lasting)
    {
        return inChild([&] {
            FaultyCalls::arm(store(), number, error, lasting);
            const Outcome outcome = run(command.arguments);
            const int counted = FaultyCalls::counted();
            FaultyCalls::disarm();
            return std::to_string(outcome.code) + " " + std::to_string(counted) + " " + outcome.err;
        });
    }

    /// The identities that a sound start finds.
    std::string reportsKept()
    {
        std::string ids;
        for (const std::string& id : reportIds())
            ids += id + "\n";
        return ids;
    }

    void tryAll(const Command& command)
    {
        putBack();
        const std::string before = reportsKept();
        const std::string whole = runFaulty(command, 0, 0, Lasting::Once);
        int code = -1, calls = 0;
        ASSERT_EQ(std::sscanf(whole.c_str(), "%d %d", &code, &calls), 2) << whole;
        ASSERT_GT(calls, 5);
        const std::array<int, 3> others = {ENOSPC, EMFILE, EACCES};
        for (int number = 1; number <= calls && !HasFailure(); ++number) {
            for (const auto lasting : {Lasting::Once, Lasting::FromThenOn}) {
                for (const int error : {EIO, others[static_cast<std::size_t>(number) % 3]}) {
                    SCOPED_TRACE(std::string(command.name) + ", call " + std::to_string(number) +
                                 (lasting == Lasting::Once ? ", " : " and on, ") +
                                 strerrordesc_np(error));
                    putBack();
                    tryOne(command, runFaulty(command, number, error, lasting), before);
                    ++tried;
                }
            }
        }
    }

    void tryOne(const Command& command, const std::string& told, const std::string& before)
    {
        SCOPED_TRACE(told);
        int code = -1;
        ASSERT_EQ(std::sscanf(told.c_str(), "%d", &code), 1);
        ASSERT_TRUE(code >= 0 && code <= 2);
        for (const std::string& name : namesIn(store()))
            ASSERT_EQ(name.find(".damaged"), std::string::npos) << name;
        ASSERT_TRUE(!command.reads || contentOf(file()) == sound)
            << "changed by a command that only reads";
        const std::string after = reportsKept();
        const bool untouched = after == before;
        const bool done = !untouched && (after.ends_with(before) || before.ends_with(after));
        // Where the last sync fails, SQLite rightly says "failed" of what stands on the disk.
        ASSERT_TRUE(command.reads ? untouched : code == 2 ? untouched || done : done) << after;
    }

    std::unique_ptr<TemporaryFolder> shelf = fastFolder();
    std::string sound;
    int tried = 0;
};

INSTANTIATE_TEST_SUITE_P(
    Commands, StoreFaults,
    testing::Values(Command{"List", {"report", "list"}, true},
                    Command{"Show", {"report", "show", "latest"}, true},
                    Command{"DryRun", {"remove", "latest", "--all", "--dry-run"}, true},
                    Command{"ScanWithoutStore", {"scan", "--no-store", "--user", "alice"}, true},
                    Command{"Scan", {"scan", "--user", "alice"}, false},
                    Command{"Delete", {"report", "delete", "latest", "--yes"}, false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_P(StoreFaults, LoseNothing)
{
    Command command = GetParam();
    command.arguments.insert(command.arguments.end(), {"--volume", volume.path()});
    tryAll(command);
    EXPECT_GT(tried, 100);
}

} // namespace

} // namespace pryvane::test
