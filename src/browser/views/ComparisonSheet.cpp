#include "browser/views/ComparisonSheet.h"

#include "core/Escape.h"
#include "ui/Labels.h"
#include "ui/RowTable.h"
#include "words/Shown.h"

#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace pryvane {

namespace {

constexpr int kTableHeight = 320;

enum Column : int { Edge, ChangeColumn, Threat, Location, Size };

std::vector<ui::Column> columns()
{
    return {{.width = 8},
            {.title = ComparisonSheet::tr("Change"), .width = 128},
            {.title = ComparisonSheet::tr("Threat"), .width = 170},
            {.title = ComparisonSheet::tr("Location"), .stretches = true, .isPath = true},
            {.title = ComparisonSheet::tr("Size"), .width = 84, .isNumber = true}};
}

QString nameOf(const SpywareScanReport& report)
{
    return ComparisonSheet::tr("%1 (%2, %3: %4)")
        .arg(ui::text(localDateText(report.scanDate)), ui::shown(forScreen(report.reportType)),
             ui::shown(subjectText(report.subject)),
             ui::shown(wordsFor(report.verdict()).shortWord));
}

QString counts(const ReportComparison& changes)
{
    const auto number = [](const SpywareList& list) {
        return QLocale().toString(static_cast<qulonglong>(list.size()));
    };
    return ComparisonSheet::tr("%1 new, %2 gone, %3 in both")
        .arg(number(changes.added), number(changes.gone), number(changes.kept));
}

} // namespace

ComparisonSheet::ComparisonSheet(QWidget* over, const SpywareScanReport& report,
                                 const SpywareScanReport& other, ReportComparison changes)
    : Sheet(over, counts(changes)), m_source(std::move(changes)), m_model(m_source, columns()),
      m_table(new ui::RowTable(m_model, tr("What changed")))
{
    setObjectName(QStringLiteral("comparisonSheet"));
    m_table->setObjectName(QStringLiteral("comparison"));
    m_table->setMinimumHeight(kTableHeight);
    const bool turned = other.scanDate < report.scanDate;
    auto* between = ui::makeNote(
        tr("From %1 to %2").arg(nameOf(turned ? other : report), nameOf(turned ? report : other)));
    between->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* filter = ui::makeFilterField(tr("Filter by threat or location"));
    connect(filter, &QLineEdit::textChanged, &m_model, &ui::RowModel::setFilter);
    auto* close = new QPushButton(tr("Close"));
    close->setObjectName(QStringLiteral("closeComparison"));
    connect(close, &QPushButton::clicked, this, &Sheet::dismiss);
    body()->addWidget(between);
    const std::string remark =
        turned ? comparisonRemark(other, report) : comparisonRemark(report, other);
    if (!remark.empty())
        body()->addWidget(ui::makeNote(ui::shown(remark)));
    body()->addWidget(filter);
    body()->addWidget(m_table, 1);
    buttons()->addWidget(close);
    setWidth(860);
}

void ComparisonSheet::present()
{
    Sheet::present(m_table);
}

int ComparisonSheet::Source::count() const
{
    return static_cast<int>(m_changes.added.size() + m_changes.gone.size() + m_changes.kept.size());
}

ComparisonSheet::Source::Change ComparisonSheet::Source::change(int row) const
{
    const auto place = static_cast<std::size_t>(row);
    if (place < m_changes.added.size())
        return Change::New;
    return place < m_changes.added.size() + m_changes.gone.size() ? Change::Gone : Change::Kept;
}

const Spyware& ComparisonSheet::Source::record(int row) const
{
    auto place = static_cast<std::size_t>(row);
    for (const SpywareList* list : {&m_changes.added, &m_changes.gone}) {
        if (place < list->size())
            return *(*list)[place];
        place -= list->size();
    }
    return *m_changes.kept[place];
}

ui::Cell ComparisonSheet::Source::changeCell(Change change)
{
    switch (change) {
    case Change::New:
        return {.text = tr("new"),
                .iconName = QStringLiteral("new"),
                .meaning = ui::Meaning::Found,
                .number = 0};
    case Change::Gone:
        return {.text = tr("gone"), .iconName = QStringLiteral("gone"), .number = 1};
    case Change::Kept:
        break;
    }
    return {.text = tr("as before"), .iconName = QStringLiteral("found"), .number = 2};
}

ui::Cell ComparisonSheet::Source::cell(int row, int column) const
{
    const Spyware& found = record(row);
    switch (column) {
    case ChangeColumn:
        return changeCell(change(row));
    case Threat:
        return {.text = ui::text(forScreen(found.infections))};
    case Location:
        return {.text = ui::text(forScreen(found.url.relativePath()))};
    case Size:
        return {.text = ui::shown(sizeText(found.size)), .number = found.size};
    default:
        return {};
    }
}

QString ComparisonSheet::Source::searchText(int row) const
{
    const Spyware& found = record(row);
    return ui::text(forScreen(found.infections) + '\n' + forScreen(found.url.relativePath()));
}

} // namespace pryvane
