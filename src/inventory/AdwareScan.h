#pragma once

#include "core/StopFlag.h"
#include "inventory/ChromeExtensions.h"
#include "inventory/HomeFolder.h"
#include "platform/FileSystem.h"
#include "platform/SizeMeter.h"

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

struct SafariExtension {
    FileURL url;
    std::string name; ///< as shown to the user
};

/// What looking at a disk takes. The services outlive whoever holds this.
struct CleanerServices {
    FileSystem& disk;
    SizeMeter& sizes;
};

/// Lists what is installed around the browsers and at the system's start. Keeps nothing between two
/// calls but whether a bound was met. What is missing, unreadable or broken gives fewer entries.
/// Blocks: the sizes and the applications walk large trees. Callable from any thread; a stop makes
/// for partial lists.
class AdwareScan {
public:
    AdwareScan(const CleanerServices& services, std::string user, const StopFlag& stop)
        : m_services(services), m_disk(services.disk), m_home(std::move(user)), m_stop(stop)
    {
    }

    [[nodiscard]] static bool checkForAdware() { return false; }
    [[nodiscard]] std::vector<ExtensionEntry> getChromeExtantionList() const;
    [[nodiscard]] std::vector<ExtensionEntry> getFirefoxExtantionList() const;
    [[nodiscard]] std::vector<FileURL> getSafariExtantionList() const;
    [[nodiscard]] std::vector<FileURL> getLaunchAgentsList() const;
    [[nodiscard]] std::vector<FileURL> getLaunchDaemonsList() const;
    [[nodiscard]] std::vector<FileURL> getApplicationSupportList() const;
    [[nodiscard]] std::vector<FileURL> getAppList() const;

    /// A folder's direct children, hidden ones included.
    [[nodiscard]] std::vector<FileURL> getUrlListAt(const FileURL& folder) const;

    /// The application bundles below a folder, outside hidden folders and packages.
    [[nodiscard]] std::vector<FileURL> getApplicationList(const FileURL& folder) const;

    /// The profiles of Chrome on the disk.
    [[nodiscard]] std::vector<ChromeProfile> chromeProfiles() const;

    /// The extensions, not measured.
    [[nodiscard]] std::vector<ExtensionEntry> chromeExtensions() const;
    [[nodiscard]] std::vector<ExtensionEntry> firefoxAddOns() const;
    [[nodiscard]] std::vector<SafariExtension> safariExtensions() const;

    /// Whether every list so far holds all that there was. False after one met a bound: then the
    /// disk holds more profiles, folders or bytes than any browser makes.
    [[nodiscard]] bool whole() const { return m_whole; }

private:
    [[nodiscard]] std::optional<std::string> read(const FileURL& file) const;
    [[nodiscard]] std::vector<FileURL> inBothLibraries(std::string_view folder) const;
    template <typename Entry>
    [[nodiscard]] std::vector<Entry> noted(BoundedList<Entry> list) const
    {
        if (!list.whole)
            m_whole = false;
        return std::move(list.entries);
    }
    [[nodiscard]] std::vector<ExtensionEntry> measured(std::vector<ExtensionEntry> entries) const;

    const CleanerServices m_services;
    FileSystem& m_disk;
    HomeFolder m_home;
    const StopFlag& m_stop;
    mutable std::atomic<bool> m_whole{true};
};

} // namespace pryvane
