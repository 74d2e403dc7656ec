#include "removal/views/PlanSource.h"

#include "core/Escape.h"
#include "core/Texts.h"
#include "findings/views/FindingsSource.h"
#include "ui/Labels.h"
#include "words/Shown.h"

#include <QLocale>
#include <QObject>

#include <algorithm>
#include <utility>

namespace pryvane {

ui::Cell entriesCell(const RemovalForecast& forecast)
{
    return {.text = QLocale().toString(static_cast<qulonglong>(forecast.entries)) +
                    (forecast.countedWhole ? QString() : QStringLiteral("+")),
            .number = static_cast<qint64>(forecast.entries)};
}

ui::Cell sizeCell(const RemovalForecast& forecast)
{
    return {.text = ui::shown(sizeText(forecast.bytes)), .number = forecast.bytes};
}

ui::Cell hindranceCell(const QString& words)
{
    return {
        .text = words, .iconName = QStringLiteral("attention"), .meaning = ui::Meaning::Attention};
}

ui::Cell forecastCell(const RemovalForecast& forecast, const QString& possible)
{
    if (forecast.obstacle != RemovalObstacle::None)
        return hindranceCell(
            ui::shown(forScreen(obstacleText(forecast.obstacle, forecast.detail))));
    if (forecast.kind == FileKind::Missing)
        return {.text = QObject::tr("already gone"), .iconName = QStringLiteral("gone")};
    return {.text = possible, .iconName = QStringLiteral("clean")};
}

std::vector<ui::Column> PlanSource::columns()
{
    return {{.title = QObject::tr("To be removed"), .width = 40},
            {.title = QObject::tr("Name"), .stretches = true},
            {.title = QObject::tr("Location"), .isPath = true, .isBelow = true},
            {.title = QObject::tr("Evidence"), .isChip = true, .words = evidenceWords()},
            {.title = QObject::tr("Entries"), .width = 80, .isNumber = true},
            {.title = QObject::tr("Size"), .width = 90, .isNumber = true},
            {.title = QObject::tr("Forecast"),
             .isChip = true,
             .words = {QObject::tr("can be removed"), QObject::tr("stays"),
                       QObject::tr("already gone")}}};
}

void PlanSource::setPlan(const RemovalPlan& plan)
{
    m_rows = plan.rows;
    std::stable_partition(m_rows.begin(), m_rows.end(),
                          [](const PlannedRecord& row) { return !isWeak(row.flaggedBy.evidence); });
    m_ticks.clear();
    for (const PlannedRecord& row : m_rows)
        m_ticks.push_back(row.record->isChecked && !isWeak(row.flaggedBy.evidence));
}

RemovalPlan::Totals PlanSource::totals() const
{
    return totalsOf(m_rows, [this](std::size_t row) { return m_ticks[row]; });
}

void PlanSource::handOnTicks() const
{
    for (const bool on : {true, false}) {
        SpywareList records;
        for (std::size_t row = 0; row < m_rows.size(); ++row)
            if (m_ticks[row] == on && m_rows[row].record->isChecked != on)
                records.push_back(m_rows[row].record);
        if (!records.empty())
            m_ticked(records, on);
    }
}

std::size_t PlanSource::weakCount() const
{
    return static_cast<std::size_t>(std::ranges::count_if(
        m_rows, [](const PlannedRecord& row) { return isWeak(row.flaggedBy.evidence); }));
}

std::vector<int> PlanSource::weakTicked() const
{
    std::vector<int> rows;
    for (int row = 0; row < count(); ++row)
        if (isWeak(at(row).flaggedBy.evidence) && m_ticks[static_cast<std::size_t>(row)])
            rows.push_back(row);
    return rows;
}

ui::Cell PlanSource::cell(int row, int column) const
{
    const PlannedRecord& planned = at(row);
    switch (column) {
    case Location:
        return {.text =
                    ui::text(forScreen(plannedLocation(planned.record->url, planned.forecast)))};
    case Name:
        return {.text = ui::text(forScreen(planned.record->name())),
                .iconName =
                    planned.record->url.mustBeFolder() || planned.forecast.kind == FileKind::Folder
                        ? QStringLiteral("folder")
                        : QStringLiteral("file")};
    case EvidenceColumn:
        return evidenceCell(planned.flaggedBy);
    case Entries:
        return entriesCell(planned.forecast);
    case Size:
        return sizeCell(planned.forecast);
    case Forecast: {
        ui::Cell cell = forecastCell(planned.forecast, QObject::tr("can be removed"));
        if (planned.forecast.obstacle != RemovalObstacle::None)
            cell.whole = std::exchange(cell.text, QObject::tr("stays")); // why: see below
        return cell;
    }
    default:
        return {};
    }
}

/// Why it stays has a line for itself.
ui::Cell PlanSource::remark(int row) const
{
    if (at(row).forecast.obstacle == RemovalObstacle::None)
        return {};
    return forecastCell(at(row).forecast, {});
}

std::optional<bool> PlanSource::ticked(int row) const
{
    return m_ticks[static_cast<std::size_t>(row)];
}

void PlanSource::tick(const std::vector<int>& rows, bool on)
{
    for (const int row : rows)
        m_ticks[static_cast<std::size_t>(row)] = on;
}

QString PlanSource::group(int row, int grouping) const
{
    const PlannedRecord& planned = at(row);
    const bool weak = isWeak(planned.flaggedBy.evidence);
    QString shown;
    if (grouping == ByRule) {
        shown = ui::text(forScreen(planned.record->infections)) + QStringLiteral(", ") +
                ruleShown(planned.flaggedBy);
        if (weak)
            shown += QStringLiteral(" \"") + ui::text(forScreen(planned.flaggedBy.text)) +
                     QLatin1Char('"');
    } else {
        const std::string path = planned.record->url.absolutePath();
        shown = ui::text(forScreen(path.substr(0, std::max<std::size_t>(1, path.rfind('/')))));
    }
    return weak ? QObject::tr("Look twice: %1").arg(shown) : shown;
}

QString PlanSource::searchText(int row) const
{
    return ui::text(forScreen(at(row).record->url.relativePath()));
}

bool PlanSource::faded(int row) const
{
    return at(row).forecast.kind == FileKind::Missing;
}

} // namespace pryvane
