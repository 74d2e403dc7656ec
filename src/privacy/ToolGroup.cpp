#include "privacy/ToolGroup.h"

#include "core/Texts.h"

#include <utility>

namespace pryvane {

ToolItem getDicForList(std::vector<ToolLocation> list, std::string type, bool isExt)
{
    ToolItem item;
    item.AllList = std::move(list);
    item.NameText = std::move(type);
    item.isExt = isExt;
    return item;
}

std::string shownName(const ToolGroup& group)
{
    return group.kind == ToolGroupKind::BrowserExtensions ? "Browser Extensions" : group.Name;
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
