#include "engine/views/ScanView.h"

#include "engine/ScanViewController.h"
#include "engine/views/CoverageView.h"
#include "engine/views/FindingsPane.h"
#include "engine/views/ScanProgressView.h"
#include "ui/Labels.h"
#include "ui/Style.h"
#include "ui/Surfaces.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace pryvane {

namespace {

constexpr int kLiveUpdate = 100; // ms between two redraws while a scan runs

} // namespace

ScanView::ScanView(ScanViewController& controller, std::string user, QWidget* parent)
    : QWidget(parent), m_controller(controller), m_statement(new ui::ColouredView),
      m_scanNow(new QPushButton(tr("Scan Now"))), m_remove(new QPushButton(tr("Remove…"))),
      m_progress(new ScanProgressView), m_coverage(new CoverageView),
      m_findings(new FindingsPane(std::move(user), [](const std::vector<int>&, bool) {}))
{
    setObjectName(QStringLiteral("scanVC"));
    m_scanNow->setObjectName(QStringLiteral("scanNow"));
    m_remove->setObjectName(QStringLiteral("remove"));
    layOut();
    connect(m_scanNow, &QPushButton::clicked, this, &ScanView::scanWanted);
    connect(m_progress, &ScanProgressView::stopWanted, &m_controller,
            &ScanViewController::stopScan);
    connect(m_findings, &FindingsPane::revealWanted, this, &ScanView::revealWanted);
    m_liveUpdate.setSingleShot(true);
    m_liveUpdate.setInterval(kLiveUpdate);
    connect(&m_liveUpdate, &QTimer::timeout, this, &ScanView::showState);
    connect(&m_controller, &ScanViewController::stateChanged, this, [this] {
        if (!m_liveUpdate.isActive())
            m_liveUpdate.start();
    });
    connect(&m_controller, &ScanViewController::scanEnded, this, &ScanView::showState);
    showState();
}

void ScanView::layOut()
{
    m_statement->actions()->setSpacing(ui::kRelated);
    m_statement->actions()->addWidget(m_scanNow);
    m_statement->actions()->addWidget(m_remove);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(ui::kEdge, ui::kEdge, ui::kEdge, ui::kEdge);
    column->setSpacing(ui::kGroups);
    column->addWidget(m_statement);
    column->addWidget(m_progress);
    column->addWidget(m_coverage);
    column->addWidget(m_findings, 1);
}

void ScanView::focusFilter()
{
    m_findings->focusFilter();
}

void ScanView::showState()
{
    const bool scanning = m_controller.isScanning();
    if (scanning && !m_wasScanning)
        m_progress->begin();
    m_progress->setVisible(scanning);
    if (scanning)
        m_progress->show(m_controller.display());
    m_coverage->setVisible(!scanning && m_controller.report() != nullptr);
    if (!scanning && m_wasScanning && m_controller.report())
        m_coverage->show(m_controller.report()->spyWareList->size(), m_controller.coverage());
    showStatement();
    showFindings();
    m_wasScanning = scanning;
}

void ScanView::showStatement()
{
    const StatusPanel& panel = m_controller.statusPanel();
    const bool scanning = m_controller.isScanning();
    m_statement->setArtwork(scanning ? QString() : ui::text(panel.background),
                            scanning ? QString() : ui::text(panel.badge));
    m_statement->setStatement(scanning ? tr("Looking for spyware") : ui::text(panel.statusText),
                              scanning ? QString() : ui::text(panel.bottomText));
    m_scanNow->setVisible(!scanning && panel.showsScanNow);
    m_remove->setVisible(!scanning && panel.showsRemove);
}

void ScanView::showFindings()
{
    const bool scanning = m_controller.isScanning();
    m_findings->setEmptyText(scanning ? tr("Nothing found so far.")
                                      : tr("Findings are listed here, each with the reason why it "
                                           "was found."));
}

} // namespace pryvane
