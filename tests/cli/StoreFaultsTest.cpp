// Every system call with which a command reaches its store fails, once or from then on.

#include "cli/CliFixture.h"
#include "platform/Messages.h"
#include "store/SqliteUserDefaults.h"
#include "support/FaultyCalls.h"
#include "support/StoreFixtures.h"
#include "support/Volumes.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <set>
#include <sstream>

namespace pryvane::test {

namespace {

using Lasting = FaultyCalls::Lasting;

constexpr std::array<int, 4> kErrors = {EIO, ENOSPC, EMFILE, EACCES};

/// What the command changes in the store.
enum class Changes : unsigned char {
    Nothing,
    Settings, ///< and no report
    Reports,
    Both, ///< in several steps, each whole by itself
};

struct Command {
    const char* name;
    const char* words; ///< of the command; FILE and VOLUME stand for paths
    Changes changes = Changes::Nothing;
};

class StoreFaults : public CliFixture, public testing::WithParamInterface<Command> {
protected:
    StoreFaults()
    {
        setenv("PRYVANE_DATA_DIR", store().c_str(), 1);
        setenv("CUPS_SERVER", shelf->hostPath("no-printers").c_str(), 1);
        volume.file(kFinding);
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
        volume.file(kFinding);
    }

    [[nodiscard]] std::vector<std::string> argumentsOf(const Command& command) const
    {
        std::istringstream words(command.words);
        std::vector<std::string> arguments{std::istream_iterator<std::string>(words), {}};
        std::ranges::replace(arguments, "FILE", shelf->hostPath("made"));
        std::ranges::replace(arguments, "VOLUME", volume.path());
        return arguments;
    }

    /// Runs it in a process of its own; "code count words".
    std::string runFaulty(const Command& command, int number, int error, Lasting lasting)
    {
        return inChild([&] {
            FaultyCalls::arm(store(), number, error, lasting);
            const Outcome outcome = run(argumentsOf(command));
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

    /// All four take minutes; PRYVANE_TEST_FAULTS asks for them.
    static std::set<int> errorsOf(const Command& command, int number)
    {
        if (std::getenv("PRYVANE_TEST_FAULTS"))
            return {kErrors.begin(), kErrors.end()};
        const int inTurn = kErrors[static_cast<std::size_t>(number) % kErrors.size()];
        return command.changes == Changes::Nothing ? std::set{inTurn} : std::set{EIO, inTurn};
    }

    void tryAll(const Command& command)
    {
        putBack();
        const std::string before = reportsKept();
        const std::string whole = runFaulty(command, 0, 0, Lasting::Once);
        int code = -1, calls = 0;
        ASSERT_EQ(std::sscanf(whole.c_str(), "%d %d", &code, &calls), 2) << whole;
        ASSERT_GT(calls, 5);
        for (int number = 1; number <= calls && !HasFailure(); ++number) {
            for (const auto lasting : {Lasting::Once, Lasting::FromThenOn}) {
                for (const int error : errorsOf(command, number)) {
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
        ASSERT_EQ(told.find("damaged"), std::string::npos) << "nothing is";
        for (const std::string& name : namesIn(store()))
            ASSERT_EQ(name.find(".damaged"), std::string::npos) << name;
        const bool reads = command.changes == Changes::Nothing;
        ASSERT_TRUE(!reads || contentOf(file()) == sound) << "changed by a command that only reads";
        const std::string after = reportsKept(); // undoes what was cut off
        const bool untouched = after == before;
        const bool done = !untouched && (after.ends_with(before) || before.ends_with(after));
        const bool mayList =
            command.changes == Changes::Reports || command.changes == Changes::Both;
        // Where the last sync fails, SQLite rightly says "failed" of what stands on the disk.
        ASSERT_TRUE(!mayList ? untouched : code == 2 ? untouched || done : done) << after;
        if (code == 2 && untouched && command.changes == Changes::Reports) {
            ASSERT_TRUE(contentOf(file()) == sound) << "changed, and nothing was done";
        }
        if (code == 0 && command.changes == Changes::Settings) {
            ASSERT_TRUE(contentOf(file()) != sound) << "says success and did nothing";
        }
        if (code == 0 && command.name == std::string_view("Remove")) {
            ASSERT_FALSE(volume.contains(kFinding)) << "says removed";
        }
    }

    static constexpr const char* kFinding = "/tmp/.mdworker";
    std::unique_ptr<TemporaryFolder> shelf = fastFolder();
    std::string sound;
    int tried = 0;
};

INSTANTIATE_TEST_SUITE_P(
    Commands, StoreFaults,
    testing::Values(Command{"List", "report list --volume VOLUME"},
                    Command{"Show", "report show latest --volume VOLUME"},
                    Command{"Pdf", "report pdf latest FILE --volume VOLUME"},
                    Command{"Print", "report print latest --volume VOLUME"},
                    Command{"Export", "report export latest --format csv --volume VOLUME"},
                    Command{"Compare", "report compare latest latest --volume VOLUME"},
                    Command{"Remove", "remove latest --all --yes --volume VOLUME"},
                    Command{"DryRun", "remove latest --all --dry-run --volume VOLUME"},
                    Command{"ScanWithoutStore", "scan --no-store --user alice --volume VOLUME"},
                    Command{"Inventory", "inventory --user alice --volume VOLUME"},
                    Command{"PrivacyList", "privacy list --user alice --volume VOLUME"},
                    Command{"Settings", "settings remote-desktop"},
                    Command{"Ignore", "settings remote-desktop --ignore", Changes::Settings},
                    Command{"Scan", "scan --user alice --volume VOLUME", Changes::Both},
                    Command{"Delete", "report delete latest --yes --volume VOLUME",
                            Changes::Reports}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_P(StoreFaults, LoseNothing)
{
    tryAll(GetParam());
    EXPECT_GT(tried, 30);
    RecordProperty("tried", tried);
    std::printf("%s: %d cases\n", GetParam().name, tried);
}

} // namespace

} // namespace pryvane::test
