#pragma once

#include "platform/FileSystem.h"
#include "platform/FileURL.h"
#include "signatures/CatalogueTypes.h"
#include "signatures/NameSearch.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace pryvane {

class UserDefaults;
struct ScanCoverage;

/// Where checks hand what they found. Callable from the scan's threads.
class FindingSink {
public:
    virtual ~FindingSink() = default;

    /// Puts the location on the result list if it exists, is not there yet, and is not one of the
    /// maker's own applications.
    virtual void addIfAvail(const FileURL& url, std::string_view name, std::string_view type,
                            std::string_view risk, std::int64_t size) = 0;

    /// addIfAvail() for what the caller has just seen in a folder's listing, so that a flood of
    /// findings need not cost another look at the disk each.
    virtual void addSeen(const FileURL& url, std::string_view name, std::string_view type,
                         std::string_view risk, std::int64_t size, const SeenEntry& /*seen*/)
    {
        addIfAvail(url, name, type, risk, size);
    }

    /// Puts the record on the result list as it is, without those tests.
    virtual void append(const FileURL& url, std::string_view name, std::string_view type,
                        std::string_view risk, std::int64_t size) = 0;
};

/// Runs the catalogue's checks, one at a time, as the sequence calls for them. Every check only
/// tests whether something exists; what it finds goes to the sink, what could not be tested to the
/// coverage. No thread of its own: all methods, and the coverage while it is held, belong to the
/// thread of the scan.
class CheckRunner {
public:
    /// Shows a label and waits; returns whether the scan goes on.
    using WaitFor = std::function<bool(std::string_view label, std::chrono::milliseconds interval)>;

    /// Each of the users fills "%@" in turn; what all share is tested once. All references outlive
    /// the runner.
    CheckRunner(FileSystem& disk, UserDefaults& defaults, std::vector<std::string> users,
                FindingSink& sink, ScanCoverage& coverage);

    /// Takes the snapshot of the default locations that all name searches of the scan read.
    void prepareForScan();

    /// Runs the check of that name in the sequence. A name that is not in it does nothing.
    void run(std::string_view method, const WaitFor& waitFor);

    void run(const ThreatCheck& check);
    void OtherSpyWareSearch();
    void otherCheckDefaultOnly(const WaitFor& waitFor);
    void checkForBackDoor();
    void checkForARD();

    /// Default locations whose path holds the name with a "." behind it, then with a "." before it.
    [[nodiscard]] std::vector<std::string>
    checkForSpywareNameFileInDefaultLocation(std::string_view name);

    /// What exists of the location below each library root, in the order of the roots and the
    /// users.
    [[nodiscard]] std::vector<std::string> checkUrlInALLScope(std::string_view relative);

    /// Allocated bytes; measured once per location and scan.
    [[nodiscard]] std::int64_t fileSizeOf(const FileURL& url);

    [[nodiscard]] const std::vector<std::string>& defaultCheckingArray() const;

private:
    using Paths = std::vector<std::string>;

    template <typename Use>
    void eachLocation(std::string_view pattern, const Use& use) const;
    void appendIfPresent(std::string path, Paths& found);
    void appendPresent(std::span<const std::string_view> patterns, Paths& found);
    [[nodiscard]] Presence presenceOf(const FileURL& url);
    void noteUntestable(const FileURL& url);
    void report(const Paths& found, std::string_view type);

    FileSystem& m_disk;
    UserDefaults& m_defaults;
    const std::vector<std::string> m_users;
    FindingSink& m_sink;
    ScanCoverage& m_coverage;
    NameSearch m_search;
    bool m_lacksSystemVolume = false;
    std::unordered_set<std::string> m_untestable; ///< folders recorded in the coverage
    std::unordered_map<std::string, std::int64_t> m_sizes;
};

} // namespace pryvane
