#include "app/views/DashboardView.h"

#include "app/DashBoardViewController.h"
#include "app/SchedulerVC.h"
#include "app/views/ScheduleSheet.h"
#include "core/Texts.h"
#include "scan/StatusPanel.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Spinner.h"
#include "ui/Style.h"
#include "ui/Surfaces.h"
#include "words/Shown.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace pryvane {

using ui::TextRole;

namespace {

constexpr std::chrono::seconds kTimePasses{20};

} // namespace

DashboardView::DashboardView(DashBoardViewController& controller, SchedulerVC& scheduler,
                             QWidget* parent)
    : QWidget(parent), m_controller(controller), m_scheduler(scheduler),
      m_statement(new ui::ColouredView)
{
    setObjectName(QStringLiteral("dashBoardVC"));
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(ui::kEdge, ui::kEdge, ui::kEdge, ui::kEdge);
    column->setSpacing(ui::kGroups);
    column->addWidget(m_statement);
    column->addWidget(makeScanCard());
    column->addWidget(makeSwitches());
    column->addWidget(makeScheduleCard());
    column->addStretch();

    auto* scroll = new QScrollArea;
    scroll->setWidget(content);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(scroll);

    m_look = new QPushButton(tr("Look at Them"));
    m_look->setObjectName(QStringLiteral("lookAtFindings"));
    m_statement->actions()->addWidget(m_look);
    connect(m_look, &QPushButton::clicked, this, &DashboardView::reportWanted);
    connect(&m_controller, &DashBoardViewController::stateChanged, this, &DashboardView::showState);
    connect(&m_scheduler, &SchedulerVC::stateChanged, this, &DashboardView::showSchedule);
    m_passing.setInterval(kTimePasses);
    connect(&m_passing, &QTimer::timeout, this, &DashboardView::showStatement);
    showState();
    showSchedule();
}

/// How long ago the last scan was is right while it is looked at.
void DashboardView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    showStatement();
    m_passing.start();
}

void DashboardView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_passing.stop();
}

QWidget* DashboardView::makeScanCard()
{
    m_scan = new ui::ButtonWithSpinner;
    m_scan->setObjectName(QStringLiteral("scanSpyware"));
    m_scan->setMinimumSize(180, 40);
    ui::makePrimary(*m_scan);
    connect(m_scan, &QPushButton::clicked, &m_controller,
            &DashBoardViewController::scanningStartAction);
    m_deep = new QCheckBox(tr("Deep scan"));
    m_deep->setObjectName(QStringLiteral("btnDeepScan"));
    connect(m_deep, &QCheckBox::toggled, &m_controller,
            &DashBoardViewController::btnDeepScanClicked);
    m_explanation = ui::makeNote();

    auto* controls = new QVBoxLayout;
    controls->setSpacing(ui::kRelated);
    controls->addWidget(m_scan, 0, Qt::AlignLeft);
    controls->addWidget(m_deep, 0, Qt::AlignLeft);
    auto* card = new ui::Card;
    card->column()->addWidget(ui::makeLabel(TextRole::GroupTitle, tr("Look for spyware")));
    card->column()->addLayout(controls);
    card->column()->addWidget(m_explanation);
    return card;
}

QWidget* DashboardView::makeSwitches()
{
    m_realTime = new ui::SwitchRow(tr("Real-time scan"),
                                   tr("A quick scan every 30 minutes while Pryvane is running."));
    m_realTime->box()->setObjectName(QStringLiteral("btnRealTimeScan"));
    m_dockIcon = new ui::SwitchRow(tr("Dock icon"),
                                   tr("Show Pryvane among the open applications of the desktop."));
    m_dockIcon->box()->setObjectName(QStringLiteral("dockIcon"));
    m_runStartUp = new ui::SwitchRow(tr("Start at login"), tr("Start Pryvane when you log in."));
    m_runStartUp->box()->setObjectName(QStringLiteral("runStartUp"));
    connect(m_realTime->box(), &QCheckBox::toggled, &m_controller,
            &DashBoardViewController::btnRealTimeScanClicked);
    connect(m_dockIcon->box(), &QCheckBox::toggled, &m_controller,
            &DashBoardViewController::dockIconAction);
    connect(m_runStartUp->box(), &QCheckBox::toggled, &m_controller,
            &DashBoardViewController::runStartUpAction);
    auto* card = new ui::Card;
    card->column()->addWidget(ui::makeLabel(TextRole::GroupTitle, tr("Settings")));
    for (ui::SwitchRow* row : {m_realTime, m_dockIcon, m_runStartUp})
        card->column()->addWidget(row);
    return card;
}

QWidget* DashboardView::makeScheduleCard()
{
    m_next = ui::makeNote();
    m_next->setObjectName(QStringLiteral("nextScheduledScan"));
    m_schedule = new QPushButton(tr("Schedule…"));
    m_schedule->setObjectName(QStringLiteral("openSchedule"));
    connect(m_schedule, &QPushButton::clicked, this, &DashboardView::openSchedule);
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    words->addWidget(ui::makeLabel(TextRole::GroupTitle, tr("Scheduled scan")));
    words->addWidget(m_next);
    auto* row = new QHBoxLayout;
    row->addLayout(words, 1);
    row->addWidget(m_schedule);
    auto* card = new ui::Card;
    card->column()->addLayout(row);
    return card;
}

void DashboardView::showState()
{
    showStatement();
    showScanButton();
    showSwitches();
}

void DashboardView::showStatement()
{
    const LastScans& last = m_controller.lastScans();
    m_look->setVisible(last.date && last.verdict == Verdict::Found);
    if (!last.date) {
        m_statement->setArtwork({}, QStringLiteral("icn_white_question"));
        m_statement->setStatement(
            tr("Not scanned yet"),
            m_controller.diskCanBeTold()
                ? tr("A quick scan mostly takes less than a minute, and changes nothing "
                     "on the disk.")
                : tr("This disk cannot be told from others, so what earlier "
                     "scans found is in the reports only."));
        return;
    }
    const QString when = tr("Last scan: %1").arg(ui::shown(m_controller.lastScanText()));
    const VerdictWords& words = wordsFor(last.verdict);
    const Artwork artwork = artworkOf(words.tone);
    m_statement->setArtwork(ui::text(artwork.background), ui::text(artwork.badge));
    const QString line = when + QLatin1Char('\n') + ui::shown(last.verdictLine);
    if (last.verdict == Verdict::Found)
        m_statement->setStatement(tr("The last scan found something"), line);
    else if (last.verdict == Verdict::Clean)
        m_statement->setStatement(tr("The last scan found nothing"), line);
    else
        m_statement->setStatement(ui::shown(words.headline), line);
}

void DashboardView::showScanButton()
{
    const ScanButton& button = m_controller.scanButton();
    m_scan->setText(ui::shownOnButton(button.title));
    m_scan->setAccessibleName(button.title.empty() ? tr("A scan is running")
                                                   : ui::shown(button.title));
    if (button.spinner)
        m_scan->showSpinner();
    else
        m_scan->hideSpinner();
    m_scan->setEnabled(!button.spinner);
    m_deep->setVisible(button.deepShown);
    m_deep->setEnabled(button.deepEnabled);
    ui::showTicked(*m_deep, button.deepChecked);
    m_explanation->setText(ui::shown(m_controller.scanExplanation()));
}

void DashboardView::showSwitches()
{
    ui::showTicked(*m_realTime->box(), m_controller.isRealTimeProtectionON());
    ui::showTicked(*m_dockIcon->box(), m_controller.showDockIcon());
    ui::showTicked(*m_runStartUp->box(), m_controller.loginStart());
}

void DashboardView::showSchedule()
{
    const std::string next = m_scheduler.nextFiringText();
    m_next->setText(next.empty() ? tr("No scan is scheduled.") : ui::shown(next));
}

void DashboardView::openSchedule()
{
    m_scheduler.schudlerAction();
    auto* sheet = new ScheduleSheet(this, m_scheduler);
    sheet->present();
}

} // namespace pryvane
