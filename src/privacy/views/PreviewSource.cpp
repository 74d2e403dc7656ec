#include "privacy/views/PreviewSource.h"

#include "core/Escape.h"
#include "removal/views/PlanSource.h"
#include "ui/Labels.h"

#include <QObject>

#include <algorithm>

namespace pryvane {

namespace {

ui::Cell noteCell(const CleaningRow& row)
{
    if (!row.blockedBy.empty())
        return hindranceCell(QObject::tr("%1 is running").arg(ui::text(forScreen(row.blockedBy))));
    return forecastCell(row.forecast, QObject::tr("can be cleared"));
}

} // namespace

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

QString PreviewSource::group(int row, int) const
{
    const CleaningRow& about = at(row);
    const auto& groups = m_controller.availbleApp();
    const auto owner = std::find_if(groups.begin(), groups.end(), [&](const ToolGroup& each) {
        return each.Name == about.group;
    });
    const std::string name = owner == groups.end() ? about.group : shownName(*owner);
    return ui::text(forScreen(name)) + QStringLiteral(": ") + ui::text(forScreen(about.item));
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
