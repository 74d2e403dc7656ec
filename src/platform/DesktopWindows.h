#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// How the desktop lists the program: with an icon of its own, or not at all.
enum class ActivationPolicy : std::uint8_t { Regular = 0, Accessory = 1 };

/// The program's icon in the dock or task bar. Main thread only.
class DockIcon {
public:
    virtual ~DockIcon() = default;

    /// What was last set; Regular before that.
    [[nodiscard]] virtual ActivationPolicy policy() const = 0;

    /// Takes effect on the windows that are open and on those opened later. A desktop that cannot
    /// do it goes on as before, and policy() still tells what was asked for.
    virtual void setPolicy(ActivationPolicy policy) = 0;
};

/// How far the program's work is, shown with its icon in the dock or task bar. Never waits. Main
/// thread only.
class TaskProgress {
public:
    virtual ~TaskProgress() = default;

    /// From 0 to 1. May be called as often as the share changes.
    virtual void show(double share) = 0;
    virtual void hide() = 0;
};

/// Of a desktop that shows none.
class NoTaskProgress final : public TaskProgress {
public:
    void show(double) override {}
    void hide() override {}
};

/// One entry of the status menu. The title is plain text; an empty one is a separator.
struct StatusMenuEntry {
    std::string title;
    std::optional<bool> checked; ///< none: it has no check mark
    std::function<void()> action;
};

/// The program's icon in the status bar, with its menu. Main thread only.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// Makes the item with this template image, a name of the image set, drawn `points` high and
    /// wide. Called once; the item lives as long as this. Where the desktop has no place for it
    /// now, it appears as soon as there is one.
    virtual void create(std::string_view image, int points) = 0;

    /// Whether the item was made and the desktop shows it now. Without it the window must stay
    /// within reach.
    [[nodiscard]] virtual bool available() const = 0;

    /// Calls back, outside any other call, whenever available() may have changed.
    virtual void whenAvailabilityChanges(std::function<void()> changed) = 0;

    /// Replaces the whole menu. An action may do so itself.
    virtual void setMenu(std::vector<StatusMenuEntry> entries) = 0;
};

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

    /// Makes the window as large as the screen lets it be, or as large as it was before.
    virtual void toggleZoomed(ShellWindow window) = 0;

    /// Whether the window exists and is not hidden; a minimised one is visible.
    [[nodiscard]] virtual bool isVisible(ShellWindow window) const = 0;

    /// Whether the window is shown and has the keyboard, so that somebody looks at it.
    [[nodiscard]] virtual bool isActive(ShellWindow window) const = 0;

    /// Makes this the active program, whatever others do.
    virtual void activate() = 0;

    /// Ends the main loop soon, after the call has returned.
    virtual void terminate() = 0;
};

} // namespace pryvane
