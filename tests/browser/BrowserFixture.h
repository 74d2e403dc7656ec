#pragma once

#include "browser/ReportBrowserHost.h"
#include "browser/ReportViewController.h"
#include "platform/DesktopPrograms.h"
#include "platform/Printer.h"
#include "reports/pdf/PDFGenerate.h"
#include "reports/pdf/PdfFixtures.h"
#include "reports/pdf/ReportPrinting.h"
#include "scan/EngineFixture.h"
#include "support/ReportFixtures.h"
#include "support/StubbornRemover.h"

#include <gmock/gmock.h>

namespace pryvane::test {

/// The application, file viewer and printer around the browser, with what they were asked.
class RecordingHost final : public ReportBrowserHost, public FileViewer, public Printer {
public:
    void checkForHDAccess() override { asked.push_back("access"); }
    void setPrintAction(std::function<void()> action) override { print = std::move(action); }
    void openRemoteDesktopInstructions() override { asked.push_back("instructions"); }
    Result<Done> reveal(const FileURL& item) override
    {
        asked.push_back("reveal " + item.relativePath());
        return Done{};
    }
    Result<std::vector<PrinterName>> printers() override { return std::vector<PrinterName>(); }
    Result<int> printFile(const std::string&, std::string_view, std::string_view,
                          const PrintSettings&) override
    {
        return Error{"no printer"};
    }

    std::function<void()> print;
    std::vector<std::string> asked;
};

/// A volume of real files, and reports of them.
class ReportsFixture : public EngineFixture {
protected:
    /// Where the reports are stored: in memory, unless a test has a file.
    virtual UserDefaults& shelf() { return defaults; }
    DefaultMethods methods() { return {shelf(), *disk, clock, log}; }

    /// Makes the files and stores a report of them at the head of the list.
    std::shared_ptr<SpywareScanReport> store(const std::vector<std::string>& paths,
                                             std::string_view type = "Quick Scan",
                                             std::string_view duration = " 12 seconds")
    {
        auto list = std::make_shared<SpywareList>();
        for (const auto& path : paths) {
            volume.file(path);
            list->push_back(recordAt(path));
        }
        auto report = SpywareScanReport::ScanReportWithSpywareList(list, clock.now(), duration,
                                                                   type, clock.now());
        report->volume = disk->identity();
        report->coverage.signaturesTested = 534;
        EXPECT_TRUE(methods().updateReportInDefaults(report));
        return report;
    }
    ReportList stored() { return methods().loadListReportWithKey(preferences::kSaveReport); }

    RecordingHost host;
    StubbornRemover remover{*disk};
    TemporaryFolder caches;
    FakeMachine machine;
    PDFGenerate pdf{factsIn(caches.path()), *disk, machine};
    ReportPrinting printing{pdf, host, log};
};

/// A report browser over a store in memory.
class BrowserFixture : public ReportsFixture {
protected:
    /// Runs the main queue until nothing is under way.
    void settle()
    {
        ASSERT_TRUE(mainQueue.runUntil([&] {
            return !browser.isBusy() && !browser.isPrinting() && !browser.removal().isRemoving();
        }));
    }
    void showList()
    {
        browser.viewWillAppear();
        settle();
    }
    void open(std::size_t row)
    {
        browser.openThisReport(row);
        settle();
    }
    const SpywareList& threats() { return *browser.report()->spyWareList; }

    ReportViewController browser{services(), {host, host, printing, remover, "alice"}};
};

} // namespace pryvane::test
