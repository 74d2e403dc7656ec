#include "reports/pdf/ReportPrinting.h"

#include "platform/Messages.h"
#include "platform/Printer.h"
#include "reports/pdf/PDFGenerate.h"
#include "reports/pdf/PageOps.h"

#include <filesystem>

namespace pryvane {

ReportPrinting::ReportPrinting(PDFGenerate& pdf, Printer& printer, Log& log)
    : m_pdf(pdf), m_printer(printer), m_log(log)
{
}

PrintOutcome ReportPrinting::makeAndPrintPDF(const SpywareScanReport& report,
                                             std::string_view queue)
{
    const auto written = m_pdf.createPDFFileFor(report);
    if (written)
        return printPDFfile(queue);
    m_log.line("The report was not printed: " + written.error().message);
    return {PrintOutcome::State::Failed, 0, written.error().message};
}

PrintOutcome ReportPrinting::printPDFfile(std::string_view queue)
{
    const std::string path = m_pdf.reportFile();
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored))
        return {PrintOutcome::State::NothingToPrint, 0, {}};
    const auto sent =
        m_printer.printFile(path, "Spyware Report", queue, {pdf::kPageWidth, pdf::kPageHeight});
    if (sent)
        return {PrintOutcome::State::Sent, *sent, {}};
    m_log.line("Error in printing");
    m_log.line(sent.error().message);
    return {PrintOutcome::State::Failed, 0, sent.error().message};
}

} // namespace pryvane
