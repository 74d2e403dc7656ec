#include "reports/pdf/ReportPrinting.h"

#include "platform/Printer.h"
#include "reports/pdf/PdfFixtures.h"
#include "support/Fakes.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

namespace pryvane {
namespace {

using State = PrintOutcome::State;

class RecordingPrinter final : public Printer {
public:
    Result<std::vector<PrinterName>> printers() override { return std::vector<PrinterName>(); }
    Result<int> printFile(const std::string& path, std::string_view, std::string_view queue,
                          const PrintSettings& settings) override
    {
        asked.push_back(std::string(queue) + " " + path);
        EXPECT_EQ(settings.widthPoints, 595);
        EXPECT_EQ(settings.heightPoints, 842);
        return answer;
    }
    Result<int> answer = 7;
    std::vector<std::string> asked;
};

class ReportPrintingTest : public testing::Test {
protected:
    test::TemporaryFolder folder;
    test::CountingDisk disk;
    test::RecordingLog log;
    test::FakeMachine machine;
    RecordingPrinter printer;
    PDFGenerate pdf{test::factsIn(folder.hostPath("caches")), disk, machine};
    ReportPrinting printing{pdf, printer, log};
    const std::shared_ptr<SpywareScanReport> report = test::reportOf({"/tmp/.mdworker"});
};

TEST_F(ReportPrintingTest, PrintsOnlyTheReportThatWasJustWritten)
{
    EXPECT_EQ(printing.printPDFfile().state, State::NothingToPrint);
    EXPECT_TRUE(printer.asked.empty());

    const PrintOutcome sent = printing.makeAndPrintPDF(*report, "attic");
    EXPECT_EQ(sent.state, State::Sent) << sent.reason;
    EXPECT_EQ(sent.job, 7);
    EXPECT_THAT(printer.asked, testing::ElementsAre("attic " + pdf.reportFile()));
    EXPECT_EQ(printing.printPDFfile().state, State::Sent);
    EXPECT_TRUE(log.lines().empty());

    // What cannot be replaced is an older report, or no report at all.
    folder.remove("caches/Report.PDF");
    folder.folder("caches/Report.PDF/x");
    const PrintOutcome unwritten = printing.makeAndPrintPDF(*report);
    EXPECT_EQ(unwritten.state, State::Failed);
    EXPECT_FALSE(unwritten.reason.empty());
    EXPECT_EQ(printer.asked.size(), 2U);
}

TEST_F(ReportPrintingTest, AFailureIsLogged)
{
    printer.answer = Error{"the printer is on fire"};
    const PrintOutcome failed = printing.makeAndPrintPDF(*report);
    EXPECT_EQ(failed.state, State::Failed);
    EXPECT_EQ(failed.reason, "the printer is on fire");
    EXPECT_THAT(log.lines(), testing::Contains("Error in printing"));
}

} // namespace
} // namespace pryvane
