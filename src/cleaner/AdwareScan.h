#pragma once

#include "cleaner/ExtensionFiles.h"
#include "cleaner/HomeFolder.h"
#include "core/StopFlag.h"
#include "platform/FileSystem.h"
#include "platform/SizeMeter.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// One extension of Chrome or add-on of Firefox.
struct ExtensionEntry {
    FileURL urlExt;           ///< Chrome: the version's folder; Firefox: as Firefox wrote it
    std::string verExt;       ///< version
    std::string nameExt;      ///< as shown to the user
    std::int64_t sizeExt = 0; ///< allocated bytes
    std::string PersonExt;    ///< Chrome: the profile's name; Firefox: "Default"
};

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
/// calls. What is missing, unreadable or broken gives fewer entries. Blocks: the sizes and the
/// applications walk large trees. Callable from any thread; a stop makes for partial lists.
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

private:
    [[nodiscard]] std::optional<std::string> read(const FileURL& file) const;
    [[nodiscard]] std::vector<FileURL> inBothLibraries(std::string_view folder) const;
    [[nodiscard]] std::vector<FileURL> filledFoldersIn(const FileURL& folder) const;
    [[nodiscard]] std::optional<ExtensionEntry> chromeExtension(const FileURL& versionFolder) const;
    [[nodiscard]] std::string displayName(const std::string& name, const FileURL& folder) const;
    [[nodiscard]] std::vector<ExtensionEntry> measured(std::vector<ExtensionEntry> entries) const;

    const CleanerServices m_services;
    FileSystem& m_disk;
    HomeFolder m_home;
    const StopFlag& m_stop;
};

} // namespace pryvane
