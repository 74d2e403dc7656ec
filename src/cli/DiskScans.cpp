#include "cli/DiskScans.h"

#include "cli/ChildScan.h"

#include <array>
#include <csignal>
#include <utility>

namespace pryvane::cli {

namespace {

using Clock = std::chrono::steady_clock;

std::vector<std::string> childArguments(const ScanSource& source, const ScanArguments& arguments)
{
    static constexpr std::array kSources = {"--volume=", "--image=", "--listing="};
    std::vector<std::string> words{"scan", kSources.at(static_cast<std::size_t>(source.kind)) +
                                               source.path};
    const auto flag = [&](bool on, const char* word) {
        if (on)
            words.emplace_back(word);
    };
    const auto text = [&](const char* option, const std::string& value) {
        if (!value.empty())
            words.push_back(option + ("=" + value));
    };
    flag(arguments.deep, "--deep");
    flag(arguments.wholeDisk, "--whole-disk");
    text("--check-sub-dir", arguments.checkSubDir.value_or(""));
    flag(arguments.paced, "--paced");
    flag(arguments.noStore, "--no-store");
    flag(arguments.facts, "--facts");
    flag(arguments.volume.hash, "--hash");
    flag(arguments.volume.allUsers, "--all-users");
    flag(arguments.volume.caseSensitive, "--case-sensitive");
    for (const std::string& user : arguments.volume.users)
        text("--user", user);
    text("--label", source.label);
    text("--case", arguments.labels.caseName);
    text("--examiner", arguments.labels.examiner);
    text("--format", arguments.format);
    return words;
}

} // namespace

void DiskScans::work()
{
    while (const auto disk = take()) {
        const auto began = Clock::now();
        DiskResult result = scanned(*disk);
        result.disk = *disk;
        result.seconds = std::chrono::duration<double>(Clock::now() - began).count();
        const MutexLock lock(m_mutex);
        m_results.push_back(std::move(result));
        m_changed.notifyAll();
    }
}

std::optional<DiskResult> DiskScans::next(std::chrono::milliseconds longest)
{
    MutexLock lock(m_mutex);
    if (m_results.empty())
        m_changed.waitFor(lock, longest);
    if (m_results.empty())
        return std::nullopt;
    DiskResult result = std::move(m_results.front());
    m_results.pop_front();
    return result;
}

void DiskScans::stop()
{
    const MutexLock lock(m_mutex);
    if (std::exchange(m_stopped, true))
        return;
    for (const pid_t process : m_running)
        kill(process, SIGINT);
}

std::optional<std::size_t> DiskScans::take()
{
    const MutexLock lock(m_mutex);
    if (m_next == m_sources.size())
        return std::nullopt;
    return m_next++;
}

DiskResult DiskScans::scanned(std::size_t disk)
{
    DiskResult result;
    Result<ChildScan> child = Error{};
    {
        // Started and noted at once, so that a stop finds it.
        const MutexLock lock(m_mutex);
        if (m_stopped) {
            result.code = kInterrupted;
            result.error = "interrupted before it began";
            return result;
        }
        child = ChildScan::start(childArguments(m_sources[disk], m_arguments));
        if (!child) {
            result.error = child.error().message;
            return result;
        }
        m_running.insert(child->process);
    }
    const int code = child->wait([&] {
        const MutexLock lock(m_mutex);
        m_running.erase(child->process);
    });
    result.code = code < 0 ? int{kFailed} : code;
    if (code < 0)
        result.error = "its scan was ended by signal " + std::to_string(-code);
    result.out = std::move(child->out);
    result.err = std::move(child->err);
    return result;
}

} // namespace pryvane::cli
