#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

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

} // namespace pryvane
