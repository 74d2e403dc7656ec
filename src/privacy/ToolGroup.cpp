#include "privacy/ToolGroup.h"

#include "core/Texts.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace pryvane {

namespace {

constexpr std::string_view kExtension =
    "A browser extension. Clearing removes it; the browser may say that it is damaged.";

/// Null for what the table does not know.
const tables::PrivacyMeaning* meaning(std::string_view name)
{
    const auto row = std::ranges::find_if(tables::kPrivacyMeanings, [&](const auto& each) {
        return name == each.item ||
               (name.starts_with(each.item) && name.substr(each.item.size()).starts_with(" ("));
    });
    return row == std::end(tables::kPrivacyMeanings) ? nullptr : row;
}

} // namespace

ToolItem getDicForList(std::vector<ToolLocation> list, std::string type, bool isExt)
{
    ToolItem item;
    item.AllList = std::move(list);
    item.NameText = std::move(type);
    item.isExt = isExt;
    if (const auto* known = isExt ? nullptr : meaning(item.NameText))
        item.cost = known->cost;
    return item;
}

std::string_view meaningOf(const ToolItem& item)
{
    if (item.isExt)
        return kExtension;
    const auto* known = item.isHeader ? nullptr : meaning(item.NameText);
    return known ? known->text : std::string_view();
}

std::string_view meaningOfDearLocations()
{
    return meaning(tables::kDearLocations)->text;
}

std::string shownName(ToolGroupKind kind, const std::string& name)
{
    return kind == ToolGroupKind::BrowserExtensions ? "Browser Extensions" : name;
}

void countSize(ToolGroup& group)
{
    group.bytes = 0;
    for (ToolItem& item : group.List) {
        item.bytes = 0;
        for (const ToolLocation& location : item.AllList)
            item.bytes += location.bytes;
        item.isEnabled = item.bytes > 0;
        item.sizeText = item.isHeader ? "" : sizeText(item.bytes);
        group.bytes += item.bytes;
    }
    group.isEnabled = group.bytes > 0;
    group.Size = sizeText(group.bytes);
}

} // namespace pryvane
