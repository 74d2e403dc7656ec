#pragma once

#include "core/Result.h"
#include "core/tasks/TaskQueue.h"
#include "reports/SpywareScanReport.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace pryvane {

class PDFGenerate;

enum class ExportFormat : std::uint8_t { Pdf, Json, Csv, Html };

struct ExportKind {
    ExportFormat format;
    const char* name;
    const char* extension;
};

inline constexpr std::array<ExportKind, 4> kExportKinds{{{ExportFormat::Pdf, "PDF", "pdf"},
                                                         {ExportFormat::Json, "JSON", "json"},
                                                         {ExportFormat::Csv, "CSV", "csv"},
                                                         {ExportFormat::Html, "HTML", "html"}}};

/// A file name for the report in that format.
[[nodiscard]] std::string suggestedFileName(const SpywareScanReport& report,
                                            const ExportKind& kind);

/// Files made of a report: exports, and the document to look at before it is printed. Main thread
/// only; files are written on a thread that ends with it.
class ReportDocuments {
public:
    /// The writer is used by nobody else meanwhile.
    ReportDocuments(MainQueue& queue, PDFGenerate& pdf)
        : m_pdf(pdf), m_tasks(queue, std::chrono::milliseconds(0))
    {
    }

    /// Writes the report to the host path (raw bytes), whole or not at all.
    void exportReport(const SpywareScanReport& report, ExportFormat format, std::string path,
                      std::function<void(const Result<Done>&)> done);

    /// Makes "Report.PDF" and hands over its content.
    void makeDocument(const SpywareScanReport& report,
                      std::function<void(const Result<std::string>&)> done);

    [[nodiscard]] bool isBusy() const { return m_tasks.isBusy(); }

private:
    PDFGenerate& m_pdf;
    TaskQueue m_tasks;
};

} // namespace pryvane
