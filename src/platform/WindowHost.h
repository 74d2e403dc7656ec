#pragma once

#include <cstdint>

namespace pryvane {

/// The windows of the program.
enum class ShellWindow : std::uint8_t { Main, Access, Help };

/// Makes, shows and hides windows as it is told; decides nothing. What is asked of a window that
/// does not exist is not done. Main thread only.
class WindowHost {
public:
    virtual ~WindowHost() = default;

    /// Makes the window unless there is one already, shows it and gives it the keyboard.
    virtual void open(ShellWindow window) = 0;

    /// Closes and drops the window, which may be the one whose button asked for it.
    virtual void close(ShellWindow window) = 0;

    /// Shows the window in front of others, also when it was hidden or minimised.
    virtual void bringForward(ShellWindow window) = 0;

    /// Hides the window; it and its screens stay alive.
    virtual void orderOut(ShellWindow window) = 0;

    virtual void setMinimised(ShellWindow window, bool minimised) = 0;
    [[nodiscard]] virtual bool isMinimised(ShellWindow window) const = 0;

    /// Whether the window exists and is not hidden; a minimised one is visible.
    [[nodiscard]] virtual bool isVisible(ShellWindow window) const = 0;

    /// Makes this the active program, whatever others do.
    virtual void activate() = 0;

    /// Ends the main loop soon, after the call has returned.
    virtual void terminate() = 0;
};

} // namespace pryvane
