#include "cli/Host.h"

#include "cli/Console.h"
#include "core/Escape.h"
#include "hosts/linux/LinuxMachineInfo.h"
#include "hosts/linux/LinuxWorkspace.h"
#include "hosts/posix/CurrentUser.h"
#include "hosts/posix/LoadedPrinter.h"
#include "removal/disk/RemovalJournalFile.h"
#include "removal/disk/VolumeRemover.h"
#include "reports/pdf/PDFGenerate.h"
#include "reports/pdf/ReportPrinting.h"
#include "signatures/MakersApplications.h"
#include "store/MemoryUserDefaults.h"
#include "store/SqliteUserDefaults.h"

namespace pryvane::cli {

/// What a report on paper takes.
struct Host::Documents {
    LinuxMachineInfo machine;
    PDFGenerate pdf;
    LoadedPrinter printer;
    ReportPrinting printing;

    explicit Documents(Host& host)
        : pdf({.shortVersion = PRYVANE_VERSION,
               .buildVersion = PRYVANE_BUILD,
               .cachesFolder = defaultCachesFolder()},
              host.disk(), machine),
          printing(pdf, printer, host.log())
    {
        printer.obey(host.m_interrupted);
    }
};

void ConsoleLog::line(std::string_view text)
{
    m_hasSpoken = true;
    const MutexLock lock(m_mutex);
    m_console.say(forTerminal(text));
}

Host::Host(const Console& console) : m_log(console), m_interrupted(console.interrupted) {}

Host::~Host() = default;

Host::Documents& Host::documents()
{
    if (!m_documents)
        m_documents = std::make_unique<Documents>(*this);
    return *m_documents;
}

PDFGenerate& Host::pdf()
{
    return documents().pdf;
}

ReportPrinting& Host::printing()
{
    return documents().printing;
}

Result<std::unique_ptr<Host>> Host::open(const Console& console, const VolumeArguments& arguments,
                                         StoreUse use, Pacing pacing)
{
    std::unique_ptr<Host> host(new Host(console));
    host->m_user = arguments.user.empty() ? loginUser() : arguments.user;
    if (!isShortName(host->m_user))
        return Error{forTerminal(notAShortName(host->m_user))};
    VolumeFileSystem::Options options;
    if (arguments.caseSensitive)
        options.nameMatching = NameMatching::Exact;
    auto disk = VolumeFileSystem::open(arguments.volume, options);
    if (!disk)
        return disk.error();
    host->m_disk = std::move(disk).value();

    if (pacing == Pacing::Paced)
        host->m_clock = std::make_unique<SystemClock>();
    else
        host->m_clock = std::make_unique<UnpacedClock>();
    host->m_alerts = std::make_unique<DecliningAlerts>();
    host->m_folderPicker = std::make_unique<DecliningFolderPicker>();
    host->m_workspace = std::make_unique<LinuxWorkspace>(*host->m_disk, host->m_user);
    host->m_state.arrDefaultTorvellApp = makersApplicationKeys();
    if (const auto opened = host->openStore(use); !opened)
        return opened.error();
    return host;
}

Result<Done> Host::openStore(StoreUse use)
{
    m_dataFolder = defaultDataFolder();
    if (use == StoreUse::None)
        return openWithoutStore();
    const bool writes = use == StoreUse::Write;
    auto opened = writes ? SqliteUserDefaults::open(m_dataFolder, m_log)
                         : SqliteUserDefaults::openReadOnly(m_dataFolder, m_log, CutOffSave::Undo);
    if (!opened)
        return opened.error();
    if (opened->notice && !writes)
        return Error{*opened->notice + " The next scan sets it aside and starts afresh."};
    m_defaults = std::move(opened->defaults);
    return Done{};
}

Result<Done> Host::openWithoutStore()
{
    m_defaults = std::make_unique<MemoryUserDefaults>();
    // What the user chose to ignore holds for a scan that leaves no trace, too.
    const auto kept = SqliteUserDefaults::openReadOnly(m_dataFolder, m_log);
    if (!kept || kept->notice)
        m_log.line((kept ? *kept->notice : kept.error().message) + " The built-in settings apply.");
    if (kept && kept->defaults->contains(preferences::kARD))
        return m_defaults->set(preferences::kARD, kept->defaults->get(preferences::kARD));
    return Done{};
}

PlatformServices Host::services()
{
    return {*m_disk,   *m_defaults,     m_notifications, m_mainQueue,    *m_clock,
            *m_alerts, *m_folderPicker, *m_workspace,    m_userNotifier, m_engineLog};
}

Result<Remover*> Host::remover()
{
    if (!m_remover) {
        m_journal = std::make_unique<RemovalJournalFile>(m_dataFolder, *m_disk, *m_clock);
        m_remover = std::make_unique<VolumeRemover>(*m_disk, *m_journal,
                                                    std::vector<std::string>{m_dataFolder});
    }
    return m_remover.get();
}

} // namespace pryvane::cli
