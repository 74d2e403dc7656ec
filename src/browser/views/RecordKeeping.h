#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace pryvane {

class ReportDocuments;
class SpywareScanReport;

/// Asks for a folder and writes the report into it as a PDF and as JSON, so that what was found is
/// on record before it is removed. `told` gets what came of it as a plain sentence; it is not
/// called where the user thought better of it.
void keepRecord(QWidget* window, ReportDocuments& documents, const SpywareScanReport& report,
                std::function<void(const QString& words)> told);

} // namespace pryvane
