#include "browser/views/ReportListPane.h"

#include "browser/ReportDocuments.h"
#include "browser/ReportViewController.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Pages.h"
#include "ui/RowTable.h"
#include "ui/Spinner.h"
#include "ui/Style.h"
#include "ui/Surfaces.h"
#include "words/Shown.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace pryvane {

namespace {

enum Page { Reading, NothingYet, List };

} // namespace

ReportListPane::ReportListPane(ReportViewController& controller, QWidget* parent)
    : QWidget(parent), m_controller(controller), m_source(controller.rows()),
      m_model(m_source, ReportsSource::columns()),
      m_table(new ui::RowTable(m_model, tr("Reports"))), m_pages(new ui::Pages),
      m_list(new ui::Pages), m_notice(new ui::Notice(QStringLiteral("listNotice")))
{
    m_table->setObjectName(QStringLiteral("reportList"));
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->addWidget(m_table);
    m_list->addWidget(
        new ui::EmptyState(QStringLiteral("filter"), tr("No report fits the filter.")));
    auto* card = new ui::Card;
    card->column()->addWidget(makeToolbar());
    card->column()->addWidget(m_list, 1);
    for (QWidget* page : {ui::makeBusyPage(tr("Reading the reports…")), makeNothingYet(),
                          static_cast<QWidget*>(card)})
        m_pages->addWidget(page);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(ui::kEdge, ui::kEdge, ui::kEdge, ui::kEdge);
    column->setSpacing(ui::kGroups);
    column->addWidget(makeHead());
    column->addWidget(m_notice);
    column->addWidget(m_pages, 1);
    followTable();
}

QWidget* ReportListPane::makeHead()
{
    m_statement = ui::makeLabel(ui::TextRole::Statement, tr("Reports"));
    m_statement->setObjectName(QStringLiteral("reportCount"));
    m_scanning = ui::makeBusyRow(tr("A scan is running. Its report comes at its end."));
    m_scanning->setObjectName(QStringLiteral("scanningSpinner"));
    auto* head = new QWidget;
    auto* row = new QHBoxLayout(head);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_statement, 1);
    row->addWidget(m_scanning);
    return head;
}

QWidget* ReportListPane::makeToolbar()
{
    m_search = ui::makeFilterField(tr("Search by kind, date, Mac or threat"));
    m_search->setObjectName(QStringLiteral("searchReports"));
    connect(m_search, &QLineEdit::textChanged, this,
            [this](const QString& words) { m_controller.setSearch(words.toStdString()); });
    m_filter = new QComboBox;
    m_filter->setObjectName(QStringLiteral("filterReports"));
    m_filter->setAccessibleName(tr("Which reports are shown"));
    m_filter->addItems({tr("All reports"), tr("Found"), tr("Clean")});
    connect(m_filter, &QComboBox::currentIndexChanged, this,
            [this](int index) { m_controller.setFilter(static_cast<ReportFilter>(index)); });
    m_grouping = new QComboBox;
    m_grouping->setObjectName(QStringLiteral("groupReports"));
    m_grouping->setAccessibleName(tr("Group by"));
    m_grouping->addItems({tr("No groups"), tr("Group by Mac")});
    connect(m_grouping, &QComboBox::currentIndexChanged, &m_model, &ui::RowModel::setGrouping);
    m_compare = new QPushButton;
    m_compare->setObjectName(QStringLiteral("compareReports"));
    m_compare->setIcon(ui::icon(QStringLiteral("compare")));
    m_compare->setToolTip(tr("Compares two selected reports, or the selected one with the one "
                             "before it of the same Mac"));
    connect(m_compare, &QPushButton::clicked, this, &ReportListPane::compareSelected);
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(ui::kRelated);
    row->addWidget(m_search, 1);
    row->addWidget(m_filter);
    row->addWidget(m_grouping);
    row->addWidget(m_compare);
    return bar;
}

QWidget* ReportListPane::makeNothingYet()
{
    auto* scan = new QPushButton(tr("Scan Now"));
    scan->setObjectName(QStringLiteral("scanFromReports"));
    ui::makePrimary(*scan);
    connect(scan, &QPushButton::clicked, &m_controller, &ReportViewController::scanningStartAction);
    auto* nothing = new ui::EmptyState(QStringLiteral("reports"),
                                       tr("No reports yet: every scan leaves one here."));
    nothing->setObjectName(QStringLiteral("noReports"));
    nothing->setAction(scan);
    return nothing;
}

void ReportListPane::followTable()
{
    connect(m_table, &ui::RowTable::rowActivated, this, &ReportListPane::open);
    connect(m_table, &ui::RowTable::menuWanted, this, &ReportListPane::showMenu);
    connect(m_table, &QTableView::clicked, this, &ReportListPane::act);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ReportListPane::showSelection);
    auto* remove = new QShortcut(QKeySequence::Delete, m_table);
    remove->setContext(Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, &ReportListPane::askToDelete);
    // Only keys that the table gets lead down from the search.
    auto* down = new QShortcut(Qt::Key_Down, m_search);
    down->setContext(Qt::WidgetShortcut);
    connect(down, &QShortcut::activated, this, &ReportListPane::focusList);
}

void ReportListPane::showRows()
{
    const auto wanted = m_controller.selectedRow();
    m_source.forget();
    m_model.reset();
    for (int row = 0; wanted && row < m_model.rowCount(); ++row) {
        if (m_model.sourceRow(m_model.index(row, 0)) == static_cast<int>(*wanted)) {
            m_table->setCurrentIndex(m_model.index(row, ReportsSource::State));
            break;
        }
    }
    showSelection();
    showState();
}

void ReportListPane::showState()
{
    const auto count = static_cast<qlonglong>(m_controller.reportList().size());
    QString statement = count == 0   ? tr("Reports")
                        : count == 1 ? tr("1 report")
                                     : tr("%1 reports").arg(QLocale().toString(count));
    const auto ofThisDisk = m_controller.reportsOfThisDisk();
    if (ofThisDisk && *ofThisDisk < m_controller.reportList().size())
        statement += *ofThisDisk == 0
                         ? tr(", none of this disk")
                         : tr(", %1 of this disk")
                               .arg(QLocale().toString(static_cast<qulonglong>(*ofThisDisk)));
    m_statement->setText(statement);
    m_scanning->setVisible(m_controller.isScanning());
    m_notice->tell(ui::shown(m_controller.notice()), m_controller.isNoticeOfFailure());
    m_pages->setCurrentIndex(count > 0 ? List : m_controller.isLoading() ? Reading : NothingYet);
    m_list->setCurrentIndex(m_model.rowCount() > 0 ? 0 : 1);
}

std::vector<int> ReportListPane::selected() const
{
    std::vector<int> rows;
    for (const QModelIndex& index : m_table->selectionModel()->selectedRows())
        if (!m_model.isHeading(index))
            rows.push_back(m_model.sourceRow(index));
    std::ranges::sort(rows);
    return rows;
}

void ReportListPane::showSelection()
{
    // The selection of ten thousand rows is never asked for one by one.
    const auto& ranges = m_table->selectionModel()->selection();
    int count = 0;
    for (const QItemSelectionRange& range : ranges)
        count += range.height();
    const std::vector<int> rows = count <= 2 ? selected() : std::vector<int>();
    if (rows.size() == 1)
        m_controller.selectRow(static_cast<std::size_t>(rows[0]));
    else
        m_controller.selectRow(std::nullopt);
    m_compare->setText(count == 2 ? tr("Compare these two") : tr("Compare with previous"));
    m_compare->setEnabled(rows.size() == 2 || (rows.size() == 1 && previousOf(rows[0])));
}

std::optional<int> ReportListPane::previousOf(int row) const
{
    const auto previous = m_controller.rows().previousOf(static_cast<std::size_t>(row));
    return previous ? std::optional(static_cast<int>(*previous)) : std::nullopt;
}

void ReportListPane::act(const QModelIndex& index)
{
    if (index.column() == ReportsSource::Action && !m_model.isHeading(index))
        m_controller.openThisReport(static_cast<std::size_t>(m_model.sourceRow(index)));
}

void ReportListPane::open(int row)
{
    m_controller.selectRow(static_cast<std::size_t>(row));
    m_controller.viewReport();
}

void ReportListPane::askToDelete()
{
    const std::vector<int> rows = selected();
    if (rows.size() > 1)
        m_controller.trashReports({rows.begin(), rows.end()});
    else
        m_controller.trashSelectedReport();
}

void ReportListPane::wantExport(const ExportKind& kind)
{
    const std::vector<int> rows = selected();
    Q_EMIT exportWanted(m_controller.reportIds({rows.begin(), rows.end()}), kind);
}

void ReportListPane::compareSelected()
{
    const std::vector<int> rows = selected();
    if (rows.size() == 2)
        Q_EMIT compareWanted(rows[0], rows[1]);
    else if (rows.size() != 1)
        return;
    else if (const auto previous = previousOf(rows[0]))
        Q_EMIT compareWanted(rows[0], *previous);
}

void ReportListPane::showMenu(int row, const QPoint& place)
{
    QMenu menu(this);
    menu.addAction(ui::icon(QStringLiteral("btn_open")), tr("Open"), [this, row] { open(row); });
    menu.addAction(ui::icon(QStringLiteral("compare")), m_compare->text(), this,
                   &ReportListPane::compareSelected)
        ->setEnabled(m_compare->isEnabled());
    const auto count = static_cast<int>(selected().size());
    QMenu* exports = menu.addMenu(count > 1 ? tr("Export These %1").arg(count) : tr("Export"));
    for (const ExportKind& kind : kExportKinds)
        exports->addAction(tr("As %1…").arg(QLatin1String(kind.name)), this,
                           [this, kind] { wantExport(kind); });
    menu.addAction(ui::icon(QStringLiteral("btn_trash")),
                   count > 1 ? tr("Delete These %1…").arg(count) : tr("Delete…"), this,
                   &ReportListPane::askToDelete);
    menu.exec(place);
}

void ReportListPane::focusFilter()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void ReportListPane::focusList()
{
    if (m_model.rowCount() > 0 && !m_table->currentIndex().isValid())
        m_table->setCurrentIndex(m_model.index(0, ReportsSource::State));
    m_table->setFocus(Qt::OtherFocusReason);
}

} // namespace pryvane
