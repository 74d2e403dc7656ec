#include "hosts/linux/TimerUnits.h"

#include "core/Escape.h"
#include "core/Files.h"
#include "core/Sha256.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>

namespace pryvane {

namespace {

constexpr std::string_view kMark = "# Written by Pryvane, whose schedule changes and removes it: ";
constexpr std::size_t kLongestUnit = 1 << 20;

Error cannotStand(std::string_view text)
{
    return Error{forScreen(text) +
                 " cannot stand in a unit file; a folder with a plainer name can"};
}

std::string markedText(const std::string& text)
{
    return std::string(kMark) + sha256Hex(text) + "\n" + text;
}

bool isMarked(std::string_view text)
{
    const auto line = text.find('\n');
    return line != std::string_view::npos && text.starts_with(kMark) &&
           text.substr(0, line).substr(kMark.size()) == sha256Hex(text.substr(line + 1));
}

/// Empty where there is none.
Result<std::string> ownText(const std::string& path)
{
    const UniqueFd file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file && meansAbsent(errno))
        return std::string();
    const Error foreign{forScreen(path) + " was written or changed by somebody else and is left "
                                          "as it is. Move it away first."};
    if (!file)
        return errno == ELOOP ? foreign
                              : Error{forScreen(path) + " cannot be read: " + errorText(errno)};
    std::string text(kLongestUnit, '\0');
    std::size_t held = 0;
    ssize_t count = 0;
    while (held < text.size() &&
           (count = read(file.get(), text.data() + held, text.size() - held)) > 0)
        held += static_cast<std::size_t>(count);
    text.resize(held);
    return count == 0 && isMarked(text) ? Result<std::string>(std::move(text))
                                        : Result<std::string>(foreign);
}

Result<Done> putFile(const std::string& path, const std::string& text)
{
    if (text.empty())
        return unlink(path.c_str()) == 0 || meansAbsent(errno)
                   ? Result<Done>(Done{})
                   : Error{forScreen(path) + " cannot be removed: " + errorText(errno)};
    auto written = writeWholeFile(path, text);
    if (written && chmod(path.c_str(), 0644) != 0)
        return Error{forScreen(path) + " cannot be made readable: " + errorText(errno)};
    return written;
}

/// The same month and time of day share a line.
std::string lineHead(const std::tm& at)
{
    std::array<char, 64> head{};
    static_cast<void>(std::snprintf(head.data(), head.size(), "OnCalendar=%04d-%02d-",
                                    at.tm_year + 1900, at.tm_mon + 1));
    return head.data();
}

std::string lineEnd(const std::tm& at)
{
    std::array<char, 64> end{};
    static_cast<void>(std::snprintf(end.data(), end.size(), " %02d:%02d:%02d\n", at.tm_hour,
                                    at.tm_min, at.tm_sec % 60));
    return end.data();
}

} // namespace

Result<std::string> unitWord(std::string_view text)
{
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; };
    if (!isUtf8(text) || std::ranges::any_of(text, isControl))
        return cannotStand(text);
    std::string word = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            word += '\\';
        if (c == '%')
            word += '%';
        word += c;
    }
    return word + "\"";
}

std::string calendarLines(const std::vector<Date>& moments)
{
    std::string lines, days, head, end;
    const auto close = [&] {
        if (!days.empty())
            lines += head + days + end;
        days.clear();
    };
    for (const Date moment : moments) {
        const std::tm at = localParts(std::chrono::ceil<std::chrono::seconds>(moment));
        if (lineHead(at) != head || lineEnd(at) != end) {
            close();
            head = lineHead(at);
            end = lineEnd(at);
        }
        const std::string day = std::to_string(at.tm_mday);
        days += (days.empty() ? "" : ",") + std::string(day.size() == 1 ? "0" : "") + day;
    }
    close();
    return lines;
}

Result<TimerUnits::Texts> TimerUnits::wanted(const std::vector<Date>& moments) const
{
    if (m_places.program.empty() || access(m_places.program.c_str(), X_OK) != 0)
        return Error{
            "pryvane-cli, which does these scans, is not installed beside Pryvane; install "
            "it"};
    if (m_places.program.find_first_of("\"'\\") != std::string::npos)
        return cannotStand(m_places.program); // systemd takes them in no program's name
    const auto program = unitWord(m_places.program);
    const auto data = unitWord("PRYVANE_DATA_DIR=" + m_places.dataFolder);
    if (!program || !data)
        return program ? data.error() : program.error();
    // The exit codes of a scan that found something, or could not look everywhere.
    return Texts{.timer =
                     markedText("[Unit]\nDescription=Pryvane: the times of the scheduled scan\n\n"
                                "[Timer]\n" +
                                calendarLines(moments) +
                                "AccuracySec=1s\n\n[Install]\nWantedBy=timers.target\n"),
                 .service = markedText("[Unit]\nDescription=Pryvane: scheduled scan\n\n"
                                       "[Service]\nType=oneshot\nEnvironment=" +
                                       *data + "\nExecStart=:" + *program +
                                       " scan --scheduled\nSuccessExitStatus=1 3\nNice=5\n")};
}

Result<TimerUnits::Texts> TimerUnits::found() const
{
    auto timer = ownText(path(kTimer)), service = ownText(path(kService));
    if (!timer || !service)
        return timer ? service.error() : timer.error();
    return Texts{std::move(timer).value(), std::move(service).value()};
}

Result<Done> TimerUnits::put(const Texts& texts) const
{
    if (const auto theirs = found(); !theirs)
        return theirs.error();
    std::error_code failed;
    if (!texts.timer.empty())
        std::filesystem::create_directories(m_places.unitFolder, failed);
    if (failed)
        return Error{forScreen(m_places.unitFolder) +
                     " cannot be made: " + errorText(failed.value())};
    // A timer never stands without what it starts.
    const auto timer = [&] { return putFile(path(kTimer), texts.timer); };
    const auto service = [&] { return putFile(path(kService), texts.service); };
    const bool removes = texts.timer.empty();
    auto first = removes ? timer() : service();
    return first ? (removes ? service() : timer()) : first;
}

Result<Done> TimerUnits::removeWithoutManager() const
{
    const auto ours = found();
    if (!ours)
        return Done{}; // nothing of ours is started
    const std::string link = m_places.unitFolder + "/timers.target.wants/" + kTimer;
    if (!ours->timer.empty() && unlink(link.c_str()) != 0 && !meansAbsent(errno))
        return Error{forScreen(link) + " cannot be removed: " + errorText(errno)};
    return put({});
}

std::string TimerUnits::obstacle() const
{
    if (const auto theirs = found(); !theirs)
        return theirs.error().message;
    if (const auto texts = wanted({}); !texts)
        return texts.error().message;
    std::filesystem::path there = m_places.unitFolder;
    while (access(there.c_str(), F_OK) != 0 && meansAbsent(errno) && there.has_relative_path())
        there = there.parent_path();
    return access(there.c_str(), W_OK | X_OK) == 0
               ? std::string()
               : forScreen(there.string()) + " cannot be written: " + errorText(errno);
}

} // namespace pryvane
