#include "reports/DefaultMethods.h"
#include "support/Fakes.h"
#include "support/ReportFixtures.h"
#include "support/StoreFixtures.h"
#include "support/Volumes.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace pryvane::test {

namespace {

constexpr auto kKey = preferences::kSaveReport;

/// A process that stores its report again and again, with a growing number in it, and says each
/// number that the store acknowledged.
struct Writer {
    std::string identity;
    pid_t process;
    UniqueFd acknowledgements;

    ~Writer() { kill(); }
    void kill()
    {
        if (process > 0) {
            ::kill(process, SIGKILL);
            waitpid(process, nullptr, 0);
        }
        process = -1;
    }
    /// The last number that was acknowledged since this was asked, or none.
    [[nodiscard]] std::optional<int> acknowledged() const
    {
        std::optional<int> last;
        for (int number = 0; read(acknowledgements.get(), &number, sizeof number) == sizeof number;)
            last = number;
        return last;
    }
};

[[noreturn]] void storeForEver(const std::string& folder, const std::string& identity, int told)
{
    SilentLog log;
    CountingDisk disk;
    FakeClock clock;
    const auto opened = SqliteUserDefaults::open(folder, log);
    if (!opened || opened->notice)
        _exit(1);
    DefaultMethods store(*opened->defaults, disk, clock, log);
    const auto report = reportOf({"/tmp/a", "/tmp/b"});
    report->reportId = identity;
    for (int number = 1;; ++number) {
        report->scanDuration = std::to_string(number);
        if (!store.updateReportInDefaults(report) ||
            write(told, &number, sizeof number) != sizeof number)
            _exit(1);
    }
}

std::unique_ptr<Writer> startedWriter(const std::string& folder, const std::string& identity)
{
    int ends[2];
    if (pipe2(ends, O_NONBLOCK) != 0)
        std::abort();
    const pid_t process = fork();
    if (process == 0)
        storeForEver(folder, identity, ends[1]);
    close(ends[1]);
    return std::unique_ptr<Writer>(new Writer{identity, process, UniqueFd(ends[0])});
}

/// The stored numbers by identity.
std::map<std::string, int> storedNumbers(const std::string& folder)
{
    RecordingLog log;
    CountingDisk disk;
    FakeClock clock;
    const auto opened = openedStore(folder, log);
    EXPECT_EQ(opened.notice, std::nullopt);
    DefaultMethods store(*opened.defaults, disk, clock, log);
    std::map<std::string, int> numbers;
    for (const auto& report : store.loadListReportWithoutDisk(kKey))
        numbers[report->reportId] = std::stoi(report->scanDuration);
    EXPECT_TRUE(log.lines().empty());
    return numbers;
}

TEST(StoreCrash, NoAcknowledgedReportIsLostWhenWritersAreKilled)
{
    const int kills = sizeAsked("PRYVANE_TEST_KILLS", 500);
    const auto folder = fastFolder();
    std::mt19937 random(11);
    std::map<std::string, int> acknowledged;
    std::array<std::unique_ptr<Writer>, 2> writers;
    for (int i = 0; i < kills && !testing::Test::HasFailure(); ++i) {
        for (std::size_t slot = 0; slot < writers.size(); ++slot) {
            if (!writers[slot])
                writers[slot] = startedWriter(folder->path(), "writer-" + std::to_string(slot) +
                                                                  "-" + std::to_string(i));
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1 + random() % 30));
        auto& victim = writers[random() % writers.size()];
        victim->kill();
        for (const auto& writer : writers)
            acknowledged[writer->identity] =
                writer->acknowledged().value_or(acknowledged[writer->identity]);
        victim.reset();

        const auto stored = storedNumbers(folder->path());
        for (const auto& [identity, number] : acknowledged) {
            const auto found = stored.find(identity);
            EXPECT_TRUE(number == 0 || (found != stored.end() && found->second >= number))
                << identity << " had " << number << " acknowledged after kill " << i;
        }
    }
    int all = 0;
    for (const auto& [identity, number] : acknowledged)
        all += number;
    RecordProperty("acknowledged", all);
    EXPECT_GT(all, kills) << "the writers hardly wrote";
}

} // namespace

} // namespace pryvane::test
