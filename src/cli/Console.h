#pragma once

#include "core/StopFlag.h"
#include "platform/FolderAccess.h"
#include "platform/Messages.h"
#include "scan/ScanDisplay.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane::cli {

/// Exit codes, the same for every command and format.
enum ExitCode : int { kDone = 0, kFindings = 1, kFailed = 2, kIncomplete = 3, kInterrupted = 130 };

/// The streams and facts of the terminal that a command works with.
struct Console {
    std::istream& in;
    std::ostream& out; ///< data
    std::ostream& err; ///< words
    bool inIsTerminal = false;
    bool outIsTerminal = false;
    bool errIsTerminal = false;
    bool color = false;    ///< colour on the output stream
    StopFlag& interrupted; ///< set by SIGINT

    /// One line of error on `err`; returns kFailed.
    int fail(std::string_view message) const;
    /// Takes data.
    [[nodiscard]] std::function<void(std::string_view)> sink() const;
    /// One line of other words on `err`.
    void say(std::string_view message) const;

    /// Asks before something irreversible: a terminal is asked, elsewhere only `yes` will do. On
    /// refusal the reason has been said.
    [[nodiscard]] bool confirmed(std::string_view question, bool yes) const;
};

/// A command line has been told everything by its arguments: a question that still comes up is
/// answered by its last button, which declines.
class DecliningAlerts final : public Alerts {
public:
    int runModal(const Alert& alert) override
    {
        const auto count = static_cast<int>(alert.buttons.size());
        return kAlertFirstButton + (count > 0 ? count - 1 : 0);
    }
};

class DecliningFolderPicker final : public FolderPicker {
public:
    [[nodiscard]] std::optional<FileURL> pickFolder(const FolderQuestion&) override
    {
        return std::nullopt;
    }
};

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

/// Columns aligned by what a terminal shows. Cells are display text already; the last column is
/// left as it is.
class TextTable {
public:
    enum class Align : std::uint8_t { Left, Right };

    explicit TextTable(std::vector<Align> columns) : m_columns(std::move(columns)) {}
    void addRow(std::vector<std::string> cells) { m_rows.push_back(std::move(cells)); }
    [[nodiscard]] bool empty() const { return m_rows.empty(); }

    /// All rows, each on a line of its own behind `indent`.
    [[nodiscard]] std::string text(std::string_view indent = "") const;

    /// The same of so many rows that they are asked for twice instead of being kept. `fill` puts
    /// the texts of a row into a row that has as many as there are columns.
    using Row = std::vector<std::string>;
    static void write(const std::vector<Align>& columns, std::size_t rows,
                      const std::function<void(std::size_t, Row&)>& fill, std::string_view indent,
                      std::ostream& out);

private:
    std::vector<Align> m_columns;
    std::vector<Row> m_rows;
};

/// "alice, bob", as a terminal shows them; "none".
[[nodiscard]] std::string namesText(const std::vector<std::string>& names);

} // namespace pryvane::cli
