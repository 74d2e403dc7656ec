#include "inventory/views/InventorySource.h"

#include "core/Escape.h"
#include "core/Texts.h"
#include "ui/Labels.h"

#include <QObject>

namespace pryvane {

namespace {

QString iconOf(InventoryKind kind)
{
    switch (kind) {
    case InventoryKind::LaunchAgents:
    case InventoryKind::LaunchDaemons:
        return QStringLiteral("launch-folder");
    case InventoryKind::ChromeExtensions:
    case InventoryKind::FirefoxAddOns:
    case InventoryKind::SafariExtensions:
        return QStringLiteral("extension");
    case InventoryKind::ApplicationSupport:
        return QStringLiteral("folder");
    case InventoryKind::Applications:
        return QStringLiteral("application");
    }
    return {};
}

} // namespace

std::vector<ui::Column> InventorySource::columns()
{
    return {{.width = 8},
            {.title = QObject::tr("Name"), .width = 190},
            {.title = QObject::tr("Version, profile"), .width = 116},
            {.title = QObject::tr("Location"), .stretches = true, .isPath = true},
            {.title = QObject::tr("Size"), .width = 80, .isNumber = true}};
}

int InventorySource::count() const
{
    return static_cast<int>(m_controller.entries().size());
}

ui::Cell InventorySource::cell(int row, int column) const
{
    const InventoryEntry& about = entry(row);
    switch (column) {
    case Name:
        return {.text = ui::text(forScreen(about.name)), .iconName = iconOf(about.kind)};
    case Detail:
        return {.text = ui::text(forScreen(about.detail))};
    case Location:
        return {.text = ui::text(forScreen(about.url.relativePath()))};
    case Size:
        return {.text = about.bytes ? ui::text(sizeText(*about.bytes)) : QString(),
                .number = about.bytes.value_or(-1)};
    default:
        return {};
    }
}

QString InventorySource::group(int row, int) const
{
    return ui::text(heading(entry(row).kind));
}

bool InventorySource::hidden(int row) const
{
    return m_kind && entry(row).kind != *m_kind;
}

QString InventorySource::searchText(int row) const
{
    return cell(row, Name).text + QLatin1Char('\n') + cell(row, Location).text;
}

} // namespace pryvane
