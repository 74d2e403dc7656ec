#include "browser/views/RecordKeeping.h"

#include "browser/ReportDocuments.h"
#include "browser/ReportViewController.h"
#include "core/Escape.h"
#include "core/Texts.h"
#include "reports/SpywareScanReport.h"
#include "ui/Labels.h"
#include "words/Shown.h"

#include <QFile>
#include <QFileDialog>
#include <QStandardPaths>

#include <memory>
#include <unistd.h>
#include <utility>

namespace pryvane {

void keepRecord(QWidget* window, ReportDocuments& documents, const SpywareScanReport& report,
                const std::function<void(const QString& words)>& told)
{
    const QString folder = QFileDialog::getExistingDirectory(
        window, QObject::tr("Keep a record in this folder"),
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    if (folder.isEmpty())
        return;
    const std::string place = QFile::encodeName(folder).toStdString();
    // One after the other, both of the report as it is now.
    const auto errors = std::make_shared<std::string>();
    for (const ExportKind& kind : kExportKinds) {
        const bool isLast = kind.format == ExportFormat::Json;
        if (kind.format != ExportFormat::Pdf && !isLast)
            continue;
        documents.exportReport(
            report, kind.format, place + "/" + suggestedFileName(report, kind),
            [place, told, errors, isLast](const Result<Done>& written) {
                if (!written)
                    *errors += " " + written.error().message;
                if (!isLast)
                    return;
                told(errors->empty()
                         ? QObject::tr("The record is in %1.").arg(ui::text(forScreen(place)))
                         : QObject::tr("The record is not whole:%1")
                               .arg(ui::text(forScreen(*errors))));
            });
    }
}

namespace {

/// Several reports on their way into a folder, one after the other.
struct Export : std::enable_shared_from_this<Export> {
    ReportViewController& controller;
    ReportDocuments& documents;
    std::vector<std::string> ids;
    const ExportKind kind;
    std::string place;
    std::function<void(const QString& words, bool failed)> told;
    std::size_t next = 0;
    std::size_t written = 0;
    std::string problem; ///< of the first that was not written

    Export(ReportViewController& reports, ReportDocuments& writer, std::vector<std::string> which,
           const ExportKind& as, std::string folder,
           std::function<void(const QString& words, bool failed)> tell)
        : controller(reports), documents(writer), ids(std::move(which)), kind(as),
          place(std::move(folder)), told(std::move(tell))
    {
    }

    void go()
    {
        if (next == ids.size())
            return tell();
        controller.readReport(
            ids[next++],
            [self = shared_from_this()](const Result<std::shared_ptr<SpywareScanReport>>& report) {
                if (!report) {
                    self->note(report.error());
                    return self->go();
                }
                self->documents.exportReport(**report, self->kind.format, self->freePath(**report),
                                             [self](const Result<Done>& done) {
                                                 if (done)
                                                     ++self->written;
                                                 else
                                                     self->note(done.error());
                                                 self->go();
                                             });
            });
    }

    void note(const Error& error)
    {
        if (problem.empty())
            problem = error.message;
    }

    /// Reports of the same minute have the same name.
    [[nodiscard]] std::string freePath(const SpywareScanReport& report) const
    {
        const std::string name = place + "/" + suggestedFileName(report, kind);
        const std::string extension = std::string(".") + kind.extension;
        const std::string stem = name.substr(0, name.size() - extension.size());
        std::string path = name;
        for (int i = 2; access(path.c_str(), F_OK) == 0; ++i)
            path = stem + " (" + std::to_string(i) + ")" + extension;
        return path;
    }

    void tell() const
    {
        const std::string count = std::to_string(written) + " of " +
                                  countedText(ids.size(), "report", "reports") + " exported to " +
                                  forScreen(place) + ".";
        told(ui::shown(count) +
                 (problem.empty() ? QString() : QLatin1Char(' ') + ui::text(forScreen(problem))),
             !problem.empty());
    }
};

} // namespace

void exportReports(QWidget* window, ReportViewController& controller, ReportDocuments& documents,
                   std::vector<std::string> reportIds, const ExportKind& kind,
                   std::function<void(const QString& words, bool failed)> told)
{
    const QString folder = QFileDialog::getExistingDirectory(
        window, QObject::tr("Export the reports to this folder"),
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    if (folder.isEmpty())
        return;
    std::make_shared<Export>(controller, documents, std::move(reportIds), kind,
                             QFile::encodeName(folder).toStdString(), std::move(told))
        ->go();
}

} // namespace pryvane
