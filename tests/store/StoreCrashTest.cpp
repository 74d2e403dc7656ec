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
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace pryvane::test {

namespace {

constexpr auto kKey = preferences::kSaveReport;

/// A process that stores its report again and again, with a growing number in it, and says each
/// number that the store acknowledged.
class Writer {
public:
    Writer(const std::string& folder, std::string identity) : m_identity(std::move(identity))
    {
        int ends[2];
        if (pipe(ends) != 0)
            std::abort();
        m_pid = fork();
        if (m_pid == 0) {
            close(ends[0]);
            storeForEver(folder, ends[1]);
        }
        close(ends[1]);
        m_acknowledgements = ends[0];
        fcntl(m_acknowledgements, F_SETFL, O_NONBLOCK);
    }
    ~Writer()
    {
        kill();
        close(m_acknowledgements);
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    [[nodiscard]] const std::string& identity() const { return m_identity; }

    void kill()
    {
        if (m_pid > 0) {
            ::kill(m_pid, SIGKILL);
            waitpid(m_pid, nullptr, 0);
        }
        m_pid = -1;
    }

    /// The last number that was acknowledged so far.
    int acknowledged()
    {
        int number = 0;
        while (read(m_acknowledgements, &number, sizeof number) == sizeof number)
            m_last = number;
        return m_last;
    }

private:
    [[noreturn]] void storeForEver(const std::string& folder, int acknowledgements) const
    {
        SilentLog log;
        CountingDisk disk;
        FakeClock clock;
        const auto opened = SqliteUserDefaults::open(folder, log);
        if (!opened || opened->notice)
            _exit(1);
        DefaultMethods store(*opened->defaults, disk, clock, log);
        const auto report = reportOf({"/tmp/a", "/tmp/b"});
        report->reportId = m_identity;
        for (int number = 1;; ++number) {
            report->scanDuration = std::to_string(number);
            if (!store.updateReportInDefaults(report))
                _exit(1);
            if (write(acknowledgements, &number, sizeof number) != sizeof number)
                _exit(1);
        }
    }

    std::string m_identity;
    pid_t m_pid = -1;
    int m_acknowledgements = -1;
    int m_last = 0;
};

/// The stored numbers by identity, read by a process that starts as the program would.
std::map<std::string, int> storedNumbers(const std::string& folder)
{
    const std::string text = inChild([&]() -> std::string {
        RecordingLog log;
        CountingDisk disk;
        FakeClock clock;
        const auto opened = SqliteUserDefaults::open(folder, log);
        if (!opened)
            return "error " + opened.error().message;
        DefaultMethods store(*opened->defaults, disk, clock, log);
        std::ostringstream out;
        for (const auto& report : store.loadListReportWithoutDisk(kKey))
            out << report->reportId << ' ' << report->scanDuration << '\n';
        return log.lines().empty() ? out.str() : "error " + log.lines()[0];
    });
    EXPECT_FALSE(text.starts_with("error")) << text;
    std::map<std::string, int> numbers;
    std::istringstream in(text);
    std::string identity;
    for (int number = 0; in >> identity >> number;)
        numbers[identity] = number;
    return numbers;
}

TEST(StoreCrash, NoAcknowledgedReportIsLostWhenWritersAreKilled)
{
    const char* wanted = std::getenv("PRYVANE_TEST_KILLS");
    const int kills = wanted ? std::atoi(wanted) : 500;
    const auto folder = fastFolder();
    std::mt19937 random(11);
    std::map<std::string, int> acknowledged;
    std::array<std::unique_ptr<Writer>, 2> writers;
    for (int i = 0; i < kills && !testing::Test::HasFailure(); ++i) {
        for (std::size_t slot = 0; slot < writers.size(); ++slot) {
            if (!writers[slot])
                writers[slot] = std::make_unique<Writer>(
                    folder->path(), "writer-" + std::to_string(slot) + "-" + std::to_string(i));
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1 + random() % 30));
        auto& victim = writers[random() % writers.size()];
        victim->kill();
        for (const auto& writer : writers)
            acknowledged[writer->identity()] = writer->acknowledged();
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
