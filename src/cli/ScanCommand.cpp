#include "cli/CommandLine.h"
#include "cli/GrantedAccess.h"
#include "cli/Host.h"
#include "cli/ProgressBar.h"
#include "cli/ReportText.h"
#include "engine/ScanViewController.h"
#include "platform/PreferenceKeys.h"
#include "reports/DefaultMethods.h"
#include "reports/ReportExport.h"

#include <ostream>

namespace pryvane::cli {

namespace {

struct ScanArguments {
    VolumeArguments volume;
    bool quick = false;
    bool paced = false;
    bool noPacing = false;
    bool store = false;
    bool noStore = false;
    std::string format = "text";
};

/// One scan from start to report, on this thread's queue.
class ScanRun {
public:
    ScanRun(const Console& console, Host& host)
        : m_console(console), m_host(host), m_access(host.disk()),
          m_store(host.defaults(), host.disk(), host.clock(), host.log()),
          m_controller(host.services(), host.state(), m_access, m_store, options(host)),
          m_bar(console)
    {
        m_stopObservation =
            host.notifications().observe(NotificationName::StopScan, [this](const Notification&) {
                m_host.state().isScanStop.request();
                m_host.state().isScanning = false;
            });
        QObject::connect(&m_controller, &ScanViewController::scanEnded, &m_controller,
                         [this] { m_host.mainQueue().quit(); });
        QObject::connect(&m_controller, &ScanViewController::stateChanged, &m_controller, [this] {
            if (m_controller.isScanning())
                m_bar.show(m_controller.display());
        });
    }

    /// True when the scan came to its end.
    [[nodiscard]] bool run()
    {
        m_controller.SpywareScanStart();
        bool stopAsked = false;
        m_host.mainQueue().run([&] {
            if (m_console.interrupted.requested() && !std::exchange(stopAsked, true))
                m_controller.stopScan();
        });
        m_bar.clear();
        return !stopAsked;
    }

    [[nodiscard]] const ScanViewController& controller() const { return m_controller; }

private:
    [[nodiscard]] static ScanOptions options(const Host& host)
    {
        ScanOptions options{host.user(), {}};
        options.grantedRoot = options.homeRoot();
        return options;
    }

    const Console& m_console;
    Host& m_host;
    GrantedAccess m_access;
    DefaultMethods m_store;
    ScanViewController m_controller;
    ProgressBar m_bar;
    NotificationCenter::Observation m_stopObservation;
};

void writeText(const Console& console, const SpywareScanReport& report, bool stored)
{
    console.out << verdictText(report, console) << "\n";
    if (!report.spyWareList->empty())
        console.out << "\n" << findingsText(*report.spyWareList, DiskState::Asked);
    console.out << "\n" << coverageText(report.coverage);
    if (stored)
        console.out << "Report: " << report.reportId << "  (pryvane-cli report show latest)\n";
}

int runScan(const ScanArguments& arguments, const Console& console)
{
    auto host =
        Host::open(console, arguments.volume, arguments.noStore ? StoreUse::None : StoreUse::Open,
                   arguments.paced ? Pacing::Paced : Pacing::Unpaced);
    if (!host)
        return console.fail(host.error().message);
    // A store that cannot be written is better known before the scan than after it.
    if (const auto writable = (*host)->defaults().set(preferences::kScan, false); !writable)
        return console.fail(writable.error().message + " (--no-store scans without a store)");

    ScanRun scan(console, **host);
    if (!scan.run()) {
        console.say("interrupted; a quick scan that is stopped leaves no report");
        return kInterrupted;
    }
    if (!scan.controller().storeError().empty()) {
        return console.fail("the report could not be stored: " + scan.controller().storeError() +
                            " (--no-store shows the findings without storing them)");
    }
    const SpywareScanReport& report = *scan.controller().report();
    if (arguments.format == "json")
        console.out << reportAsJson(report);
    else
        writeText(console, report, !arguments.noStore);
    return report.spyWareList->empty() ? kDone : kFindings;
}

} // namespace

void addScanCommand(CommandLine& line, CLI::App& app)
{
    auto arguments = std::make_shared<ScanArguments>();
    CLI::App* command = line.addCommand(
        app, "scan", "Look for spyware and store a report",
        [arguments](const Console& console) { return runScan(*arguments, console); });
    command->add_flag("--quick", arguments->quick,
                      "Look in the places that known spyware uses (the default)");
    addVolumeOptions(*command, arguments->volume);
    auto* paced = command->add_flag("--paced", arguments->paced,
                                    "Pause after each check, as the window does");
    command->add_flag("--no-pacing", arguments->noPacing, "Scan at full speed (the default)")
        ->excludes(paced);
    auto* store = command->add_flag("--store", arguments->store, "Store the report (the default)");
    command->add_flag("--no-store", arguments->noStore, "Store nothing; needs no data folder")
        ->excludes(store);
    command->add_option("--format", arguments->format, "text or json")
        ->check(CLI::IsMember({"text", "json"}))
        ->type_name("FORMAT");
    command->footer("Exit code: 0 nothing found, 1 findings, 2 error, 130 interrupted.\n"
                    "Example: pryvane-cli scan --volume /mnt/mac --user alice --format json");
}

} // namespace pryvane::cli
