#pragma once

#include "inventory/AdwareScan.h"
#include "privacy/DirectWay.h"
#include "privacy/ToolGroup.h"

#include <string>
#include <vector>

namespace pryvane {

/// Finds what the table lists on a disk, behind no link: what lies there belongs to somebody else,
/// or is no private data. Callable from any thread; one call at a time.
class PrivacyCatalogue {
public:
    PrivacyCatalogue(const CleanerServices& services, const std::string& user, const StopFlag& stop)
        : m_disk(services.disk), m_way(services.disk), m_home(user),
          m_inventory(services, user, stop)
    {
    }

    /// The groups whose application is there, in the table's order, not yet measured. Each item
    /// holds the locations that exist.
    [[nodiscard]] std::vector<ToolGroup> groups();

private:
    using Rows = std::vector<const tables::PrivacyRow*>;

    [[nodiscard]] bool isThere(const tables::PrivacyGroup& group) const;
    [[nodiscard]] std::vector<ToolItem> itemsOf(const tables::PrivacyGroup& group);
    [[nodiscard]] std::vector<std::string> foldersIn(const FileURL& folder);
    [[nodiscard]] ToolItem item(const Rows& rows, std::string name,
                                const ChromeProfile* onlyProfile = nullptr);
    [[nodiscard]] std::vector<std::string> foldersOf(tables::Anchor anchor,
                                                     const ChromeProfile* onlyProfile) const;
    void addLocations(ToolItem& item, const tables::PrivacyRow& row, const std::string& folder);
    void addLocation(ToolItem& item, const std::string& path, tables::Take take,
                     std::string_view browser);
    void addExtensions(std::vector<ToolItem>& items);
    void addExtension(std::vector<ToolItem>& items, std::string name, const FileURL& url,
                      std::string_view browser);
    [[nodiscard]] bool isAddOnPlace(const FileURL& url) const;

    FileSystem& m_disk;
    DirectWay m_way;
    HomeFolder m_home;
    AdwareScan m_inventory;
    // Read anew by each groups().
    std::vector<ChromeProfile> m_chromeProfiles;
    std::vector<std::string> m_firefoxProfiles; ///< paths
    std::vector<std::string> m_containers;      ///< paths
};

} // namespace pryvane
