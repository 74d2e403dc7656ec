#pragma once

#include "core/ThreadSafety.h"
#include "core/tasks/BoundQueue.h"
#include "findings/ScanCoverage.h"
#include "findings/Spyware.h"
#include "platform/PlatformServices.h"
#include "signatures/CheckRunner.h"
#include "signatures/MakersApplications.h"

#include <atomic>
#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace pryvane {

struct ScanState;

/// Carries findings from the scan's threads to the result list on the main thread, in slices short
/// enough that the main loop never stalls, however many there are. Made and destroyed on the main
/// thread; the scan's threads must have ended before it is destroyed.
class FindingInbox final : public FindingSink {
public:
    /// `listChanged` is called on the main thread after each slice that changed the result list.
    FindingInbox(const PlatformServices& services, ScanState& state,
                 std::function<void()> listChanged);

    void addIfAvail(const FileURL& url, std::string_view name, std::string_view type,
                    std::string_view risk, std::int64_t size) override;
    void addSeen(const FileURL& url, std::string_view name, std::string_view type,
                 std::string_view risk, std::int64_t size, const SeenEntry& seen) override;
    void append(const FileURL& url, std::string_view name, std::string_view type,
                std::string_view risk, std::int64_t size) override;

    /// Whose homes are looked at from now on, sorted; each finding in one of them gets its user.
    void setUsers(std::vector<std::string> users);

    /// Whether the contents of findings that are files are read for their SHA-256. Before any scan.
    void setHashing(bool wanted) { m_hashes = wanted; }

    /// Runs `done` on the main thread once every finding handed in before has been dealt with.
    void whenEmpty(std::function<void()> done);

    /// Paths of applications that were found but must not be listed. Main thread only.
    [[nodiscard]] const std::vector<std::string>& heldBack() const { return m_heldBack; }

    /// Locations that were handed to addIfAvail(), and of which the disk could not tell whether
    /// they are there.
    [[nodiscard]] std::vector<Refusal> refused();

    /// Forgets what is waiting, what was held back and what was refused. Main thread only, between
    /// scans.
    void clear();

private:
    enum class Admission : std::uint8_t { Tested, AsItIs };
    struct Pending {
        std::shared_ptr<Spyware> record; // or
        std::function<void()> done;
        Admission admission = Admission::Tested;
        std::size_t times = 1; ///< on the result list
    };

    /// A folder as it was asked for and as the disk spells it; empty: that cannot be told.
    struct Walked {
        std::string folder, spelled;
    };

    void lookAt(Spyware& record);
    [[nodiscard]] std::string spelledBelow(const FileURL& url);
    void noteHash(Spyware& record);
    void test(std::shared_ptr<Spyware> record);
    void refuse(const FileURL& url);
    void push(Pending pending);
    void schedule(std::chrono::milliseconds delay);
    void drainSlice();
    [[nodiscard]] bool take(std::deque<Pending>& slice);
    void admit(const Pending& pending);
    void holdBack(const FileURL& url);
    void list(const std::shared_ptr<Spyware>& record);
    void tellCount();

    PlatformServices m_services;
    ScanState& m_state;
    std::function<void()> m_listChanged;
    MakersApplications m_applications;
    bool m_hashes = false;
    std::vector<std::string> m_heldBack;
    std::unordered_set<std::string> m_heldBackLocations;
    std::chrono::nanoseconds m_nextCount{0}; ///< when the number may be told again
    BoundQueue m_later;

    Mutex m_mutex;
    std::deque<Pending> m_pending GUARDED_BY(m_mutex);
    bool m_scheduled GUARDED_BY(m_mutex) = false; ///< a slice follows, at once or after a pause
    std::vector<std::string> m_users GUARDED_BY(m_mutex);
    std::vector<Refusal> m_refused GUARDED_BY(m_mutex);
    std::unordered_set<std::string> m_refusedLocations GUARDED_BY(m_mutex);
    Walked m_walked GUARDED_BY(m_mutex); ///< the last folder with a walk's finding
};

} // namespace pryvane
