#pragma once

#include "reports/SpywareScanReport.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace pryvane {

class Log;
class PDFGenerate;
class Printer;

/// What became of a wish to print.
struct PrintOutcome {
    enum class State : std::uint8_t { Sent, NothingToPrint, Failed };
    State state = State::NothingToPrint;
    int job = 0;        ///< the print service's number of it, when sent
    std::string reason; ///< in words, when failed
};

/// Prints a report by way of its PDF file. The calls wait on the disk and on the print service; one
/// thread at a time.
class ReportPrinting {
public:
    ReportPrinting(PDFGenerate& pdf, Printer& printer, Log& log);

    /// Writes "Report.PDF" for the report, then prints it on the queue (empty: the default one). A
    /// file that could not be written is not printed, whatever an earlier one holds.
    [[nodiscard]] PrintOutcome makeAndPrintPDF(const SpywareScanReport& report,
                                               std::string_view queue = {});

    /// Prints "Report.PDF" as it lies there; without one nothing is printed.
    [[nodiscard]] PrintOutcome printPDFfile(std::string_view queue = {});

private:
    PDFGenerate& m_pdf;
    Printer& m_printer;
    Log& m_log;
};

} // namespace pryvane
