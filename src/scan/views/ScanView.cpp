#include "scan/views/ScanView.h"

#include "core/Escape.h"
#include "findings/views/CoverageView.h"
#include "findings/views/FindingsPane.h"
#include "removal/views/BrowserPanelSheet.h"
#include "removal/views/Failures.h"
#include "removal/views/PlanSheet.h"
#include "removal/views/RemovalProgressView.h"
#include "scan/ScanViewController.h"
#include "scan/views/ScanProgressView.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Listen.h"
#include "ui/Sheet.h"
#include "ui/Style.h"
#include "ui/Surfaces.h"
#include "words/Shown.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <unordered_set>

namespace pryvane {

namespace {

constexpr int kLiveUpdate = 100; // ms between two redraws while a scan runs

QPushButton* makeButton(const QString& title, const char* name)
{
    auto* button = new QPushButton(title);
    button->setObjectName(QLatin1String(name));
    return button;
}

/// Ticks in the plan are ticks in the list.
void selectRecords(ScanViewController& controller, const SpywareList& chosen, bool on)
{
    std::unordered_set<const Spyware*> wanted;
    for (const auto& record : chosen)
        wanted.insert(record.get());
    std::vector<std::size_t> rows;
    const SpywareList& all = controller.results().records();
    for (std::size_t row = 0; row < all.size(); ++row)
        if (wanted.contains(all[row].get()))
            rows.push_back(row);
    controller.removal().selectThreats(rows, on);
}

} // namespace

ScanView::ScanView(ScanViewController& controller, Options options, QWidget* parent)
    : QWidget(parent), m_controller(controller), m_options(std::move(options)),
      m_statement(new ui::ColouredView), m_scanNow(makeButton(tr("Scan Now"), "scanNow")),
      m_remove(makeButton(tr("Remove…"), "remove")),
      m_failures(makeButton(tr("What stayed…"), "showFailures")),
      m_report(makeButton(tr("View Report"), "viewReport")), m_lookedAt(makeButton({}, "lookedAt")),
      m_progress(new ScanProgressView), m_removal(new RemovalProgressView),
      m_notice(ui::makeNote()), m_findings(new FindingsPane(
                                    m_options.user, m_options.foldedName,
                                    [this](const std::vector<int>& rows, bool on) {
                                        m_controller.removal().selectThreats(
                                            std::vector<std::size_t>(rows.begin(), rows.end()), on);
                                    },
                                    FindingsSource::Of::Scan))
{
    setObjectName(QStringLiteral("scanVC"));
    layOut();
    followController();
    connect(m_scanNow, &QPushButton::clicked, this, [this] { m_controller.scanningStartAction(); });
    connect(m_remove, &QPushButton::clicked, this, &ScanView::openPlan);
    connect(m_failures, &QPushButton::clicked, this, &ScanView::showFailures);
    connect(m_report, &QPushButton::clicked, this, &ScanView::reportWanted);
    connect(m_lookedAt, &QPushButton::clicked, this, [this] {
        makeCoverageSheet(this, m_controller.coverage(), m_controller.subject())->present(nullptr);
    });
    connect(m_progress, &ScanProgressView::stopWanted, this, [this] { m_controller.stopScan(); });
    connect(m_removal, &RemovalProgressView::stopWanted, this,
            [this] { m_controller.removal().stopRemoval(); });
    connect(m_findings, &FindingsPane::revealWanted, this, &ScanView::revealWanted);
    connect(m_findings, &FindingsPane::remoteDesktopHelpWanted, this,
            &ScanView::remoteDesktopHelpWanted);
    connect(m_findings, &FindingsPane::ignoreRemoteDesktopWanted, this,
            [this](bool ignore) { m_controller.ignoreARD(ignore); });
    showState();
}

void ScanView::followController()
{
    m_liveUpdate.setSingleShot(true);
    m_liveUpdate.setInterval(kLiveUpdate);
    connect(&m_liveUpdate, &QTimer::timeout, this, &ScanView::showState);
    ui::listen(m_controller.stateChanged, this, [this] {
        if (!m_liveUpdate.isActive())
            m_liveUpdate.start();
    });
    ui::listen(m_controller.scanEnded, this, &ScanView::showState);
    ui::listen(m_controller.removalEnded, this, &ScanView::takeBackRemoved);
    BrowserPanelSheet::follow(this, m_controller.removal().panel());
}

void ScanView::layOut()
{
    m_statement->actions()->setSpacing(ui::kRelated);
    m_lookedAt->setIcon(ui::icon(QStringLiteral("info")));
    m_lookedAt->setAccessibleName(tr("What was looked at"));
    m_lookedAt->setToolTip(tr("What was looked at"));
    for (QPushButton* button : {m_lookedAt, m_report, m_failures, m_remove, m_scanNow})
        m_statement->actions()->addWidget(button);
    m_notice->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(ui::kEdge, ui::kGroups, ui::kEdge, ui::kGroups);
    column->setSpacing(12); // the table gets the height
    column->addWidget(m_statement);
    column->addWidget(m_progress);
    column->addWidget(m_removal);
    column->addWidget(m_notice);
    column->addWidget(m_findings, 1);
}

void ScanView::focusFilter()
{
    m_findings->focusFilter();
}

bool ScanView::isBusy() const
{
    return m_controller.isScanning() || m_controller.removal().isRemoving();
}

void ScanView::showState()
{
    const bool scanning = m_controller.isScanning();
    if (scanning && !m_wasScanning)
        m_progress->begin();
    m_progress->setVisible(scanning);
    if (scanning)
        m_progress->show(m_controller.display());
    m_removal->setVisible(m_controller.removal().isRemoving());
    m_removal->show(m_controller.removal().progress());
    showNotice();
    showStatement();
    showFindings();
    if (m_plan && m_planPending && !m_controller.removal().isPlanning()) {
        m_planPending = false;
        m_plan->setPlan(m_controller.removal().plan());
    }
    m_wasScanning = scanning;
}

/// What an earlier scan came to says nothing of one that was given up.
bool ScanView::showsVerdict() const
{
    return !isBusy() && m_controller.report() != nullptr && m_controller.givenUp().empty();
}

/// What the statement rests on.
QString ScanView::secondLine() const
{
    const StatusPanel& panel = m_controller.statusPanel();
    const auto& summary = m_controller.removal().summary();
    if (summary)
        return QStringList{ui::shown(summary->resultText), ui::shown(summary->counts)}
            .join(QLatin1Char('\n'))
            .trimmed();
    if (!showsVerdict())
        return ui::shown(panel.bottomText);
    QString verdict = ui::shown(verdictLine(m_controller.report()->spyWareList->size(),
                                            m_controller.coverage(), m_controller.subject()));
    if (panel.bottomText.empty() || !panel.showsInfoBox)
        return verdict;
    return verdict + QLatin1Char('\n') + ui::shown(panel.bottomText).simplified();
}

void ScanView::showNotice()
{
    const bool shown = showsVerdict();
    const std::string& error = m_controller.storeError();
    const std::string& givenUp = m_controller.givenUp();
    QStringList notes;
    if (!givenUp.empty())
        notes += tr("There was no scan: %1.").arg(ui::shown(givenUp));
    if (shown && !error.empty())
        notes += tr("The report of this scan is shown here but could not be stored: %1")
                     .arg(ui::shown(forScreen(error)));
    m_notice->setVisible(!isBusy() && !notes.isEmpty());
    m_notice->setText(notes.join(QLatin1Char('\n')));
}

void ScanView::showStatement()
{
    const StatusPanel& panel = m_controller.statusPanel();
    const ThreatRemoval& removal = m_controller.removal();
    const bool idle = !isBusy();
    const bool removed = idle && removal.summary().has_value();
    if (removed) {
        const RemovalSummary& summary = *removal.summary();
        m_statement->setArtwork(ui::text(summary.background), ui::text(summary.icon));
        m_statement->setStatement(ui::shown(summary.informationText), secondLine());
    } else if (idle && panel.isResult) {
        m_statement->setArtwork(ui::text(panel.background), ui::text(panel.badge));
        m_statement->setStatement(ui::shown(panel.statusText), secondLine());
    } else if (idle) {
        // Where nothing was looked at yet nothing is wrong.
        m_statement->setArtwork({}, QStringLiteral("icn_white_question"));
        m_statement->setStatement(ui::shown(panel.statusText), secondLine());
    } else {
        m_statement->setArtwork({}, {});
        m_statement->setStatement(removal.isRemoving() ? tr("Removing what you selected")
                                                       : tr("Looking for spyware"));
    }
    const bool canRemove = removal.removeButtonEnabled();
    m_scanNow->setVisible(idle && (panel.showsScanNow || removed));
    m_remove->setVisible(idle && (removed ? canRemove : panel.showsRemove));
    m_remove->setEnabled(canRemove);
    m_failures->setVisible(removed && !m_controller.lists().unDeletedSpyware.empty());
    m_report->setVisible(idle && m_controller.report() != nullptr);
    m_lookedAt->setVisible(showsVerdict());
}

void ScanView::showFindings()
{
    const bool scanning = m_controller.isScanning();
    if (m_controller.results().records().empty())
        m_findings->setEmptyText(scanning ? tr("Nothing found so far.")
                                 : m_controller.report()
                                     ? tr("This scan found nothing where it looked.")
                                     : tr("Findings are listed here, each with the reason why it "
                                          "was found."));
    m_findings->setSelectable(!isBusy());
    m_findings->setRemoteDesktopIgnored(m_controller.ignoresRemoteDesktop());
    m_findings->showRecords(m_controller.results().shared());
}

void ScanView::openPlan()
{
    if (m_controller.removal().isRefused())
        return;
    m_plan = new PlanSheet(this, [this](const SpywareList& records, bool on) {
        selectRecords(m_controller, records, on);
    });
    connect(m_plan, &PlanSheet::removalWanted, this,
            [this] { m_controller.deleteSelectedThreat(); });
    connect(m_plan, &PlanSheet::recordWanted, this, [this] {
        if (m_options.keepRecord)
            m_options.keepRecord(*m_controller.reportForShowing(),
                                 [plan = m_plan](const QString& words) {
                                     if (plan)
                                         plan->tellRecord(words);
                                 });
    });
    m_planPending = true;
    m_plan->present();
    m_controller.removal().planSelectedThreats();
}

/// What is gone cannot stay selected.
void ScanView::takeBackRemoved()
{
    std::vector<std::size_t> gone;
    const SpywareList& all = m_controller.results().records();
    for (std::size_t row = 0; row < all.size(); ++row)
        if (all[row]->isDeleted)
            gone.push_back(row);
    m_controller.removal().selectThreats(gone, false);
    showState();
    m_findings->focusList();
    QAccessibleEvent told(m_statement, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}

void ScanView::showFailures()
{
    makeFailuresSheet(this, m_controller.lists().unDeletedSpyware)->present();
}

} // namespace pryvane
