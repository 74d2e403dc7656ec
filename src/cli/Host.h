#pragma once

#include "cli/Console.h"
#include "core/Escape.h"
#include "core/NotificationCenter.h"
#include "core/Result.h"
#include "core/ThreadSafety.h"
#include "core/tasks/BlockingMainQueue.h"
#include "findings/Homes.h"
#include "findings/ScanCoverage.h"
#include "findings/ScanState.h"
#include "hosts/posix/SystemClock.h"
#include "inventory/AdwareScan.h"
#include "platform/FileSystem.h"
#include "platform/Messages.h"
#include "platform/PlatformServices.h"
#include "platform/UserDefaults.h"
#include "scan/DiskAccess.h"
#include "volume/VolumeFileSystem.h"
#include "volume/image/ImageDisk.h"
#include "volume/index/IndexFileSystem.h"

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pryvane {
class Host;
class PDFGenerate;
class ReportPrinting;
class RemovalJournal;
class Remover;
class Workspace;
} // namespace pryvane

namespace pryvane::cli {

/// An explicit command-line call is a grant of its own: what the operating system allows is
/// accessible, and nothing is kept.
class GrantedAccess final : public DiskAccess {
public:
    explicit GrantedAccess(FileSystem& disk) : m_disk(disk) {}

    [[nodiscard]] bool isHDAccessible() override { return true; }
    bool isUserAccessible() override { return true; }
    [[nodiscard]] bool isWritable(const FileURL& folder) override
    {
        return m_disk.writable(folder);
    }
    void confirmAccessAction() override {}
    [[nodiscard]] Result<Bytes> makeBookmark(const FileURL&) override
    {
        return Error{"the command line keeps no grants; open the window to make one"};
    }

private:
    FileSystem& m_disk;
};

/// What commands that look at a disk have in common.
struct VolumeArguments {
    std::string volume = "/";       ///< host folder that stands for the Mac's root
    std::vector<std::string> users; ///< short names; none: whoever runs the program, or all
    bool allUsers = false;          ///< the default on any disk but this host's own
    bool caseSensitive = false;
    std::string listing = {}; ///< a list of names in place of the volume; "-": the standard input
    std::string strip = {};   ///< what is taken off the front of its paths
    std::string image = {};   ///< a disk image or device in place of the volume
    unsigned partition = 0;   ///< of the image; 0: the one that looks like a Mac's
    std::string apfsVolume = {};   ///< name or number; empty: likewise
    std::string passwordFile = {}; ///< holds the password of an encrypted volume
    bool hash = false;             ///< tell the SHA-256 of the list or image

    [[nodiscard]] bool isFolder() const { return listing.empty() && image.empty(); }

    /// The identity of the disk that was named, which may be empty; none where the usual one is
    /// looked at.
    [[nodiscard]] std::optional<std::string> named(const FileSystem& disk) const
    {
        return volume == "/" && isFolder() ? std::nullopt : std::optional(disk.identity());
    }
};

/// How the image of these arguments is to be read: by which program, and which part of it.
[[nodiscard]] Result<ImageOptions> imageOptions(const VolumeArguments& arguments);

/// What a command is going to ask a disk that is read beforehand.
enum class Asking : std::uint8_t { Everything, WhatScansAsk };

/// Refuses what only a mounted disk can do, before anything is asked; says so and returns false.
[[nodiscard]] bool canChange(const VolumeArguments& arguments, const Console& console);

/// What a command needs of the store. One that only reads makes and moves nothing, and a store that
/// it cannot read is an error.
enum class StoreUse : std::uint8_t { Write, Read, None };
enum class Pacing : std::uint8_t { Paced, Unpaced };

/// What services have to say, on the console's stream of words.
class ConsoleLog final : public Log {
public:
    explicit ConsoleLog(const Console& console) : m_console(console) {}
    void line(std::string_view text) override;
    [[nodiscard]] bool hasSpoken() const { return m_hasSpoken; }

private:
    std::atomic<bool> m_hasSpoken{false};
    Mutex m_mutex;
    const Console& m_console GUARDED_BY(m_mutex); ///< one line at a time
};

/// The services of this process, put together once for the command that runs.
class Host {
public:
    /// Opens the volume and, unless it is not wanted, the store. The error says what to do.
    [[nodiscard]] static Result<std::unique_ptr<Host>>
    open(const Console& console, const VolumeArguments& arguments, StoreUse use,
         Pacing pacing = Pacing::Unpaced, Asking asking = Asking::Everything);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    /// An error where the disk holds no Mac: nothing that was said of it would mean anything.
    [[nodiscard]] Result<Done> mustHoldMac();

    [[nodiscard]] PlatformServices services();
    /// Whose homes the command is about, and what of them there was when it began.
    [[nodiscard]] const UserChoice& whose() const { return m_whose; }
    [[nodiscard]] const Homes& homes() const { return m_homes; }
    /// The one user named; empty where there are several.
    [[nodiscard]] std::string user() const
    {
        return m_whose.users().size() == 1 ? m_homes.users.front() : std::string();
    }
    [[nodiscard]] const std::string& dataFolder() const { return m_dataFolder; }
    [[nodiscard]] FileSystem& disk()
    {
        return m_names ? static_cast<FileSystem&>(*m_names) : *m_disk;
    }
    /// The disk as a mounted one, where canChange() was asked first.
    [[nodiscard]] VolumeFileSystem& mountedDisk() { return *m_disk; }
    /// The names of a disk that is not mounted.
    [[nodiscard]] const NameIndex& nameIndex() { return m_names->index(); }
    /// What measures on that disk; made anew.
    [[nodiscard]] std::unique_ptr<SizeMeter> sizeMeter();
    [[nodiscard]] Workspace& workspace() { return *m_workspace; }
    [[nodiscard]] UserDefaults& defaults() { return *m_defaults; }
    [[nodiscard]] Clock& clock() { return *m_clock; }
    /// What removes for good on this volume and keeps the account of it; made on first use.
    [[nodiscard]] Result<Remover*> remover();
    [[nodiscard]] BlockingMainQueue& mainQueue() { return m_mainQueue; }
    [[nodiscard]] NotificationCenter& notifications() { return m_notifications; }
    [[nodiscard]] ScanState& state() { return m_state; }
    [[nodiscard]] Log& log() { return m_log; }
    /// Whether something was amiss that the console was told of.
    [[nodiscard]] bool hasLogged() const { return m_log.hasSpoken(); }

    /// Documents and printers, made when they are first asked for.
    [[nodiscard]] PDFGenerate& pdf();
    [[nodiscard]] ReportPrinting& printing();

private:
    struct Documents;

    explicit Host(const Console& console);
    [[nodiscard]] Documents& documents();
    [[nodiscard]] Result<Done> openDisk(const Console& console, const VolumeArguments& arguments,
                                        Asking asking);
    [[nodiscard]] Result<Done> openImageDisk(const Console& console,
                                             const VolumeArguments& arguments);
    [[nodiscard]] Result<Done> openStore(StoreUse use);
    [[nodiscard]] Result<Done> openWithoutStore();

    std::unique_ptr<pryvane::Host> m_system; ///< what the others are made of
    NotificationCenter m_notifications;
    ScanState m_state;
    BlockingMainQueue m_mainQueue;
    ConsoleLog m_log;
    const StopFlag& m_interrupted;
    SilentLog m_engineLog; ///< its lines are steps that the console shows in its own way
    SilentUserNotifier m_userNotifier;
    std::unique_ptr<Alerts> m_alerts;
    std::unique_ptr<FolderPicker> m_folderPicker;
    std::unique_ptr<Clock> m_clock;
    std::unique_ptr<VolumeFileSystem> m_disk; ///< a mounted one,
    std::unique_ptr<IndexFileSystem> m_names; ///< or else names that were read
    std::unique_ptr<UserDefaults> m_defaults;
    std::unique_ptr<Workspace> m_workspace;
    std::unique_ptr<Documents> m_documents;
    std::unique_ptr<RemovalJournal> m_journal;
    std::unique_ptr<Remover> m_remover;
    std::string m_volume; ///< the host folder, as it was given
    UserChoice m_whose = UserChoice::everyone();
    Homes m_homes;
    std::string m_dataFolder;
};

/// What the commands around the privacy tools have in common.
class CleanerHost {
public:
    explicit CleanerHost(Host& host) : m_host(host), m_sizes(host.sizeMeter()) {}

    [[nodiscard]] const std::vector<std::string>& users() const { return m_host.homes().users; }
    [[nodiscard]] CleanerServices services() { return {m_host.disk(), *m_sizes}; }

    /// Says what of the homes asked for is not there or could not be read, and whose are left out.
    void sayHomes(const Console& console)
    {
        ScanCoverage coverage;
        m_host.homes().note(coverage);
        if (!coverage.missingHome.empty())
            console.say(missingHomeText(coverage));
        else if (!coverage.homesLeftOut.empty())
            console.say(homesLeftOutText(coverage));
        for (const Refusal& refusal : coverage.refused)
            console.say("not readable: " + forTerminal(refusal.path) + " (" +
                        forTerminal(refusal.reason) + ")");
    }

private:
    Host& m_host;
    std::unique_ptr<SizeMeter> m_sizes;
};

} // namespace pryvane::cli
