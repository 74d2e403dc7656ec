#include "cli/ProgressBar.h"

#include <algorithm>
#include <ostream>

namespace pryvane::cli {

namespace {

constexpr std::chrono::milliseconds kFrame{33};
constexpr int kBarCells = 30;
constexpr const char* kEraseLine = "\r\033[2K";

} // namespace

void ProgressBar::show(const ScanDisplay& display)
{
    const auto now = std::chrono::steady_clock::now();
    if (!m_console.errIsTerminal || now - m_lastDrawn < kFrame)
        return;
    m_lastDrawn = now;
    m_drawn = true;
    const int filled =
        std::clamp(static_cast<int>(display.progressBar) * kBarCells / 100, 0, kBarCells);
    m_console.err << kEraseLine << '[' << std::string(static_cast<std::size_t>(filled), '#')
                  << std::string(static_cast<std::size_t>(kBarCells - filled), ' ') << "] "
                  << display.progressText << "  found " << display.findings << "  "
                  << display.location << std::flush;
}

void ProgressBar::clear()
{
    if (m_drawn)
        m_console.err << kEraseLine << std::flush;
    m_drawn = false;
}

} // namespace pryvane::cli
