#pragma once

#include "core/Result.h"
#include "core/Texts.h"

#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// A text as one word of a unit file, for Exec lines that begin with ":" and for Environment lines:
/// quoted, with specifiers and escapes taken out of force. The error names a text that no unit file
/// can hold.
[[nodiscard]] Result<std::string> unitWord(std::string_view text);

/// These moments, in ascending order, as lines of a timer, on the system's clock: one a month and
/// time of day, "OnCalendar=2026-11-23,30 20:44:00". Parts of a second count as a whole one.
[[nodiscard]] std::string calendarLines(const std::vector<Date>& moments);

/// The two unit files that have systemd start the timed scans of a user. They are ours where their
/// first line says so with the sum of the rest; any other file is somebody else's, and is neither
/// changed nor removed. Waits for the disk only.
class TimerUnits {
public:
    static constexpr const char* kTimer = "com.torvell.Pryvane.scan.timer";
    static constexpr const char* kService = "com.torvell.Pryvane.scan.service";

    /// Host paths, absolute.
    struct Places {
        std::string unitFolder; ///< of the user's units; made when it is needed
        std::string program;    ///< the command line's; empty: there is none
        std::string dataFolder; ///< of the store
    };

    explicit TimerUnits(Places places) : m_places(std::move(places)) {}

    struct Texts {
        std::string timer, service; ///< empty: no such file
        friend bool operator==(const Texts&, const Texts&) = default;
    };

    /// What the files should hold. The error says why the program cannot be started so.
    [[nodiscard]] Result<Texts> wanted(const std::vector<Date>& moments) const;

    /// What they hold. The error says that one of them is not ours, or cannot be read.
    [[nodiscard]] Result<Texts> found() const;

    /// Makes the files hold just that; empty texts remove them. The error says what kept it from
    /// that; then one of them may have been written.
    [[nodiscard]] Result<Done> put(const Texts& texts) const;

    /// Has the files no longer started, for where systemd does not answer.
    [[nodiscard]] Result<Done> removeWithoutManager() const;

    /// Why nothing can be written here; empty: nothing is in the way.
    [[nodiscard]] std::string obstacle() const;

private:
    [[nodiscard]] std::string path(const char* name) const
    {
        return m_places.unitFolder + "/" + name;
    }

    Places m_places;
};

} // namespace pryvane
