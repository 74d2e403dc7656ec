#pragma once

#include <any>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <variant>

namespace pryvane {

/// Every notification of the program. Its text stands in kNotificationNames at the same place.
enum class NotificationName : std::uint8_t {
    MainTableChangedManually, ///< integer: the navigation row to select
    MainTableSelectionChange, ///< SelectionChange
    ScanStatusChange,         ///< bool: a scan started (true) or ended (false)
    ScanningChange,           ///< integer 0, when a scan is done
    ScanningStatusChange,     ///< std::any holding the scan screen's controller, as a pointer
    ScanningProgress,         ///< integer: one more percent of a deep walk
    ScanningProgressURL,      ///< text: the location a deep walk is at, as raw bytes
    UpdateThreat,             ///< none: the result list changed
    StopScan,                 ///< none: the user asked the scan to stop
    ChangeUI,                 ///< none: a switch shown on the dashboard changed
    RefreshReport,            ///< std::any holding the report to show
    ReloadReport,             ///< none
    RemoveMenuItem,           ///< none
};

inline constexpr std::array<std::string_view, 13> kNotificationNames = {
    "MainTableChangedManually",
    "MainTableSelectionChange",
    "ScanStatusChange",
    "ScanningChange",
    "ScanningStatusChange",
    "ScanningProgress",
    "ScanningProgressURL",
    "UpdateThreat",
    "StopScan",
    "ChangeUI",
    "RefreshReport",
    "ReloadReport",
    "RemoveMenuItem",
};
inline constexpr std::size_t kNotificationCount = kNotificationNames.size();
static_assert(static_cast<std::size_t>(NotificationName::RemoveMenuItem) + 1 == kNotificationCount);

[[nodiscard]] constexpr std::size_t index(NotificationName name)
{
    return static_cast<std::size_t>(name);
}

/// Which screen to show, and whether to start a scan there.
struct SelectionChange {
    int row = 0;
    bool scan = false;
    bool checkRoot = false;
    friend bool operator==(const SelectionChange&, const SelectionChange&) = default;
};

/// What a notification carries. A text is borrowed: it is valid during the delivery only.
using NotificationObject =
    std::variant<std::monostate, bool, std::int64_t, std::string_view, SelectionChange, std::any>;

struct Notification {
    NotificationName name;
    const NotificationObject& object;
};

} // namespace pryvane
