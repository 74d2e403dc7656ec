#pragma once

#include "platform/Removal.h"
#include "privacy/PrivacyMeanings.h"
#include "privacy/PrivacyTable.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// One file or folder of an item. A path that ends in a slash stands for what the folder holds.
struct ToolLocation {
    FileURL url;
    RemovalScope scope = RemovalScope::Item;
    FileKind kind = FileKind::Unknown; ///< what stood there when the catalogue was built
    std::int64_t bytes = 0;            ///< allocated
    /// Display name of the application that may have it open, besides those whose places the table
    /// knows.
    std::string_view browser;
    bool isDear = false; ///< cannot be had back, though the rest of its item can
};

/// A row of a group: what is cleaned as one, or a heading.
struct ToolItem {
    std::vector<ToolLocation> AllList;
    std::string NameText;
    std::string sizeText = "0KB";
    std::int64_t bytes = 0;
    bool isChecked = false;
    bool isMeantWhole = false; ///< ticked by itself, and so with what of it is dear
    bool isEnabled = false;    ///< something is there to be cleaned
    bool isExt = false;        ///< the item is one browser extension
    bool isHeader = false;     ///< a heading, not to be cleaned
    Cost cost = Cost::Little;
    std::string notSeen; ///< why not all of it could be looked at, in words; empty: all was
};

/// What can be cleaned of one application.
struct ToolGroup {
    ToolGroupKind kind = ToolGroupKind::System;
    std::string Name;
    std::string user; ///< whose data it is, by the home's name
    std::vector<ToolItem> List;
    std::string Size;
    std::int64_t bytes = 0;
    FileURL Img; ///< the application that lends its icon; empty: none
    bool isChecked = false;
    bool isEnabled = false;
    bool isFromAdware = false; ///< its items come from the inventory of extensions
};

/// An item as it stands before it is measured; what losing it costs goes by its name.
[[nodiscard]] ToolItem getDicForList(std::vector<ToolLocation> list, std::string type, bool isExt);

/// What an item holds and what clearing it means, in a sentence or two; empty for a heading.
[[nodiscard]] std::string_view meaningOf(const ToolItem& item);

/// The same of what of an item is dear although the item is not.
[[nodiscard]] std::string_view meaningOfDearLocations();

/// Whether the item may be ticked along with others. What is dear is ticked by itself only.
[[nodiscard]] inline bool ticksWithOthers(const ToolItem& item)
{
    return item.isEnabled && !item.isHeader && item.cost != Cost::Dear;
}

/// The group's name for a person.
[[nodiscard]] std::string shownName(ToolGroupKind kind, const std::string& name);
[[nodiscard]] inline std::string shownName(const ToolGroup& group)
{
    return shownName(group.kind, group.Name);
}

/// Sums up the group's items and the group, from the bytes of their locations.
void countSize(ToolGroup& group);

} // namespace pryvane
