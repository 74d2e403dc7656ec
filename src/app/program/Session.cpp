#include "app/program/Session.h"

#include "app/program/Desktop.h"
#include "app/program/Parts.h"
#include "app/views/PlainWindows.h"
#include "app/views/VolumeSheet.h"
#include "core/Escape.h"
#include "findings/Homes.h"
#include "findings/MacDisk.h"
#include "hosts/Host.h"
#include "hosts/posix/CurrentUser.h"
#include "hosts/posix/SingleInstance.h"
#include "platform/Messages.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "volume/FoldedName.h"

#include <algorithm>
#include <filesystem>

namespace pryvane {

namespace {

constexpr const char* kBundleIdentifier = "com.torvell.Pryvane";

Result<std::unique_ptr<VolumeFileSystem>> openDisk(const VolumeChoice& choice)
{
    VolumeFileSystem::Options options;
    if (choice.caseSensitive)
        options.nameMatching = NameMatching::Exact;
    auto disk = VolumeFileSystem::open(choice.folder, options);
    // This computer is what the window begins with where nothing else was named.
    if (disk && !(*disk)->isHostRoot()) {
        if (const auto holds = mustHoldMac(**disk, choice.folder); !holds)
            return holds.error();
    }
    return disk;
}

VolumeWords wordsFor(const VolumeChoice& choice)
{
    const FileURL folder = FileURL::fileURLWithPath(choice.folder);
    const bool own = folder.absolutePath() == "/";
    return {.volume = own ? QObject::tr("This computer")
                          : ui::text(forScreen(folder.lastPathComponent())),
            .folder = ui::text(forScreen(choice.folder)),
            .user =
                choice.user.empty() ? QObject::tr("Everyone") : ui::text(forScreen(choice.user)),
            .whose = choice.user.empty()
                         ? QObject::tr("every user")
                         : QObject::tr("user %1").arg(ui::text(forScreen(choice.user)))};
}

/// Without any link on the way, as panels show it; empty for "/".
std::string panelRoot(const std::string& folder)
{
    std::error_code ignored;
    const std::string path = std::filesystem::canonical(folder, ignored).string();
    return path == "/" ? std::string() : path;
}

ApplicationFacts factsFor(const VolumeChoice& choice)
{
    return {choice.user, kBundleIdentifier, PRYVANE_VERSION, PRYVANE_HOME_PAGE};
}

/// Nobody named is everyone.
UserChoice whoseOf(const VolumeChoice& choice)
{
    return choice.user.empty() ? UserChoice::everyone() : UserChoice(choice.user);
}

/// The users of a Mac's disk.
std::optional<std::string> usersOf(const std::string& folder, std::vector<std::string>& users)
{
    auto disk = openDisk({folder, {}, false});
    if (!disk)
        return disk.error().message;
    users = settledHomes(**disk, UserChoice::everyone()).users;
    return std::nullopt;
}

} // namespace

Result<std::unique_ptr<Session>> Session::open(Desktop& desktop, const VolumeChoice& choice)
{
    auto disk = openDisk(choice);
    if (!disk)
        return disk.error();
    return std::unique_ptr<Session>(new Session(desktop, choice, std::move(disk).value()));
}

Session::Session(Desktop& desktop, VolumeChoice choice, std::unique_ptr<VolumeFileSystem> disk)
    : m_desktop(desktop), m_choice(std::move(choice)), m_words(wordsFor(m_choice)),
      m_disk(std::move(disk)),
      m_folderPicker(desktop.system->folderPicker(panelRoot(m_choice.folder))),
      m_users(settledHomes(*m_disk, whoseOf(m_choice)).users),
      m_workspace(desktop.host.workspace(*m_disk, m_users, m_disk->isHostRoot())),
      m_grants(desktop.system->grants(*m_disk, panelRoot(m_choice.folder))),
      m_journal(desktop.dataFolder(), *m_disk, desktop.clock),
      m_remover(*m_disk, m_journal, {desktop.dataFolder()}), m_sharedRemover(m_remover),
      m_fileViewer(desktop.system->fileViewer(*m_disk)),
      m_statusItem(desktop.system->statusItem(
          [](std::string_view image, int) { return ui::icon(ui::text(image)); })),
      m_delegate(services(), desktopServices(), factsFor(m_choice)),
      m_access(services(), *m_grants, m_delegate)
{
    m_windows.setMaker(ShellWindow::Main, [this] { return makeMainWindow(); });
    m_windows.setMaker(ShellWindow::Access, [this] { return makeAccessWindow(); });
    m_windows.setMaker(ShellWindow::Help, [this] { return makeHelpWindow(); });
}

Session::~Session()
{
    m_windows.closeAll(); // widgets refer to what they show
}

PlatformServices Session::services()
{
    return {*m_disk,
            m_desktop.defaults(),
            m_notifications,
            m_desktop.mainQueue,
            m_desktop.clock,
            m_desktop.alerts,
            *m_folderPicker,
            *m_workspace,
            m_desktop.system->userNotifier(),
            m_desktop.log};
}

DesktopServices Session::desktopServices()
{
    return {m_windows,
            m_desktop.system->dockIcon(),
            *m_statusItem,
            m_desktop.system->loginItem(),
            m_desktop.system->messages(),
            *m_grants,
            m_desktop.settingsFile,
            m_desktop.webBrowser,
            m_desktop.timers};
}

void Session::start()
{
    m_delegate.applicationDidFinishLaunching();
    // What a crash left open of an earlier removal is looked into while nobody waits for it.
    m_settling.start(
        [this] {
            m_sharedRemover.meanwhileNothing(
                [this] { logFailure(m_desktop.log, m_journal.settle()); });
        },
        [](const char*) {});
}

void Session::end()
{
    m_delegate.applicationWillTerminate();
}

void Session::requestScan()
{
    m_delegate.requestScan();
}

void Session::follow(FramedWindow& window)
{
    QObject::connect(&window, &FramedWindow::closeAsked, &m_delegate,
                     &AppDelegate::closeButtonClicked);
}

QWidget* Session::makeMainWindow()
{
    MainWindowParts::Needs needs{.services = services(),
                                 .desktop = desktopServices(),
                                 .delegate = m_delegate,
                                 .facts = factsFor(m_choice),
                                 .users = m_users,
                                 .disk = *m_disk,
                                 .remover = m_sharedRemover,
                                 .fileViewer = *m_fileViewer,
                                 .machine = *m_desktop.machine,
                                 .cachesFolder = m_desktop.host.cachesFolder(),
                                 .foldedName = {},
                                 .reveal = [this](const FileURL& at) { reveal(at); }};
    if (!m_choice.caseSensitive)
        needs.foldedName = [](std::string_view name) { return foldedName(name); };
    m_main = std::make_unique<MainWindowParts>(std::move(needs));
    auto* window = new MainWindow(m_delegate, m_main->table, m_main->screens.stack(), m_words,
                                  m_desktop.system->hasMenuBar() ? MainWindow::Menus::Bar
                                                                 : MainWindow::Menus::Button);
    follow(*window);
    QObject::connect(window, &MainWindow::openVolumeWanted, window,
                     [this, window] { askForVolume(window); });
    m_main->show(*window);
    return window;
}

QWidget* Session::makeAccessWindow()
{
    auto* window = new AccessWindow(m_access, m_words);
    QObject::connect(window, &AccessWindow::openVolumeWanted, window,
                     [this, window] { askForVolume(window); });
    return window;
}

QWidget* Session::makeHelpWindow()
{
    auto* window = new HelpWindow;
    follow(*window);
    return window;
}

void Session::reveal(const FileURL& location)
{
    if (const auto shown = m_fileViewer->reveal(location); !shown)
        m_desktop.alerts.runModal({"", shown.error().message, {"OK"}});
}

void Session::askForVolume(QWidget* over)
{
    const auto pick = [this](const std::string& from) -> std::optional<std::string> {
        const auto picker = m_desktop.system->folderPicker({});
        const auto folder =
            picker->pickFolder({"Choose",
                                "Choose the folder that stands for the root of a Mac's disk",
                                FileURL::fileURLWithPath(from),
                                {}});
        return folder ? std::optional(folder->absolutePath()) : std::nullopt;
    };
    const auto open = [this](const std::string& folder, const std::string& user) {
        change({folder, user, m_choice.caseSensitive});
    };
    (new VolumeSheet(over, {pick, usersOf, open}, m_choice.folder, m_choice.user))->present();
}

/// Everything on the screen belongs to the volume, so another one begins anew.
void Session::change(const VolumeChoice& choice)
{
    std::string refusal;
    const ScanState& state = m_delegate.state();
    if (state.isScanning() && !state.isScanStop.requested())
        refusal = "A scan is running. Stop it first, or wait for its end.";
    else if (m_main && m_main->isBusy())
        refusal = "Something is being removed. Wait for its end.";
    else if (!choice.user.empty() && !choice.user.starts_with('/') && !isShortName(choice.user))
        refusal = notAShortName(choice.user);
    else if (const auto disk = openDisk(choice); !disk)
        refusal = disk.error().message;
    if (!refusal.empty()) {
        m_desktop.alerts.runModal({"Open Volume", refusal, {"OK"}});
        return;
    }
    if (choice == m_choice)
        return;
    m_next = choice;
    m_windows.terminate();
}

void Session::take(const InstanceRequest& request)
{
    if (!request.activationToken.empty())
        m_desktop.host.useActivationToken(request.activationToken);
    m_delegate.applicationShouldHandleReopen();
    const std::string folder = request.volume.value_or(m_choice.folder);
    const std::string usual = folder == m_choice.folder ? m_choice.user : usualUser(folder);
    const VolumeChoice wanted{folder, request.user.value_or(usual), m_choice.caseSensitive};
    if (wanted != m_choice)
        change(wanted);
    else if (request.scan && m_main)
        m_delegate.requestScan();
}

} // namespace pryvane
