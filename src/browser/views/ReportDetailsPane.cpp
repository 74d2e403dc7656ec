#include "browser/views/ReportDetailsPane.h"

#include "browser/ReportViewController.h"
#include "core/Escape.h"
#include "findings/views/CoverageView.h"
#include "findings/views/FindingsPane.h"
#include "removal/views/RemovalProgressView.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/MenuButton.h"
#include "ui/Style.h"
#include "words/Shown.h"

#include <QAccessible>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace pryvane {

using ui::TextRole;

namespace {

constexpr int kProgressUpdate = 100; // ms

QPushButton* makeButton(const char* name, const QString& title, const char* iconName = nullptr)
{
    auto* button = new QPushButton(title);
    button->setObjectName(QLatin1String(name));
    if (iconName)
        button->setIcon(ui::icon(QLatin1String(iconName)));
    return button;
}

QString number(std::uint64_t value)
{
    return QLocale().toString(static_cast<qulonglong>(value));
}

/// The report's own count; the store keeps its low eight bits only, so the list may hold more.
QString countText(const ReportViewController& controller)
{
    const std::uint64_t count = controller.details().spyWareCount;
    const std::uint64_t listed = controller.report()->spyWareList->size();
    return count == listed
               ? number(count)
               : ReportDetailsPane::tr("%1 (%2 listed)").arg(number(count), number(listed));
}

} // namespace

ReportDetailsPane::ReportDetailsPane(ReportViewController& controller, std::string user,
                                     std::function<std::string(std::string_view)> foldedName,
                                     QWidget* parent)
    : QWidget(parent), m_controller(controller), m_notice(new ui::Notice(QStringLiteral("notice"))),
      m_banner(new ui::ColouredView), m_progress(new RemovalProgressView)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(ui::kEdge, ui::kEdge, ui::kEdge, ui::kEdge);
    column->setSpacing(ui::kGroups);
    column->addWidget(makeHead());
    column->addWidget(makeFacts());
    column->addWidget(m_notice);
    column->addWidget(m_banner);
    column->addWidget(m_progress);
    makeRemovalRow();
    column->addWidget(m_removalRow);
    makeFindings(std::move(user), std::move(foldedName));
    column->addWidget(m_findings, 1);
    m_progressUpdate.setInterval(kProgressUpdate);
    connect(&m_progressUpdate, &QTimer::timeout, this, &ReportDetailsPane::showRemoval);
    connect(m_progress, &RemovalProgressView::stopWanted, this,
            [this] { m_controller.removal().stopRemoval(); });
}

QWidget* ReportDetailsPane::makeHead()
{
    auto* back = makeButton("backToReports", tr("Reports"), "back");
    back->setAccessibleName(tr("Back to the reports"));
    back->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Left));
    m_type = ui::makeLabel(TextRole::Statement);
    m_type->setObjectName(QStringLiteral("reportKind"));
    m_print = makeButton("printReport", tr("Print…"), "print");
    auto* menu = new QMenu;
    menu->setObjectName(QStringLiteral("exportMenu"));
    for (const ExportKind& kind : kExportKinds)
        connect(
            menu->addAction(tr("As %1…").arg(QLatin1String(kind.name))), &QAction::triggered, this,
            [this, kind] { Q_EMIT exportWanted(kind); },
            Qt::QueuedConnection); // it opens a dialog
    auto* exporting = new ui::MenuButton(tr("Export"), menu);
    exporting->setObjectName(QStringLiteral("exportReport"));
    exporting->setIcon(ui::icon(QStringLiteral("export")));
    auto* trash = makeButton("deleteReport", tr("Delete…"), "btn_trash");
    connect(back, &QPushButton::clicked, &m_controller, &ReportViewController::backtoReportList);
    connect(m_print, &QPushButton::clicked, this, &ReportDetailsPane::printWanted);
    connect(trash, &QPushButton::clicked, &m_controller, &ReportViewController::trashReport);

    auto* head = new QWidget;
    auto* row = new QHBoxLayout(head);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(ui::kRelated);
    row->addWidget(back);
    row->addSpacing(ui::kRelated);
    row->addWidget(m_type, 1);
    for (QPushButton* button : {m_print, static_cast<QPushButton*>(exporting), trash})
        row->addWidget(button);
    return head;
}

QWidget* ReportDetailsPane::makeFacts()
{
    m_path = new ui::ElidedLabel;
    m_path->setObjectName(QStringLiteral("scanPath"));
    m_durationLabel = ui::makeNote();
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(ui::kEdge);
    grid->setVerticalSpacing(2);
    m_count = addFact(*grid, 0, ui::makeNote(tr("Findings:")));
    m_start = addFact(*grid, 1, ui::makeNote(tr("Start:")));
    m_duration = addFact(*grid, 2, m_durationLabel);
    m_count->setObjectName(QStringLiteral("infectionCount"));
    m_start->setObjectName(QStringLiteral("startTime"));
    m_duration->setObjectName(QStringLiteral("duration"));
    grid->setColumnStretch(3, 1);
    auto* card = new ui::Card;
    card->column()->addWidget(m_path);
    card->column()->addLayout(grid);
    return card;
}

QLabel* ReportDetailsPane::addFact(QGridLayout& grid, int column, QLabel* title)
{
    auto* value = ui::makeLabel(TextRole::Body);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    title->setWordWrap(false);
    title->setBuddy(value);
    grid.addWidget(title, 0, column);
    grid.addWidget(value, 1, column);
    return value;
}

void ReportDetailsPane::makeRemovalRow()
{
    m_coverage = new CoverageView;
    m_failures = makeButton("reportFailures", tr("What stayed…"));
    m_remove = makeButton("quarantineBtn", tr("Remove…"));
    connect(m_failures, &QPushButton::clicked, this, &ReportDetailsPane::failuresWanted);
    connect(m_remove, &QPushButton::clicked, this, &ReportDetailsPane::removeWanted);
    m_banner->actions()->setSpacing(ui::kRelated);
    m_banner->actions()->addWidget(m_failures);
    m_removalRow = new QWidget;
    auto* row = new QHBoxLayout(m_removalRow);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(ui::kRelated);
    row->addWidget(m_coverage, 1);
    row->addWidget(m_remove);
}

void ReportDetailsPane::makeFindings(std::string user,
                                     std::function<std::string(std::string_view)> foldedName)
{
    m_findings = new FindingsPane(
        std::move(user), std::move(foldedName),
        [this](const std::vector<int>& rows, bool on) { m_controller.checkRows(rows, on); },
        FindingsSource::Of::Report);
    m_findings->setEmptyText(tr("This scan found nothing."));
    connect(m_findings, &FindingsPane::revealWanted, this, [this](const FileURL& location) {
        const SpywareList& list = *m_controller.report()->spyWareList;
        const auto found = std::ranges::find_if(list, [&](const auto& record) {
            return record->url.relativePath() == location.relativePath();
        });
        m_controller.showThreatInFileDelegate(static_cast<std::size_t>(found - list.begin()));
    });
    connect(m_findings, &FindingsPane::remoteDesktopHelpWanted, this,
            &ReportDetailsPane::remoteDesktopHelpWanted);
}

void ReportDetailsPane::showState()
{
    showFacts();
    showRemoval();
    showFindings();
    m_notice->tell(ui::shown(m_controller.notice()), m_controller.isNoticeOfFailure());
    m_print->setEnabled(!m_controller.isPrinting());
}

void ReportDetailsPane::showFacts()
{
    const auto& report = m_controller.report();
    if (m_shown == report.get() || !report)
        return;
    const ReportDetails& details = m_controller.details();
    m_type->setText(ui::shown(details.type));
    const std::string& label = report->labels.label;
    m_path->setText(ui::shown(details.path) + QStringLiteral("  (") +
                    (label.empty() ? QString() : ui::text(forScreen(label) + "; ")) +
                    ui::shown(subjectText(report->subject)) + QLatin1Char(')'));
    m_count->setText(countText(m_controller));
    m_start->setText(ui::shown(details.startTime));
    m_durationLabel->setText(ui::shown(details.durationLabel));
    m_duration->setText(ui::shown(details.duration).simplified());
    m_coverage->show(report->spyWareList->size(), report->coverage, report->subject);
    m_shown = report.get();
}

void ReportDetailsPane::showRemoval()
{
    const ReportRemoval& removal = m_controller.removal();
    const SelectionState& selection = m_controller.selection();
    const bool removing = removal.isRemoving();
    if (removing != m_progressUpdate.isActive())
        removing ? m_progressUpdate.start() : m_progressUpdate.stop();
    m_progress->setVisible(removing);
    if (removing)
        m_progress->show(removal.progress());
    m_removalRow->setVisible(!removal.banner() && !removing);
    m_failures->setVisible(!removal.listUnDeleted().empty());
    m_remove->setVisible(!selection.quarantineBtnHide && !removing);
    m_remove->setEnabled(selection.quarantineBtn);
    showBanner();
}

/// The banner takes the place of the coverage, and the remove button with it.
void ReportDetailsPane::showBanner()
{
    const auto& banner = m_controller.removal().banner();
    const bool turns = banner.has_value() == m_banner->isHidden();
    m_banner->setVisible(banner.has_value());
    if (turns)
        (banner ? m_banner->actions() : m_removalRow->layout())->addWidget(m_remove);
    if (!banner)
        return;
    m_banner->setArtwork(ui::text(banner->background), ui::text(banner->icon));
    const QStringList lines{ui::shown(banner->resultText), ui::shown(banner->counts)};
    m_banner->setStatement(ui::shown(banner->informationText),
                           lines.join(QLatin1Char('\n')).trimmed());
    if (turns) {
        m_findings->focusList();
        QAccessibleEvent told(m_banner, QAccessible::Alert);
        QAccessible::updateAccessibility(&told);
    }
}

void ReportDetailsPane::showFindings()
{
    const auto& report = m_controller.report();
    m_findings->setSelectable(!m_controller.removal().isRemoving());
    m_findings->showRecords(report ? report->spyWareList : nullptr);
    if (!report)
        m_shown = nullptr;
}

void ReportDetailsPane::focusFilter()
{
    m_findings->focusFilter();
}

void ReportDetailsPane::focusFirst()
{
    findChild<QPushButton*>(QStringLiteral("backToReports"))->setFocus(Qt::OtherFocusReason);
}

} // namespace pryvane
