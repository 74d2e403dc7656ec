#include "browser/ReportDocuments.h"

#include "core/Escape.h"
#include "core/Files.h"
#include "reports/ReportExport.h"
#include "reports/pdf/PDFGenerate.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace pryvane {

namespace {

Result<Done> write(const SpywareScanReport& report, ExportFormat format, const std::string& path,
                   PDFGenerate& pdf)
{
    switch (format) {
    case ExportFormat::Json:
        return writeWholeFile(path, [&](const TextSink& sink) { writeAsJson(report, sink); });
    case ExportFormat::Csv:
        return writeWholeFile(path, [&](const TextSink& sink) { writeAsCsv(report, sink); });
    case ExportFormat::Html:
        return writeWholeFile(path, [&](const TextSink& sink) { writeAsHtml(report, sink); });
    case ExportFormat::Pdf:
        break;
    }
    return pdf.createPDF(report, path);
}

Result<std::string> document(const SpywareScanReport& report, PDFGenerate& pdf)
{
    const auto path = pdf.createPDFFileFor(report);
    if (!path)
        return path.error();
    std::ifstream file(*path, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (!file || bytes.empty())
        return Error{"The document " + forScreen(*path) + " cannot be read."};
    return bytes;
}

} // namespace

std::string suggestedFileName(const SpywareScanReport& report, const ExportKind& kind)
{
    std::string when = localDateText(report.scanDate);
    std::ranges::replace(when, ':', '.'); // some disks do not take it in a name
    return "Scan report " + when + '.' + kind.extension;
}

void ReportDocuments::exportReport(const SpywareScanReport& report, ExportFormat format,
                                   std::string path, std::function<void(const Result<Done>&)> done)
{
    m_tasks.run([&pdf = m_pdf, copy = report.independentCopy(), format, path = std::move(path)](
                    const StopFlag&) { return write(copy, format, path, pdf); },
                std::move(done));
}

void ReportDocuments::makeDocument(const SpywareScanReport& report,
                                   std::function<void(const Result<std::string>&)> done)
{
    m_tasks.run([&pdf = m_pdf,
                 copy = report.independentCopy()](const StopFlag&) { return document(copy, pdf); },
                std::move(done));
}

} // namespace pryvane
