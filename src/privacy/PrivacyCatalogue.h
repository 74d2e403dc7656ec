#pragma once

#include "inventory/AdwareScan.h"
#include "privacy/DirectWay.h"
#include "privacy/PrivacyRows.h"
#include "privacy/ToolGroup.h"

#include <functional>
#include <string>
#include <vector>

namespace pryvane {

/// Finds what the tables list on a disk, behind no link: what lies there belongs to somebody else,
/// or is no private data. Callable from any thread; one call at a time.
class PrivacyCatalogue {
public:
    PrivacyCatalogue(const CleanerServices& services, const std::string& user, const StopFlag& stop)
        : m_disk(services.disk), m_way(services.disk), m_user(user), m_home(user),
          m_inventory(services, user, stop), m_stop(stop)
    {
    }

    /// The groups whose application or data is there, in the table's order, not yet measured. Each
    /// item holds the locations that exist. After a stop those not reached are missing.
    [[nodiscard]] std::vector<ToolGroup> groups();

    /// Whether the last groups() hold all that there was. False after a bound was met: then the
    /// disk holds more profiles, folders or bytes than any Mac has, or names profiles elsewhere.
    [[nodiscard]] bool whole() const { return m_whole && m_inventory.whole(); }

    /// Whether every folder of the last groups() could be looked at.
    [[nodiscard]] bool allSeen() const { return m_allSeen; }

private:
    using Rows = std::vector<const tables::PrivacyRow*>;
    struct Profile {
        ToolGroupKind browser;
        std::string path;
        std::string name;
    };

    void lookAround();
    void findChromiumProfiles();
    void findFirefoxProfiles();
    void findOwnCaches();
    [[nodiscard]] ToolGroup groupOf(const tables::PrivacyGroup& row);
    [[nodiscard]] bool isThere(const tables::PrivacyGroup& row, const ToolGroup& group) const;
    [[nodiscard]] std::vector<ToolItem> itemsOf(const tables::PrivacyGroup& group);
    [[nodiscard]] std::vector<FolderEntry> entriesOf(const FileURL& folder,
                                                     ToolItem* item = nullptr);
    void noteNotSeen(ToolItem* item, const std::string& reason);
    [[nodiscard]] std::vector<std::string> foldersIn(const FileURL& folder);
    [[nodiscard]] ToolItem item(const tables::PrivacyGroup& group, const Rows& rows,
                                std::string name, const Profile* onlyProfile = nullptr);
    [[nodiscard]] std::vector<std::string> foldersOf(tables::Anchor anchor,
                                                     const tables::PrivacyGroup& group,
                                                     const Profile* onlyProfile) const;
    void addLocations(ToolItem& item, const tables::PrivacyRow& row, const std::string& folder);
    void addLocation(ToolItem& item, const std::string& path, tables::Take take,
                     std::string_view browser, bool isDear = false);
    void addExtensions(const std::vector<ToolGroupKind>& browsers, std::vector<ToolItem>& items);
    void addExtensionsOf(const tables::PrivacyGroup& browser, std::vector<ToolItem>& items);
    void addExtension(std::vector<ToolItem>& items, std::string name, const FileURL& url,
                      std::string_view browser);
    [[nodiscard]] bool isAddOnPlace(const FileURL& url) const;

    FileSystem& m_disk;
    DirectWay m_way;
    std::string m_user;
    HomeFolder m_home;
    AdwareScan m_inventory;
    const StopFlag& m_stop;
    bool m_whole = true;
    bool m_allSeen = true;
    // Read anew by each groups(); paths.
    std::vector<Profile> m_chromiumProfiles;
    std::vector<std::string> m_firefoxProfiles;
    std::vector<std::string> m_safariProfiles;
    std::vector<std::string> m_containers;
    std::vector<std::string> m_mailVersions;
    std::vector<std::string> m_ownCaches;
};

} // namespace pryvane
