#include "browser/views/RecordKeeping.h"

#include "browser/ReportDocuments.h"
#include "core/Escape.h"
#include "reports/SpywareScanReport.h"
#include "ui/Labels.h"

#include <QFile>
#include <QFileDialog>
#include <QStandardPaths>

#include <memory>

namespace pryvane {

void keepRecord(QWidget* window, ReportDocuments& documents, const SpywareScanReport& report,
                std::function<void(const QString& words)> told)
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

} // namespace pryvane
