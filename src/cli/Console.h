#pragma once

#include "core/StopFlag.h"

#include <iosfwd>
#include <string>
#include <string_view>

namespace pryvane::cli {

/// Exit codes, the same for every command and format.
enum ExitCode : int { kDone = 0, kFindings = 1, kFailed = 2, kInterrupted = 130 };

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
    /// One line of other words on `err`.
    void say(std::string_view message) const;

    /// Asks before something irreversible: a terminal is asked, elsewhere only `yes` will do. On
    /// refusal the reason has been said.
    [[nodiscard]] bool confirmed(std::string_view question, bool yes) const;
};

} // namespace pryvane::cli
