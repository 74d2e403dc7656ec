#include "browser/views/ReportBrowserView.h"

#include "browser/ReportViewController.h"
#include "browser/views/ComparisonSheet.h"
#include "browser/views/PreviewModule.h"
#include "browser/views/PreviewSheet.h"
#include "browser/views/RecordKeeping.h"
#include "browser/views/ReportDetailsPane.h"
#include "browser/views/ReportListPane.h"
#include "core/Escape.h"
#include "removal/views/BrowserPanelSheet.h"
#include "removal/views/Failures.h"
#include "removal/views/PlanSheet.h"
#include "ui/Labels.h"
#include "ui/Pages.h"

#include <QFile>
#include <QFileDialog>
#include <QStandardPaths>
#include <QVBoxLayout>

#include <unordered_set>

namespace pryvane {

using NoticeOf = ReportViewController::NoticeOf;

namespace {

/// What is chosen in the plan is chosen in the report.
void checkRecords(ReportViewController& controller, const SpywareList& chosen, bool on)
{
    if (!controller.report())
        return;
    std::unordered_set<std::string_view> wanted; // a location that is listed twice goes as one
    for (const auto& record : chosen)
        wanted.insert(record->url.identity());
    std::vector<int> rows;
    const SpywareList& all = *controller.report()->spyWareList;
    for (std::size_t row = 0; row < all.size(); ++row)
        if (all[row]->isAvail() && wanted.contains(all[row]->url.identity()))
            rows.push_back(static_cast<int>(row));
    controller.checkRows(rows, on);
}

} // namespace

ReportBrowserView::ReportBrowserView(ReportViewController& controller, Services services,
                                     QWidget* parent)
    : QWidget(parent), m_controller(controller), m_services(std::move(services)),
      m_documents(m_services.mainQueue, m_services.pdf), m_pages(new ui::Pages),
      m_list(new ReportListPane(controller)),
      m_details(new ReportDetailsPane(controller, m_services.user, m_services.foldedName))
{
    setObjectName(QStringLiteral("reportVC"));
    m_pages->addWidget(m_list);
    m_pages->addWidget(m_details);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_pages);
    followController();
    connect(m_list, &ReportListPane::compareWanted, this, &ReportBrowserView::compare);
    connect(m_list, &ReportListPane::exportWanted, this,
            [this](const std::vector<std::string>& ids, const ExportKind& kind) {
                exportReports(window(), m_controller, m_documents, ids, kind,
                              [this](const QString& words, bool failed) {
                                  m_controller.say(words.toStdString(),
                                                   failed ? NoticeOf::Failure : NoticeOf::Success);
                              });
            });
    connect(m_details, &ReportDetailsPane::printWanted, this, &ReportBrowserView::openPreview);
    connect(m_details, &ReportDetailsPane::exportWanted, this,
            &ReportBrowserView::askWhereToExport);
    connect(m_details, &ReportDetailsPane::removeWanted, this, &ReportBrowserView::openPlan);
    connect(m_details, &ReportDetailsPane::failuresWanted, this, &ReportBrowserView::showFailures);
    connect(m_details, &ReportDetailsPane::remoteDesktopHelpWanted, this,
            &ReportBrowserView::remoteDesktopHelpWanted);
    m_list->showRows();
    showState();
}

void ReportBrowserView::followController()
{
    connect(&m_controller, &ReportViewController::listChanged, m_list, &ReportListPane::showRows);
    connect(&m_controller, &ReportViewController::stateChanged, this,
            &ReportBrowserView::showState);
    m_controller.setPrintQuestion([view = QPointer(this)] {
        if (view)
            view->openPreview();
    });
    BrowserPanelSheet::follow(this, m_controller.removal().panel());
}

void ReportBrowserView::showState()
{
    const bool details = m_controller.isReportDetails();
    const bool turns = details != (m_pages->currentWidget() == m_details);
    const bool hadKeyboard = m_pages->currentWidget()->isAncestorOf(focusWidget());
    m_list->showState();
    m_details->showState();
    m_pages->setCurrentWidget(details ? static_cast<QWidget*>(m_details) : m_list);
    if (turns && hadKeyboard)
        details ? m_details->focusFirst() : m_list->focusList();
    if (m_controller.removal().isFileListPresented() && !m_failures)
        showFailures();
}

void ReportBrowserView::focusFilter()
{
    if (m_controller.isReportDetails())
        m_details->focusFilter();
    else
        m_list->focusFilter();
}

void ReportBrowserView::compare(int row, int otherRow)
{
    m_controller.compare(static_cast<std::size_t>(row), static_cast<std::size_t>(otherRow),
                         [view = QPointer(this)](ComparedReports compared) {
                             if (!view)
                                 return;
                             auto* sheet =
                                 new ComparisonSheet(view, *compared.earlier, *compared.later,
                                                     std::move(compared.changes));
                             sheet->present();
                         });
}

void ReportBrowserView::openPlan()
{
    if (m_controller.removal().isRefused())
        return;
    auto* plan = new PlanSheet(this, [this](const SpywareList& records, bool on) {
        checkRecords(m_controller, records, on);
    });
    connect(plan, &PlanSheet::removalWanted, &m_controller, &ReportViewController::removeSelected);
    connect(plan, &PlanSheet::recordWanted, this, [this, plan] {
        if (m_controller.report())
            keepRecord(window(), m_documents, *m_controller.report(),
                       [plan = QPointer(plan)](const QString& words) {
                           if (plan)
                               plan->tellRecord(words);
                       });
    });
    plan->present();
    m_controller.removal().planSelected([plan = QPointer(plan)](const RemovalPlan& made) {
        if (plan)
            plan->setPlan(made);
    });
}

void ReportBrowserView::showFailures()
{
    auto* sheet = makeFailuresSheet(this, m_controller.removal().listUnDeleted());
    m_failures = sheet;
    connect(sheet, &ui::Sheet::closed, this, [this] {
        m_failures.clear();
        m_controller.removal().closeFileList();
    });
    sheet->present();
}

void ReportBrowserView::openPreview()
{
    if (!m_controller.report() || m_preview || m_controller.isPrinting())
        return;
    m_preview = new PreviewSheet(this);
    connect(m_preview, &PreviewSheet::printWanted, this, &ReportBrowserView::askWhereToPrint);
    m_preview->present();
    m_documents.makeDocument(*m_controller.report(),
                             [preview = m_preview](const Result<std::string>& pdf) {
                                 if (preview)
                                     preview->showDocument(pdf);
                             });
}

void ReportBrowserView::askWhereToPrint()
{
    const auto target = pryvane::askWhereToPrint(window());
    if (target && !*target)
        return; // back to the pages
    if (m_preview)
        m_preview->dismiss();
    if (!target)
        m_controller.say(target.error().message, NoticeOf::Failure);
    else if (!(*target)->file.empty())
        exportTo((*target)->file, ExportFormat::Pdf);
    else
        m_controller.makeAndPrintPDF((*target)->queue);
}

void ReportBrowserView::askWhereToExport(const ExportKind& kind)
{
    if (!m_controller.report())
        return;
    const QString extension = QLatin1String(kind.extension);
    const QString folder = m_exportFolder.isEmpty()
                               ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                               : m_exportFolder;
    QFileDialog dialog(window(), tr("Export this report"), folder);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(extension);
    dialog.setNameFilter(tr("%1 (*.%2)").arg(QLatin1String(kind.name), extension));
    dialog.selectFile(ui::text(suggestedFileName(*m_controller.report(), kind)));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    m_exportFolder = dialog.directory().path();
    exportTo(QFile::encodeName(dialog.selectedFiles().first()).toStdString(), kind.format);
}

void ReportBrowserView::exportTo(const std::string& path, ExportFormat format)
{
    if (!m_controller.report())
        return; // it was closed behind the question
    m_documents.exportReport(
        *m_controller.report(), format, path, [this, path](const Result<Done>& written) {
            if (written)
                m_controller.say("The report was exported to " + forScreen(path) + ".");
            else
                m_controller.say("The report was not exported: " + written.error().message,
                                 NoticeOf::Failure);
        });
}

} // namespace pryvane
