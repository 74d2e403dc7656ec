#include "cli/Host.h"

#include "cli/Console.h"
#include "core/Escape.h"
#include "core/Texts.h"
#include "findings/MacDisk.h"
#include "hosts/Host.h"
#include "hosts/posix/CurrentUser.h"
#include "hosts/posix/LoadedPrinter.h"
#include "platform/Machine.h"
#include "removal/disk/RemovalJournalFile.h"
#include "removal/disk/VolumeRemover.h"
#include "reports/pdf/PDFGenerate.h"
#include "reports/pdf/ReportPrinting.h"
#include "scan/walker/ScanChoice.h"
#include "signatures/MakersApplications.h"
#include "store/MemoryUserDefaults.h"
#include "store/SqliteUserDefaults.h"
#include "volume/image/ImageHash.h"
#include "volume/listing/ListingReader.h"

#include <fstream>

namespace pryvane::cli {

namespace {

constexpr std::string_view kOnlyMounted =
    "nothing can be removed from a list of names or an image; mount the disk and name its folder "
    "with --volume";

} // namespace

bool canChange(const VolumeArguments& arguments, const Console& console)
{
    if (!arguments.isFolder())
        console.fail(kOnlyMounted);
    return arguments.isFolder();
}

/// What a report on paper takes.
struct Host::Documents {
    std::unique_ptr<MachineInfo> machine;
    PDFGenerate pdf;
    LoadedPrinter printer;
    ReportPrinting printing;

    explicit Documents(Host& host)
        : machine(host.m_system->machineInfo()),
          pdf({.shortVersion = PRYVANE_VERSION,
               .buildVersion = PRYVANE_BUILD,
               .cachesFolder = host.m_system->cachesFolder()},
              host.disk(), *machine),
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

Host::Host(const Console& console)
    : m_system(makeHost()), m_log(console), m_interrupted(console.interrupted)
{
}

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
                                         StoreUse use, Pacing pacing, Asking asking)
{
    std::unique_ptr<Host> host(new Host(console));
    if (arguments.hash && arguments.isFolder() && asking == Asking::Everything)
        return Error{"--hash is for scans, and for a list or an image, named with --listing or "
                     "--image"};
    for (const std::string& user : arguments.users) {
        if (!isShortName(user))
            return Error{forTerminal(notAShortName(user))};
    }
    if (const auto opened = host->openDisk(console, arguments, asking); !opened)
        return opened.error();
    host->m_volume = arguments.isFolder() ? arguments.volume : std::string();
    const bool isOwn = !host->m_names && host->m_disk->isHostRoot();
    if (!arguments.users.empty())
        host->m_whose = UserChoice(arguments.users);
    else if (isOwn && !arguments.allUsers)
        host->m_whose = UserChoice(loginUser());
    host->m_homes = settledHomes(host->disk(), host->m_whose);

    if (pacing == Pacing::Paced)
        host->m_clock = std::make_unique<SystemClock>();
    else
        host->m_clock = std::make_unique<UnpacedClock>();
    host->m_alerts = std::make_unique<DecliningAlerts>();
    host->m_folderPicker = std::make_unique<DecliningFolderPicker>();
    host->m_workspace = host->m_system->workspace(host->disk(), host->m_homes.users, isOwn);
    if (const std::string advice = isOwn ? host->m_system->accessAdvice() : std::string();
        !advice.empty())
        console.say(advice);
    host->m_state.arrDefaultTorvellApp = makersApplicationKeys();
    if (const auto opened = host->openStore(use); !opened)
        return opened.error();
    return host;
}

Result<Done> Host::openDisk(const Console& console, const VolumeArguments& arguments, Asking asking)
{
    const NameMatching matching =
        arguments.caseSensitive ? NameMatching::Exact : NameMatching::AsOnMac;
    if (arguments.isFolder()) {
        VolumeFileSystem::Options options;
        options.nameMatching = matching;
        auto disk = VolumeFileSystem::open(arguments.volume, options);
        if (!disk)
            return disk.error();
        m_disk = std::move(disk).value();
        return Done{};
    }
    if (!arguments.image.empty())
        return openImageDisk(console, arguments);
    ListingOptions options;
    options.prefix = arguments.strip;
    options.matching = matching;
    options.withHash = arguments.hash;
    if (asking == Asking::WhatScansAsk)
        options.choice = std::make_shared<ScanChoice>();
    std::atomic<std::uint64_t> bytesRead{0};
    Result<std::unique_ptr<IndexFileSystem>> disk = Error{};
    withProgress(
        console, [&] { return "reading names: " + sizeText(static_cast<std::int64_t>(bytesRead)); },
        [&] { disk = openListing(arguments.listing, options, console.interrupted, bytesRead); });
    if (!disk)
        return disk.error();
    m_names = std::move(disk).value();
    return Done{};
}

Result<ImageOptions> imageOptions(const VolumeArguments& arguments)
{
    auto options = ImageOptions::withOwnReader();
    if (!options)
        return options;
    options->partition = arguments.partition;
    options->volume = arguments.apfsVolume;
    options->caseSensitive = arguments.caseSensitive;
    if (!arguments.passwordFile.empty()) {
        constexpr std::size_t kLongest = 4096;
        std::ifstream file(arguments.passwordFile, std::ios::binary);
        std::string password(kLongest, '\0');
        file.read(password.data(), kLongest);
        if (file.bad() || file.gcount() == 0)
            return Error{"no password can be read from " + forTerminal(arguments.passwordFile)};
        password.resize(static_cast<std::size_t>(file.gcount()));
        options->password = password.substr(0, password.find_first_of("\r\n"));
    }
    return options;
}

Result<Done> Host::openImageDisk(const Console& console, const VolumeArguments& arguments)
{
    auto options = imageOptions(arguments);
    if (!options)
        return options.error();
    if (arguments.hash) {
        std::atomic<std::uint64_t> bytes{0};
        Result<std::string> hash = Error{};
        withProgress(
            console,
            [&] { return "making the hash: " + sizeText(static_cast<std::int64_t>(bytes)); },
            [&] { hash = imageHash(arguments.image, console.interrupted, bytes); });
        if (!hash)
            return hash.error();
        options->sha256 = std::move(hash).value();
    }
    ImageProgress progress;
    Result<std::unique_ptr<IndexFileSystem>> disk = Error{};
    withProgress(
        console, [&] { return "reading names: " + std::to_string(progress.entries); },
        [&] { disk = openImage(arguments.image, *options, console.interrupted, progress); });
    if (!disk)
        return disk.error();
    m_names = std::move(disk).value();
    return Done{};
}

std::unique_ptr<SizeMeter> Host::sizeMeter()
{
    if (m_names)
        return std::make_unique<IndexSizeMeter>(*m_names);
    return std::make_unique<VolumeSizeMeter>(*m_disk);
}

Result<Done> Host::openStore(StoreUse use)
{
    m_dataFolder = m_system->dataFolder();
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

Result<Done> Host::mustHoldMac()
{
    const auto holds = pryvane::mustHoldMac(disk(), m_volume);
    return holds ? holds : Result<Done>(Error{forTerminal(holds.error().message)});
}

PlatformServices Host::services()
{
    return {disk(),    *m_defaults,     m_notifications, m_mainQueue,    *m_clock,
            *m_alerts, *m_folderPicker, *m_workspace,    m_userNotifier, m_engineLog};
}

Result<Remover*> Host::remover()
{
    if (!m_disk)
        return Error{std::string(kOnlyMounted)};
    if (!m_remover) {
        m_journal = std::make_unique<RemovalJournalFile>(m_dataFolder, *m_disk, *m_clock);
        m_remover = std::make_unique<VolumeRemover>(*m_disk, *m_journal,
                                                    std::vector<std::string>{m_dataFolder});
    }
    return m_remover.get();
}

} // namespace pryvane::cli
