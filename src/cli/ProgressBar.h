#pragma once

#include "cli/Console.h"
#include "scan/ScanDisplay.h"

#include <chrono>
#include <functional>
#include <string>

namespace pryvane::cli {

/// A live line on the error stream, where that is a terminal; drawn at most 30 times a second.
class ProgressBar {
public:
    explicit ProgressBar(const Console& console) : m_console(console) {}
    ~ProgressBar() { clear(); }
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void show(const ScanDisplay& display);
    void show(const std::string& line);
    void clear();

private:
    [[nodiscard]] bool isDue();
    [[nodiscard]] std::string paceText(const ScanDisplay& display);

    const Console& m_console;
    std::chrono::steady_clock::time_point m_walkStarted{};
    std::chrono::steady_clock::time_point m_lastDrawn{};
    bool m_drawn = false;
};

/// Does the work on a thread of its own and meanwhile shows the line, where there is a terminal.
void withProgress(const Console& console, const std::function<std::string()>& line,
                  const std::function<void()>& work);

} // namespace pryvane::cli
