#pragma once

#include "app/AppDelegate.h"
#include "app/NotAccessVC.h"
#include "app/program/Arguments.h"
#include "app/program/OpenedDisk.h"
#include "app/views/MainWindow.h"
#include "app/views/VolumeSheet.h"
#include "app/views/Windows.h"
#include "core/NotificationCenter.h"
#include "core/ThreadSafety.h"
#include "core/tasks/Worker.h"
#include "platform/DesktopPrograms.h"
#include "platform/DesktopWindows.h"
#include "platform/FolderAccess.h"
#include "platform/Machine.h"
#include "platform/Remover.h"
#include "removal/disk/RemovalJournalFile.h"
#include "removal/disk/VolumeRemover.h"

#include <memory>
#include <optional>

namespace pryvane {

class Desktop;
struct InstanceRequest;

/// What to look at next; the disk where it is open already.
struct NextDisk {
    VolumeChoice choice;
    std::shared_ptr<OpenedDisk> disk;
    bool scan = false; ///< at once
};

/// Lets several screens share one remover: each call waits for the one before. Callable from any
/// thread.
class SharedRemover final : public Remover {
public:
    explicit SharedRemover(Remover& remover) : m_refusal(remover.refusal()), m_remover(remover) {}

    [[nodiscard]] std::string refusal() const override { return m_refusal; }

    void plan(std::span<const RemovalItem> items, const StopFlag& stop,
              const RemovalForecasts& told) override
    {
        const MutexLock lock(m_oneAtATime);
        m_remover.plan(items, stop, told);
    }

    void remove(std::span<const RemovalItem> items, const StopFlag& stop,
                const RemovalResults& told) override
    {
        const MutexLock lock(m_oneAtATime);
        m_remover.remove(items, stop, told);
    }

    void conclude(const RemovalTally& tally) override
    {
        const MutexLock lock(m_oneAtATime);
        m_remover.conclude(tally);
    }

    bool hasRemovedBefore() override
    {
        const MutexLock lock(m_oneAtATime);
        return m_remover.hasRemovedBefore();
    }

    /// Whatever else must not happen while something is removed.
    template <typename Work>
    void meanwhileNothing(Work work)
    {
        const MutexLock lock(m_oneAtATime);
        work();
    }

private:
    const std::string m_refusal;
    Mutex m_oneAtATime;
    Remover& m_remover GUARDED_BY(m_oneAtATime);
};

/// The program while it looks at one volume as one user: services of that volume, controllers,
/// windows. Another volume takes another session. Main thread only.
class Session final {
public:
    /// Opens the disk where it is not open yet. The error says why it cannot be looked at.
    [[nodiscard]] static Result<std::unique_ptr<Session>> open(Desktop& desktop, NextDisk next);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    void start();
    /// Once the main loop has ended.
    void end();

    /// A second start of the program: comes to the front and does what it asked for.
    void take(const InstanceRequest& request);
    void requestScan();

    /// What to look at after this one has ended; none: the program ends.
    [[nodiscard]] const std::optional<NextDisk>& next() const { return m_next; }

private:
    struct MainWindowParts;

    Session(Desktop& desktop, NextDisk what);

    [[nodiscard]] PlatformServices services();
    [[nodiscard]] DesktopServices desktopServices();
    [[nodiscard]] QWidget* makeMainWindow();
    [[nodiscard]] QWidget* makeAccessWindow();
    [[nodiscard]] QWidget* makeHelpWindow();
    void follow(FramedWindow& window);
    void reveal(const FileURL& location);
    void look(const std::string& at, const std::string& password, VolumeSheet::Told told);
    void askForVolume(QWidget* over, const std::string& place);
    void change(const VolumeChoice& choice, std::shared_ptr<OpenedDisk> disk = {},
                bool scan = false);

    Desktop& m_desktop;
    const VolumeChoice m_choice;
    const VolumeWords m_words;
    std::optional<NextDisk> m_next;

    const std::shared_ptr<OpenedDisk> m_disk;
    NotificationCenter m_notifications;
    const std::unique_ptr<FolderPicker> m_folderPicker;
    const std::vector<std::string> m_users;
    const std::unique_ptr<Workspace> m_workspace;
    const std::unique_ptr<GrantTokens> m_grants;
    RemovalJournalFile m_journal;
    const std::unique_ptr<Remover> m_remover;
    SharedRemover m_sharedRemover;
    const std::unique_ptr<FileViewer> m_fileViewer;
    const std::unique_ptr<StatusItem> m_statusItem;
    Windows m_windows;
    AppDelegate m_delegate;
    NotAccessVC m_access;
    std::unique_ptr<MainWindowParts> m_main;
    DiskOpening m_opening;
    std::shared_ptr<OpenedDisk> m_opened; ///< by it; what the sheet offers
    bool m_scanWaits = false;             ///< for the main window
    bool m_scanNext = false;              ///< what the sheet offers is to be scanned at once
    Worker m_settling;                    ///< of the journal
};

} // namespace pryvane
