#include "browser/views/ReportsSource.h"

#include "core/Escape.h"
#include "findings/views/CoverageView.h"
#include "ui/Labels.h"
#include "words/Shown.h"

#include <QLocale>
#include <QObject>

namespace pryvane {

namespace {

ui::Cell stateCell(const ReportFacts& report)
{
    ui::Cell cell = verdictCell(report.verdict);
    cell.tooltip = ui::shown(report.verdictLine);
    return cell;
}

ui::Cell actionCell(const ReportRow& row)
{
    const QString icon = ui::text(row.openTrash.substr(0, row.openTrash.rfind('.')));
    if (!row.hasThreats)
        return {.text = QObject::tr("Delete"),
                .iconName = icon,
                .tooltip = QObject::tr("Delete this report")};
    return {.text = QObject::tr("Open"),
            .iconName = icon,
            .tooltip = QObject::tr("Show this report's findings")};
}

} // namespace

std::vector<ui::Column> ReportsSource::columns()
{
    return {{.width = 8},
            {.title = QObject::tr("State"), .width = 104},
            {.title = QObject::tr("When"), .width = 96},
            {.title = QObject::tr("Kind"), .width = 132},
            {.title = QObject::tr("Mac and User"), .stretches = true},
            {.title = QObject::tr("Duration"), .width = 140, .isSpare = true},
            {.title = QObject::tr("Findings"), .width = 72, .isNumber = true},
            {.width = 92}};
}

const ReportRow& ReportsSource::texts(int row) const
{
    if (row != m_lastRow) {
        m_lastTexts = m_rows.row(static_cast<std::size_t>(row));
        m_lastRow = row;
    }
    return m_lastTexts;
}

ui::Cell ReportsSource::cell(int row, int column) const
{
    const ReportFacts& report = m_rows.report(static_cast<std::size_t>(row));
    switch (column) {
    case State:
        return stateCell(report);
    case When:
        return {.text = ui::shown(texts(row).when),
                .number = report.scanDate.time_since_epoch().count(),
                .tooltip = ui::text(texts(row).date)};
    case Kind:
        return {.text = ui::shown(texts(row).kind)};
    case Mac:
        return {.text = ui::shown(texts(row).mac),
                .tooltip = ui::shown(subjectText(report.subject))};
    case Findings: {
        // The count of the report itself is stored with its low eight bits only.
        const auto findings = static_cast<qint64>(report.findings);
        return {.text = QLocale().toString(findings), .number = findings};
    }
    case Duration:
        return {.text = ui::shown(texts(row).duration).simplified(),
                .number = static_cast<qint64>(report.seconds * 1000)};
    case Action:
        return actionCell(texts(row));
    default:
        return {};
    }
}

/// The one grouping there is goes by Mac.
QString ReportsSource::group(int row, int /*grouping*/) const
{
    const ReportFacts& report = m_rows.report(static_cast<std::size_t>(row));
    return ui::text(forScreen(diskName(report.subject, report.labels)));
}

} // namespace pryvane
