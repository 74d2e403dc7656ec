#include "cli/ManyDisks.h"

#include "cli/DiskScans.h"
#include "core/Escape.h"
#include "core/Texts.h"
#include "core/tasks/WorkCrew.h"
#include "reports/JsonLines.h"
#include "reports/JsonPieces.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <future>
#include <ostream>
#include <thread>
#include <unistd.h>

namespace pryvane::cli {

namespace {

using Clock = std::chrono::steady_clock;

/// What the last line of a scan's output says, for the lines at the end.
struct Told { // NOLINT(bugprone-exception-escape): moving a Json throws nothing, though it looks so
    std::string words; ///< escaped for display
    Json end;          ///< null where there is none
    std::string report;
};

/// Reads a file from its beginning, piece by piece.
void readPieces(int file, const TextSink& sink)
{
    std::array<char, 65536> piece{};
    off_t at = 0;
    for (;;) {
        const ssize_t got = pread(file, piece.data(), piece.size(), at);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return;
        sink({piece.data(), static_cast<std::size_t>(got)});
        at += got;
    }
}

/// Prints what comes, and the lines at the end.
class Printer {
public:
    Printer(const std::vector<ScanSource>& sources, const ScanArguments& arguments,
            const Console& console)
        : m_sources(sources), m_lines(arguments.format == "jsonl"), m_console(console),
          m_rows(sources.size())
    {
    }

    [[nodiscard]] bool isDone() const { return m_printed == m_sources.size(); }
    [[nodiscard]] std::string progress() const
    {
        return "scanning: " + std::to_string(m_printed) + " of " +
               countedText(m_sources.size(), "disk", "disks");
    }
    [[nodiscard]] int worst() const { return m_worst; }

    void print(DiskResult result)
    {
        const ScanSource& source = m_sources[result.disk];
        const std::string label = forTerminal(source.label);
        Told told;
        if (result.out)
            told = m_lines ? printLines(result.out.get()) : printText(source, result.out.get());
        if (result.err)
            result.error = said(label, result.err.get(), result.code, result.error);
        else
            m_console.say(label + ": " + result.error);
        if (result.code == kFailed && result.error.empty())
            result.error = "its scan gave no reason";
        ++m_printed;
        m_failed += result.code == kFailed ? 1 : 0;
        m_worst = worseCode(m_worst, result.code);
        result.out.reset();
        result.err.reset();
        Row& row = m_rows[result.disk];
        row = {std::move(result), std::move(told)};
        m_console.out << std::flush;
    }

    void printEnd(double seconds) const
    {
        if (m_lines)
            printEndLines(seconds);
        else
            printEndText(seconds);
    }

private:
    struct Row { // NOLINT(bugprone-exception-escape): as above
        DiskResult result;
        Told told;
    };

    /// The first line of a text that comes in pieces, without its end.
    struct FirstLine {
        std::string text;
        bool isWhole = false;

        void take(std::string_view piece)
        {
            if (isWhole)
                return;
            const auto end = piece.find('\n');
            text += piece.substr(0, end);
            isWhole = end != std::string_view::npos;
        }
    };

    /// Hands on the text, and keeps its first line, which is the verdict.
    [[nodiscard]] Told printText(const ScanSource& source, int file)
    {
        m_console.out << "== " << forTerminal(source.label) << ": " << forTerminal(source.path)
                      << "\n";
        FirstLine first;
        readPieces(file, [&](std::string_view piece) {
            m_console.out << piece;
            first.take(piece);
        });
        m_console.out << "\n";
        return {std::move(first.text), {}, {}};
    }

    /// Hands on the lines, and keeps what the first and the last one say.
    [[nodiscard]] Told printLines(int file)
    {
        FirstLine first;
        std::string last;
        readPieces(file, [&](std::string_view piece) {
            m_console.out << piece;
            first.take(piece);
            // What follows the last but one end of a line.
            last += piece;
            const auto before = last.rfind('\n', last.size() < 2 ? 0 : last.size() - 2);
            if (before != std::string::npos && before + 1 < last.size())
                last.erase(0, before + 1);
        });
        Told told;
        const Json head = Json::parse(first.text, nullptr, false);
        if (head.is_object())
            told.report = head.value("report", "");
        Json end = Json::parse(last, nullptr, false);
        if (end.is_object() && end.value("type", "") == "end") {
            told.words = end.value("verdictLine", "");
            told.end = std::move(end);
        }
        return told;
    }

    /// Hands on what the scan said, each line behind the label; returns the last one where the scan
    /// failed.
    [[nodiscard]] std::string said(const std::string& label, int file, int code,
                                   const std::string& why) const
    {
        constexpr std::string_view kName = "pryvane-cli: ";
        std::string words;
        readPieces(file, [&](std::string_view piece) { words += piece; });
        if (!why.empty())
            words += why + "\n";
        std::string last;
        for (std::size_t at = 0; at < words.size();) {
            const auto end = std::min(words.find('\n', at), words.size());
            std::string_view line = std::string_view(words).substr(at, end - at);
            at = end + 1;
            if (line.starts_with(kName))
                line.remove_prefix(kName.size());
            if (line.empty())
                continue;
            m_console.say(label + ": " + std::string(line));
            last = line;
        }
        return code == kFailed || code == kInterrupted ? last : std::string();
    }

    void printEndText(double seconds) const
    {
        using Align = TextTable::Align;
        TextTable table({Align::Left, Align::Right, Align::Right, Align::Left});
        table.addRow({"Disk", "Code", "Seconds", ""});
        for (std::size_t i = 0; i < m_rows.size(); ++i) {
            const auto& [result, told] = m_rows[i];
            table.addRow({forTerminal(m_sources[i].label), std::to_string(result.code),
                          secondsWithTenths(result.seconds),
                          result.error.empty() ? told.words : "failed: " + result.error});
        }
        m_console.out << table.text() << countedText(m_sources.size(), "disk", "disks") << " in "
                      << secondsWithTenths(seconds) << " s; "
                      << (m_failed == 0 ? "none" : std::to_string(m_failed)) << " failed\n";
    }

    void printEndLines(double seconds) const
    {
        for (std::size_t i = 0; i < m_rows.size(); ++i) {
            const auto& [result, told] = m_rows[i];
            const auto of = [&end = told.end](const char* key) {
                return end.is_object() && end.contains(key) ? end[key] : Json();
            };
            writeLine(m_console.sink(), {{"type", "disk"},
                                         {"label", forJson(m_sources[i].label)},
                                         {"disk", forJson(m_sources[i].path)},
                                         {"kind", kindWord(m_sources[i].kind)},
                                         {"report", textOrNull(told.report)},
                                         {"code", result.code},
                                         {"verdict", of("verdict")},
                                         {"verdictLine", of("verdictLine")},
                                         {"findings", of("findings")},
                                         {"error", textOrNull(result.error)},
                                         {"seconds", result.seconds}});
        }
        writeLine(m_console.sink(), {{"type", "disks"},
                                     {"disks", m_sources.size()},
                                     {"failed", m_failed},
                                     {"code", m_worst},
                                     {"seconds", seconds}});
    }

    [[nodiscard]] static std::string secondsWithTenths(double seconds)
    {
        const auto tenths = std::llround(seconds * 10);
        return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10);
    }

    const std::vector<ScanSource>& m_sources;
    const bool m_lines;
    const Console& m_console;
    std::vector<Row> m_rows;
    std::size_t m_printed = 0, m_failed = 0;
    int m_worst = kDone;
};

} // namespace

int worseCode(int a, int b)
{
    static constexpr std::array kOrder = {int{kDone}, int{kIncomplete}, int{kFindings},
                                          int{kFailed}, int{kInterrupted}};
    const auto place = [](int code) {
        const auto found = std::ranges::find(kOrder, code);
        return found == kOrder.end() ? kOrder.begin() + 3 : found; // another is an error
    };
    return *std::max(place(a), place(b));
}

int scanManyDisks(const std::vector<ScanSource>& sources, const ScanArguments& arguments,
                  const Console& console)
{
    constexpr unsigned kUsualJobs = 4;
    constexpr std::chrono::milliseconds kBetweenLooks{40};
    const std::size_t jobs = arguments.jobs != 0
                                 ? arguments.jobs
                                 : std::clamp(std::thread::hardware_concurrency(), 1U, kUsualJobs);
    const auto began = Clock::now();
    DiskScans scans(sources, arguments);
    Printer printer(sources, arguments, console);
    auto crew = std::async(std::launch::async, [&] {
        onThreads(std::min(jobs, sources.size()), [&] { scans.work(); });
    });
    {
        ProgressBar bar(console);
        while (!printer.isDone()) {
            if (console.interrupted.requested())
                scans.stop();
            auto result = scans.next(kBetweenLooks);
            if (result) {
                bar.clear();
                printer.print(std::move(*result));
            } else if (crew.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
                break; // for want of memory or the like; what it was comes below
            }
            bar.show(printer.progress());
        }
    }
    crew.get();
    printer.printEnd(std::chrono::duration<double>(Clock::now() - began).count());
    return printer.worst();
}

} // namespace pryvane::cli
