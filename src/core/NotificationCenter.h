#pragma once

#include "core/ThreadSafety.h"

#include <any>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <variant>
#include <vector>

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

/// Named notifications inside the process. Delivery is synchronous, on the posting thread, in the
/// order of registration; any thread may post, observe or stop observing.
class NotificationCenter {
public:
    using Handler = std::function<void(const Notification&)>;

    /// Keeps one observation alive; destroying it ends the observation. A handler that another
    /// thread has already entered still finishes.
    class [[nodiscard]] Observation {
    public:
        Observation() = default;
        ~Observation() { end(); }
        Observation(Observation&& other) noexcept { *this = std::move(other); }
        Observation& operator=(Observation&& other) noexcept;
        Observation(const Observation&) = delete;
        Observation& operator=(const Observation&) = delete;
        void end();

    private:
        friend class NotificationCenter;
        Observation(NotificationCenter& center, NotificationName name, std::uint64_t id)
            : m_center(&center), m_name(name), m_id(id)
        {
        }
        NotificationCenter* m_center = nullptr;
        NotificationName m_name{};
        std::uint64_t m_id = 0;
    };

    /// Calls `handler` for every notification of that name until the observation ends. The center
    /// must outlive the observation.
    Observation observe(NotificationName name, Handler handler);

    /// Whether a posting of that name would reach anybody. One atomic read, so that a hot loop can
    /// skip making an object that nobody reads.
    [[nodiscard]] bool hasObservers(NotificationName name) const
    {
        return m_counts[index(name)].load(std::memory_order_acquire) != 0;
    }

    void post(NotificationName name, const NotificationObject& object = {});

private:
    struct Observer {
        std::uint64_t id;
        Handler handler;
    };
    using Observers = std::vector<Observer>;

    void replace(NotificationName name, Observers observers) REQUIRES(m_mutex);
    void forget(NotificationName name, std::uint64_t id) EXCLUDES(m_mutex);

    Mutex m_mutex;
    std::uint64_t m_lastId GUARDED_BY(m_mutex) = 0;
    /// By name; copied on change.
    std::array<std::shared_ptr<const Observers>, kNotificationCount>
        m_observers GUARDED_BY(m_mutex);
    std::array<std::atomic<std::size_t>, kNotificationCount> m_counts{}; ///< of observers, by name
};

} // namespace pryvane
