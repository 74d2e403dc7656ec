#include "cli/Console.h"

#include "core/Escape.h"

#include <algorithm>
#include <cmath>
#include <future>
#include <iostream>
#include <ostream>
#include <sstream>

namespace pryvane::cli {

int Console::fail(std::string_view message) const
{
    say(message);
    return kFailed;
}

std::function<void(std::string_view)> Console::sink() const
{
    return [&data = out](std::string_view text) { data << text; };
}

void Console::say(std::string_view message) const
{
    err << "pryvane-cli: " << message << std::endl;
}

bool Console::confirmed(std::string_view question, bool yes) const
{
    if (yes)
        return true;
    if (!inIsTerminal || !errIsTerminal) {
        say("this deletes; without a terminal to ask on, add --yes to confirm");
        return false;
    }
    err << question << " [y/N] " << std::flush;
    std::string answer;
    std::getline(in, answer);
    if (answer == "y" || answer == "Y" || answer == "yes")
        return true;
    say("nothing was changed");
    return false;
}

namespace {

constexpr std::chrono::milliseconds kFrame{33};
constexpr int kBarCells = 30;
constexpr const char* kEraseLine = "\r\033[2K";

/// The end of a location tells more than its beginning, and a long line would wrap.
std::string shortened(const std::string& text)
{
    constexpr std::size_t kMost = 40;
    if (text.size() <= kMost)
        return text;
    std::size_t from = text.size() - kMost;
    while (from < text.size() && (static_cast<unsigned char>(text[from]) & 0xc0) == 0x80)
        ++from;
    return "…" + text.substr(from);
}

} // namespace

/// Whether a line is to be drawn now.
bool ProgressBar::isDue()
{
    const auto now = std::chrono::steady_clock::now();
    if (!m_console.errIsTerminal || now - m_lastDrawn < kFrame)
        return false;
    m_lastDrawn = now;
    m_drawn = true;
    return true;
}

void ProgressBar::show(const std::string& line)
{
    if (isDue())
        m_console.err << kEraseLine << line << std::flush;
}

void ProgressBar::show(const ScanDisplay& display)
{
    if (!isDue())
        return;
    if (display.indeterminate) {
        m_console.err << kEraseLine << "counting: " << display.location << " entries" << std::flush;
        return;
    }
    const int filled =
        std::clamp(static_cast<int>(display.progressBar) * kBarCells / 100, 0, kBarCells);
    m_console.err << kEraseLine << '[' << std::string(static_cast<std::size_t>(filled), '#')
                  << std::string(static_cast<std::size_t>(kBarCells - filled), ' ') << "] "
                  << display.progressText << paceText(display) << "  found " << display.findings
                  << "  " << shortened(display.location) << std::flush;
}

/// Entries a second and the time left, once a deep scan walks.
std::string ProgressBar::paceText(const ScanDisplay& display)
{
    const auto now = std::chrono::steady_clock::now();
    if (display.entries == 0) {
        m_walkStarted = now;
        return {};
    }
    const double seconds = std::chrono::duration<double>(now - m_walkStarted).count();
    const double done = display.progressBar / 100;
    if (seconds < 0.2 || done <= 0)
        return {};
    const auto perSecond = static_cast<long>(static_cast<double>(display.entries) * done / seconds);
    const long left = std::lround(seconds * (1 - done) / done);
    return "  " + std::to_string(perSecond) + "/s  " + std::to_string(left) + " s left";
}

void ProgressBar::clear()
{
    if (m_drawn)
        m_console.err << kEraseLine << std::flush;
    m_drawn = false;
}

void withProgress(const Console& console, const std::function<std::string()>& line,
                  const std::function<void()>& work)
{
    constexpr std::chrono::milliseconds kBetween{40};
    ProgressBar bar(console);
    auto done = std::async(std::launch::async, work);
    while (done.wait_for(kBetween) != std::future_status::ready)
        bar.show(line());
    done.get();
}

namespace {

/// Terminal cells of a text: East Asian wide characters and emoji take two.
std::size_t cells(std::string_view text)
{
    std::size_t width = 0;
    char32_t c = 0;
    for (std::size_t length = 0; !text.empty(); text.remove_prefix(length)) {
        if (static_cast<unsigned char>(text.front()) < 0x80) {
            length = 1;
            ++width;
            continue;
        }
        length = std::max<std::size_t>(decodeUtf8(text, c), 1);
        const bool combining = c >= 0x300 && c <= 0x36f;
        const bool wide = (c >= 0x1100 && c <= 0x115f) || (c >= 0x2e80 && c <= 0xa4cf) ||
                          (c >= 0xac00 && c <= 0xd7a3) || (c >= 0xf900 && c <= 0xfaff) ||
                          (c >= 0xfe30 && c <= 0xfe6f) || (c >= 0xff00 && c <= 0xff60) ||
                          (c >= 0x1f300 && c <= 0x1faff) || (c >= 0x20000 && c <= 0x3fffd);
        width += combining ? 0 : wide ? 2 : 1;
    }
    return width;
}

} // namespace

void TextTable::write(const std::vector<Align>& columns, std::size_t rows,
                      const std::function<void(std::size_t, Row&)>& fill, std::string_view indent,
                      std::ostream& out)
{
    std::vector<std::size_t> widths(columns.size(), 0);
    Row row(columns.size());
    for (std::size_t i = 0; i < rows; ++i) {
        fill(i, row);
        for (std::size_t k = 0; k + 1 < row.size(); ++k)
            widths[k] = std::max(widths[k], cells(row[k]));
    }
    std::string line;
    for (std::size_t i = 0; i < rows; ++i) {
        fill(i, row);
        line = indent;
        for (std::size_t k = 0; k + 1 < row.size(); ++k) {
            const std::size_t padding = widths[k] - cells(row[k]);
            line.append(columns[k] == Align::Right ? padding : 0, ' ').append(row[k]);
            line.append(columns[k] == Align::Left ? padding + 2 : 2, ' ');
        }
        line.append(row.back()).append(1, '\n');
        out << line;
    }
}

std::string TextTable::text(std::string_view indent) const
{
    std::ostringstream out;
    out.exceptions(std::ios::badbit); // without memory it would end early and say nothing
    write(
        m_columns, m_rows.size(), [this](std::size_t at, Row& row) { row = m_rows[at]; }, indent,
        out);
    return out.str();
}

std::string namesText(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + forTerminal(name);
    return text.empty() ? "none" : text;
}

} // namespace pryvane::cli
