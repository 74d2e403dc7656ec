#include "cli/ProgressBar.h"

#include <algorithm>
#include <cmath>
#include <future>
#include <ostream>

namespace pryvane::cli {

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

} // namespace pryvane::cli
