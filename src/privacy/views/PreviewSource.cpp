#include "privacy/views/PreviewSource.h"

#include "core/Escape.h"
#include "core/Texts.h"
#include "removal/views/PlanSource.h"
#include "ui/Labels.h"
#include "words/Shown.h"

#include <QObject>

#include <algorithm>

namespace pryvane {

namespace {

ui::Cell noteCell(const CleaningRow& row)
{
    if (!row.blockedBy.empty())
        return hindranceCell(QObject::tr("%1 is running").arg(ui::text(forScreen(row.blockedBy))));
    ui::Cell cell = forecastCell(row.forecast, QObject::tr("can be cleared"));
    if (!row.largest.empty())
        cell.text += QStringLiteral(", ") + ui::shown(forScreen(largestText(row)));
    return cell;
}

/// "Chrome: Cookies (Alice)"
QString itemName(const CleaningRow& row)
{
    return ui::shown(forScreen(shownName(row.kind, row.group))) + QStringLiteral(": ") +
           ui::shown(forScreen(row.item));
}

} // namespace

std::vector<ui::Column> PreviewItems::columns()
{
    return {{.title = QObject::tr("To be cleared"), .width = 40},
            {.title = QObject::tr("Item"), .width = 220, .stretches = true},
            {.title = QObject::tr("What that means"), .isBelow = true},
            {.title = QObject::tr("Entries"), .width = 64, .isNumber = true},
            {.title = QObject::tr("Size"), .width = 90, .isNumber = true}};
}

void PreviewItems::follow()
{
    m_items = m_controller.preview().items();
    std::ranges::stable_partition(m_items, [this](const CleaningPreview::Item& item) {
        return m_controller.preview().rows[item.first].cost == Cost::Dear;
    });
}

ui::Cell PreviewItems::cell(int row, int column) const
{
    const CleaningPreview::Item& item = at(row);
    switch (column) {
    case Name:
        return {.text = itemName(firstOf(row))};
    case Meaning: {
        const QString meaning = ui::shown(std::string(item.meaning));
        return {.text = meaning, .tooltip = meaning};
    }
    case Entries:
        return {.text = QString::number(item.totals.entries),
                .number = static_cast<qint64>(item.totals.entries)};
    case Size:
        return {.text = ui::shown(sizeText(item.totals.bytes)), .number = item.totals.bytes};
    default:
        return {};
    }
}

std::optional<bool> PreviewItems::ticked(int row) const
{
    return at(row).ticked;
}

void PreviewItems::tick(const std::vector<int>& rows, bool on)
{
    for (const int row : rows) {
        const CleaningPreview::Item item = at(row);
        for (std::size_t i = 0; i < item.count; ++i)
            m_controller.setPreviewTicked(item.first + i, on);
    }
    follow();
}

bool PreviewItems::ticksWithOthers(int row) const
{
    return firstOf(row).cost != Cost::Dear;
}

QString PreviewItems::group(int row, int) const
{
    return firstOf(row).cost == Cost::Dear ? QObject::tr("Cannot be had back")
                                           : QObject::tr("The rest");
}

std::vector<ui::Column> PreviewSource::columns()
{
    return {{.title = QObject::tr("To be cleared"), .width = 40},
            {.title = QObject::tr("Location"), .stretches = true, .isPath = true},
            {.title = QObject::tr("Entries"), .width = 64, .isNumber = true},
            {.title = QObject::tr("Size"), .width = 90, .isNumber = true},
            {.title = QObject::tr("Forecast"), .width = 212}};
}

int PreviewSource::count() const
{
    return static_cast<int>(m_controller.preview().rows.size());
}

ui::Cell PreviewSource::cell(int row, int column) const
{
    const CleaningRow& about = at(row);
    switch (column) {
    case Location:
        return {.text = ui::text(forScreen(plannedLocation(about.location.url, about.forecast)))};
    case Entries:
        return entriesCell(about.forecast);
    case Size:
        return sizeCell(about.forecast);
    case Note:
        return noteCell(about);
    default:
        return {};
    }
}

std::optional<bool> PreviewSource::ticked(int row) const
{
    return at(row).ticked;
}

void PreviewSource::tick(const std::vector<int>& rows, bool on)
{
    for (const int row : rows)
        m_controller.setPreviewTicked(static_cast<std::size_t>(row), on);
}

bool PreviewSource::ticksWithOthers(int row) const
{
    return at(row).cost != Cost::Dear;
}

QString PreviewSource::group(int row, int) const
{
    return itemName(at(row));
}

QString PreviewSource::searchText(int row) const
{
    return cell(row, Location).text;
}

bool PreviewSource::faded(int row) const
{
    return !at(row).blockedBy.empty() || at(row).forecast.kind == FileKind::Missing;
}

} // namespace pryvane
