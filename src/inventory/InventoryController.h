#pragma once

#include "core/Signal.h"
#include "core/StopFlag.h"
#include "core/tasks/BoundQueue.h"
#include "core/tasks/Worker.h"
#include "inventory/AdwareScan.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pryvane {

/// One thing that is installed. Names are raw bytes.
struct InventoryEntry {
    InventoryKind kind = InventoryKind::Applications;
    FileURL url;
    std::string name;
    std::string detail;                ///< version and profile of an extension
    std::optional<std::int64_t> bytes; ///< allocated, where it was measured
};

/// The inventory without its window: gathers it on one background thread, list by list, and judges
/// nothing. Main thread only.
class InventoryController final {
public:
    struct Services {
        CleanerServices disk;
        MainQueue& mainQueue;
    };

    /// The services outlive this.
    InventoryController(const Services& services, UserChoice users);
    ~InventoryController();
    InventoryController(const InventoryController&) = delete;
    InventoryController& operator=(const InventoryController&) = delete;

    /// The page is about to be shown: the first time, the inventory is gathered.
    void viewWillAppear();

    /// Gathers all lists anew. Nothing while they are being gathered.
    void gather();

    /// Ends gathering as soon as it can; what was found by then stands.
    void stop() { m_stop.request(); }

    [[nodiscard]] bool isGathering() const { return m_isGathering; }
    /// Whether all lists were gathered to their ends.
    [[nodiscard]] bool isWhole() const { return m_isWhole; }
    /// The list that is being gathered.
    [[nodiscard]] InventoryKind gathering() const { return m_gathering; }
    /// Only ever grows while it is gathered.
    [[nodiscard]] const std::vector<InventoryEntry>& entries() const { return m_entries; }

    Signal stateChanged;

private:
    void ended(bool whole);

    const Services m_services;
    const UserChoice m_users;
    bool m_hasAppeared = false;
    bool m_isGathering = false;
    bool m_isWhole = false;
    InventoryKind m_gathering{};
    std::vector<InventoryEntry> m_entries;
    StopFlag m_stop;
    BoundQueue m_later;
    Worker m_thread; // last: it ends before anything it uses
};

} // namespace pryvane
