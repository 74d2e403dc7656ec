#include "app/program/Session.h"

#include "app/program/Desktop.h"
#include "app/program/Parts.h"
#include "app/views/PlainWindows.h"
#include "core/Escape.h"
#include "findings/Homes.h"
#include "hosts/Host.h"
#include "hosts/posix/CurrentUser.h"
#include "hosts/posix/SingleInstance.h"
#include "hosts/qt/widgets/WidgetFolderPicker.h"
#include "platform/Messages.h"
#include "platform/UserDefaults.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "volume/FoldedName.h"
#include "words/Shown.h"

#include <algorithm>
#include <filesystem>

namespace pryvane {

namespace {

constexpr const char* kBundleIdentifier = "com.torvell.Pryvane";

/// For what was read from a file.
class NoFileViewer final : public FileViewer {
public:
    Result<Done> reveal(const FileURL&) override
    {
        return Error{"It lies in an image or stands on a list, which no file viewer shows."};
    }
};

constexpr const char* kOnlyMounted =
    "This is an image or a list of names, which is only read and never changed. To remove "
    "something, mount the disk itself and open its folder.";

std::unique_ptr<Remover> removerOf(const OpenedDisk& disk, RemovalJournal& journal,
                                   const std::string& dataFolder)
{
    if (const VolumeFileSystem* folders = disk.folders())
        return std::make_unique<VolumeRemover>(*folders, journal,
                                               std::vector<std::string>{dataFolder});
    return std::make_unique<NoRemover>(kOnlyMounted);
}

std::unique_ptr<FileViewer> fileViewerOf(const OpenedDisk& disk, Desktop& desktop)
{
    if (VolumeFileSystem* folders = disk.folders())
        return desktop.system->fileViewer(*folders);
    return std::make_unique<NoFileViewer>();
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
    return {choice.user, kBundleIdentifier, PRYVANE_VERSION, PRYVANE_HOME_PAGE,
            isFileOfHost(choice.folder)};
}

/// A file may need a password, which is kept nowhere.
std::optional<ScheduledDisk> scheduledDiskOf(const VolumeChoice& choice)
{
    if (isFileOfHost(choice.folder))
        return std::nullopt;
    return ScheduledDisk{choice.folder, choice.user, choice.caseSensitive};
}

/// Nobody named is everyone.
UserChoice whoseOf(const VolumeChoice& choice)
{
    return choice.user.empty() ? UserChoice::everyone() : UserChoice(choice.user);
}

} // namespace

Result<std::unique_ptr<Session>> Session::open(Desktop& desktop, NextDisk next)
{
    if (!next.disk) {
        OpeningProgress progress;
        auto disk = openDisk(next.choice, StopFlag(), progress);
        if (!disk)
            return disk.error();
        next.disk = std::move(disk).value();
    }
    return std::unique_ptr<Session>(new Session(desktop, std::move(next)));
}

Session::Session(Desktop& desktop, NextDisk what)
    : m_desktop(desktop), m_choice(std::move(what.choice)), m_words(wordsFor(m_choice)),
      m_disk(std::move(what.disk)),
      m_folderPicker(desktop.system->folderPicker(panelRoot(m_choice.folder))),
      m_users(settledHomes(m_disk->files(), whoseOf(m_choice)).users),
      m_workspace(desktop.host.workspace(m_disk->files(), m_users, m_disk->isHostRoot())),
      m_grants(desktop.system->grants(m_disk->files(), panelRoot(m_choice.folder))),
      m_journal(desktop.dataFolder(), m_disk->files(), desktop.clock),
      m_remover(removerOf(*m_disk, m_journal, desktop.dataFolder())), m_sharedRemover(*m_remover),
      m_fileViewer(fileViewerOf(*m_disk, desktop)),
      m_statusItem(desktop.system->statusItem(
          [](std::string_view image, int) { return ui::panelIcon(ui::text(image)); })),
      m_delegate(services(), desktopServices(), factsFor(m_choice)),
      m_access(services(), *m_grants, m_delegate), m_opening(desktop.mainQueue)
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
    return {m_disk->files(),     m_desktop.defaults(), m_notifications,
            m_desktop.mainQueue, m_desktop.clock,      m_desktop.alerts,
            *m_folderPicker,     *m_workspace,         m_desktop.system->userNotifier(),
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
            m_desktop.timers,
            m_desktop.system->closedScans(),
            m_desktop.system->taskProgress()};
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

/// The window's place and size are those of its next start.
void Session::end()
{
    if (const QWidget* window = m_windows.widget(ShellWindow::Main))
        logFailure(m_desktop.log,
                   m_desktop.defaults().setObject(preferences::kWindowFrame,
                                                  Bytes{window->saveGeometry().toStdString()}));
    m_delegate.applicationWillTerminate();
}

/// Where access has not been granted yet the scan waits for it.
void Session::requestScan()
{
    if (m_main)
        m_delegate.requestScan();
    else
        m_scanWaits = true;
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
                                 .scheduledDisk = scheduledDiskOf(m_choice),
                                 .remover = m_sharedRemover,
                                 .fileViewer = *m_fileViewer,
                                 .machine = *m_desktop.machine,
                                 .cachesFolder = m_desktop.host.cachesFolder(),
                                 .foldedName = {},
                                 .reveal = [this](const FileURL& at) { reveal(at); }};
    if (!m_choice.caseSensitive)
        needs.foldedName = [](std::string_view name) { return foldedName(name); };
    m_main = std::make_unique<MainWindowParts>(std::move(needs));
    auto* window = new MainWindow(
        m_delegate, m_main->table, m_main->screens.stack(), m_words, m_desktop.looks(),
        m_desktop.system->hasMenuBar() ? MainWindow::Menus::Bar : MainWindow::Menus::Button);
    if (const auto frame = m_desktop.defaults().getBytes(preferences::kWindowFrame))
        window->restoreGeometry(QByteArray::fromStdString(frame->data));
    follow(*window);
    QObject::connect(window, &MainWindow::openVolumeWanted, window,
                     [this, window] { askForVolume(window, m_choice.folder); });
    m_main->show(*window);
    if (std::exchange(m_scanWaits, false))
        m_desktop.mainQueue.post([this, guard = QPointer<QWidget>(window)] {
            if (guard)
                m_delegate.requestScan();
        });
    return window;
}

QWidget* Session::makeAccessWindow()
{
    auto* window = new AccessWindow(m_access, m_words);
    QObject::connect(&m_access, &NotAccessVC::granted, window, [this](AccessScope scope) {
        if (scope != AccessScope::ThisHome && !m_choice.user.empty()) {
            VolumeChoice everyone = m_choice;
            everyone.user.clear();
            change(everyone, m_disk, std::exchange(m_scanWaits, false));
        }
    });
    QObject::connect(window, &AccessWindow::openVolumeWanted, window,
                     [this, window] { askForVolume(window, m_choice.folder); });
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

void Session::askForVolume(QWidget* over, const std::string& place)
{
    VolumeSheet::Asks asks;
    asks.pickFolder = [this](const std::string& from) -> std::optional<std::string> {
        const auto picker = m_desktop.system->folderPicker({});
        const auto folder =
            picker->pickFolder({"Choose",
                                "Choose the folder that stands for the root of a Mac's disk",
                                FileURL::fileURLWithPath(from),
                                {}});
        return folder ? std::optional(folder->absolutePath()) : std::nullopt;
    };
    asks.pickFile = [](const std::string& from) {
        return pickHostFile("Choose", "Choose an image of a Mac's disk, or a list of its names",
                            from);
    };
    asks.look = [this](const std::string& at, const std::string& password, VolumeSheet::Told told) {
        look(at, password, std::move(told));
    };
    asks.progress = [this] {
        return m_opening.isRunning() ? ui::shown(m_opening.progressText()) : QString();
    };
    asks.stop = [this] { m_opening.stop(); };
    asks.open = [this](const std::string& at, const std::string& user,
                       const std::string& password) {
        change({at, user, m_choice.caseSensitive,
                at == m_choice.folder ? m_choice.password : password},
               std::exchange(m_opened, {}), std::exchange(m_scanNext, false));
    };
    (new VolumeSheet(over, std::move(asks), place, m_choice.user))->present();
}

/// Whose homes the disk there has. Folders tell it at once; of a file all names are read first, and
/// kept for when it is to be looked at.
void Session::look(const std::string& at, const std::string& password, VolumeSheet::Told told)
{
    m_opening.stop();
    m_opened.reset();
    const VolumeChoice choice{at, {}, m_choice.caseSensitive, password};
    const auto ended = [this, told = std::move(told)](Result<std::shared_ptr<OpenedDisk>> disk,
                                                      bool isLocked) {
        VolumeSheet::Looked looked;
        looked.isLocked = isLocked;
        if (disk) {
            m_opened = std::move(disk).value();
            looked.users = settledHomes(m_opened->files(), UserChoice::everyone()).users;
        } else {
            looked.refusal = disk.error().message;
        }
        told(looked);
    };
    if (at == m_choice.folder && !m_disk->folders())
        return ended(m_disk, false); // its names are here already
    if (isFileOfHost(at))
        return m_opening.begin(choice, ended);
    OpeningProgress progress;
    ended(openDisk(choice, StopFlag(), progress), false);
}

/// Everything on the screen belongs to the volume, so another one begins anew.
void Session::change(const VolumeChoice& choice, std::shared_ptr<OpenedDisk> disk, bool scan)
{
    std::string refusal;
    const ScanState& state = m_delegate.state();
    if (state.isScanning() && !state.isScanStop.requested())
        refusal = "A scan is running. Stop it first, or wait for its end.";
    else if (m_main && m_main->isBusy())
        refusal = "Something is being removed. Wait for its end.";
    else if (!choice.user.empty() && !choice.user.starts_with('/') && !isShortName(choice.user))
        refusal = notAShortName(choice.user);
    else if (!disk) {
        OpeningProgress progress;
        if (auto opened = openDisk(choice, StopFlag(), progress))
            disk = std::move(opened).value();
        else
            refusal = opened.error().message;
    }
    if (!refusal.empty()) {
        m_desktop.alerts.runModal({"Open", refusal, {"OK"}});
        return;
    }
    if (choice == m_choice)
        return;
    m_next = NextDisk{choice, std::move(disk), scan};
    m_windows.terminate();
}

void Session::take(const InstanceRequest& request)
{
    if (!request.activationToken.empty())
        m_desktop.host.useActivationToken(request.activationToken);
    m_delegate.applicationShouldHandleReopen();
    const std::string folder = request.volume.value_or(m_choice.folder);
    const std::string usual = folder == m_choice.folder ? m_choice.user : usualUser(folder);
    const VolumeChoice wanted{folder, request.user.value_or(usual), m_choice.caseSensitive,
                              folder == m_choice.folder ? m_choice.password : std::string()};
    QWidget* const shown = m_windows.widget(ShellWindow::Main);
    m_scanNext = false;
    if (wanted != m_choice && folder != m_choice.folder && isFileOfHost(folder) && shown) {
        m_scanNext = request.scan;
        askForVolume(shown, folder); // its names take a while to read
    } else if (wanted != m_choice) {
        change(wanted, {}, request.scan);
    } else if (request.scan) {
        requestScan();
    }
}

} // namespace pryvane
