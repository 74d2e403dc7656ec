#pragma once

#include "core/StopFlag.h"
#include "inventory/ChromeExtensions.h"
#include "inventory/ExtensionPermissions.h"
#include "platform/FileSystem.h"
#include "platform/FileURL.h"
#include "platform/Users.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// The lists of the inventory, in the order in which a window gathers and shows them.
enum class InventoryKind : std::uint8_t {
    LaunchAgents,
    LaunchDaemons,
    ChromeExtensions,
    FirefoxAddOns,
    SafariExtensions,
    ApplicationSupport,
    Applications,
    AllExtensions, ///< of every browser but Safari, with what they may do
};

inline constexpr std::array kInventoryHeadings = {
    "Launch agents",   "Launch daemons",        "Google Chrome extensions",
    "Firefox add-ons", "Safari extensions",     "Application support",
    "Applications",    "What extensions may do"};

[[nodiscard]] constexpr const char* heading(InventoryKind kind)
{
    return kInventoryHeadings[static_cast<std::size_t>(kind)];
}

/// Where a user's home is on the volume, and what browsers keep in it. The home is always taken
/// from the login name, never from the environment.
class HomeFolder {
public:
    static constexpr std::string_view kChrome = "Library/Application Support/Google/Chrome";
    static constexpr std::string_view kFirefox = "Library/Application Support/Firefox";
    static constexpr std::string_view kFirefoxProfiles =
        "Library/Application Support/Firefox/Profiles";
    static constexpr std::string_view kSafari = "Library/Safari";

    explicit HomeFolder(const std::string& user) : m_path(homePath(user)) {}

    [[nodiscard]] const std::string& path() const { return m_path; }

    /// A path below the home, without a slash at its beginning.
    [[nodiscard]] FileURL at(std::string_view path) const
    {
        return FileURL::fileURLWithPath(joinedPath(m_path, path));
    }

private:
    std::string m_path;
};

/// Whether a folder of that name is shown by a Mac as one file, going by its extension, whose
/// letter case does not matter.
[[nodiscard]] bool isPackage(const FileURL& folder);

/// Whether a folder of that name counts as an application; only the lower-case extension does.
[[nodiscard]] inline bool isApplication(const FileURL& folder)
{
    return folder.pathExtension() == "app";
}

/// An extension of any browser but Safari, with what it may do.
struct ExtensionFact {
    ExtensionEntry entry;
    std::string browser; ///< display name
    std::string id;      ///< as the browser knows it; of Firefox empty
    ExtensionSource source = ExtensionSource::NotKnown;
    std::vector<std::string> permissions; ///< in plain words
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
/// calls but whether a bound was met. What is missing, unreadable or broken gives fewer entries.
/// Blocks: the sizes and the applications walk large trees. Callable from any thread; a stop makes
/// for partial lists.
class AdwareScan {
public:
    /// What of a Mac to list: what all users share, or what is a user's own, or both.
    enum class Part : std::uint8_t { Both, Shared, Own };

    AdwareScan(const CleanerServices& services, const std::string& user, const StopFlag& stop,
               Part part = Part::Both)
        : m_services(services), m_disk(services.disk), m_home(user), m_stop(stop), m_part(part)
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

    /// The profiles of Chrome, or of a browser made like it whose folder below the home is given.
    [[nodiscard]] std::vector<ChromeProfile>
    chromeProfiles(std::string_view place = HomeFolder::kChrome) const;

    /// The folders of the profiles that Firefox lists, each one path component.
    [[nodiscard]] std::vector<std::string> firefoxProfileFolders() const;

    /// The extensions, not measured; Chrome's also of a browser made like it.
    [[nodiscard]] std::vector<ExtensionEntry>
    chromeExtensions(std::string_view place = HomeFolder::kChrome) const;
    [[nodiscard]] std::vector<ExtensionEntry> firefoxAddOns() const;
    [[nodiscard]] std::vector<SafariExtension> safariExtensions() const;

    /// The extensions of every browser made like Chrome, those in folders elsewhere included, and
    /// Firefox's add-ons, measured.
    [[nodiscard]] std::vector<ExtensionFact> extensionFacts() const;

    /// Whether every list so far holds all that there was. False after one met a bound: then the
    /// disk holds more profiles, folders or bytes than any browser makes.
    [[nodiscard]] bool whole() const { return m_whole; }

private:
    [[nodiscard]] std::optional<std::string> read(const FileURL& file) const;
    /// What is gathered, with what may still be read for it.
    struct FactsSoFar {
        ChromeExtensions extensions;
        std::size_t bytesLeft = ListingBounds().bytesRead;
        std::vector<ExtensionFact> facts = {};
    };
    [[nodiscard]] std::optional<std::string> read(const FileURL& file, FactsSoFar& soFar) const;
    void addFactsOf(const ChromeProfile& profile, std::string_view place, std::string_view browser,
                    FactsSoFar& soFar) const;
    void addFirefoxFacts(FactsSoFar& soFar) const;
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
    const Part m_part;
    mutable std::atomic<bool> m_whole{true};
};

} // namespace pryvane
