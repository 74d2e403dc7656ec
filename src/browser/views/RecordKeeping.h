#pragma once

#include <QString>

#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace pryvane {

class ReportDocuments;
class ReportViewController;
class SpywareScanReport;
struct ExportKind;

/// Asks for a folder and writes the report into it as a PDF and as JSON, so that what was found is
/// on record before it is removed. `told` gets what came of it as a plain sentence; it is not
/// called where the user thought better of it.
void keepRecord(QWidget* window, ReportDocuments& documents, const SpywareScanReport& report,
                const std::function<void(const QString& words)>& told);

/// Asks for a folder and writes each of the stored reports into it, a file each; no file that is
/// there already is replaced. `told` as above, once at the end.
void exportReports(QWidget* window, ReportViewController& controller, ReportDocuments& documents,
                   std::vector<std::string> reportIds, const ExportKind& kind,
                   std::function<void(const QString& words, bool failed)> told);

} // namespace pryvane
