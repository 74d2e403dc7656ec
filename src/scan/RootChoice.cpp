#include "scan/RootChoice.h"

#include "platform/FileSystem.h"
#include "platform/FolderAccess.h"
#include "platform/Messages.h"
#include "platform/UserDefaults.h"
#include "scan/DiskAccess.h"

#include <array>

namespace pryvane {

namespace {

FileURL wholeDisk()
{
    return FileURL::fileURLWithPath("/");
}

} // namespace

RootChoice::RootChoice(const PlatformServices& services, DiskAccess& access,
                       const ScanOptions& options)
    : m_services(services), m_access(access), m_options(options)
{
}

std::optional<FileURL> RootChoice::choose(bool homeIsWritable)
{
    if (m_options.grantedRoot)
        return m_options.grantedRoot;
    if (m_services.defaults.get(preferences::kSandboxingDone))
        return wholeDiskOrHome();
    if (m_services.defaults.contains(preferences::kSaveDirectory)) {
        // A grant that still holds is enough: a disk that is attached for reading alone can be
        // looked at without any question.
        if (m_access.isUserAccessible() || homeIsWritable)
            return m_options.homeRoot();
    }
    return askForFolder();
}

FileURL RootChoice::wholeDiskOrHome()
{
    if (m_access.isHDAccessible())
        return wholeDisk();
    const int answer = m_services.alerts.runModal(
        {"Access Alert",
         "Norvesta does not have permission to scan your entire mac. Please grant root access or "
         "continue to only scan your user directory.",
         {"Yes", "No"}});
    if (answer == kAlertFirstButton)
        return wholeDisk();
    m_access.confirmAccessAction();
    return m_options.homeRoot();
}

std::optional<FileURL> RootChoice::askForFolder()
{
    constexpr std::array kKeys = {preferences::kSaveDirectory, preferences::kSaveDirectoryForHD};
    const auto outcome = askForGrant(
        m_services, [this](const FileURL& url) { return m_access.makeBookmark(url); },
        {"Confirm Access",
         "Give access for scanning in your HardDisk",
         FileURL::fileURLWithPath(m_options.homePath()),
         {}},
        kKeys, EarlierGrants::Kept);
    if (outcome != GrantOutcome::Cancelled)
        logFailure(m_services.log, m_services.defaults.set(preferences::kLibraryAccess, true));
    if (outcome == GrantOutcome::Failed)
        return std::nullopt;
    // The folder is only bookmarked: what is scanned stays the home folder.
    return m_options.homeRoot();
}

GrantOutcome askForGrant(const PlatformServices& services, const TokenMaker& makeToken,
                         const FolderQuestion& question, std::span<const std::string_view> keys,
                         EarlierGrants onFailure)
{
    const auto picked = services.folderPicker.pickFolder(question);
    // Asked again: a panel may take a typed path that it does not offer.
    if (!picked || (question.allows && !question.allows(*picked)))
        return GrantOutcome::Cancelled;
    return keepGrant(services, makeToken, *picked, keys, onFailure);
}

std::string grantKeyOf(std::string_view key, const std::string& identity)
{
    return identity.empty() ? std::string(key) : std::string(key) + " of " + identity;
}

GrantOutcome keepGrant(const PlatformServices& services, const TokenMaker& makeToken,
                       const FileURL& folder, std::span<const std::string_view> keys,
                       EarlierGrants onFailure)
{
    const auto token = makeToken(folder);
    const std::string identity = services.disk.identity();
    for (const std::string_view key : keys) {
        for (const std::string& kept : {std::string(key), grantKeyOf(key, identity)}) {
            if (token)
                logFailure(services.log, services.defaults.setObject(kept, *token));
            else if (onFailure == EarlierGrants::Cleared)
                logFailure(services.log, services.defaults.removeObject(kept));
        }
    }
    if (token)
        return GrantOutcome::Granted;
    services.log.line("Error bookmarking selected URL: " + token.error().message);
    services.alerts.runModal({"", "Access Denied", {"OK"}});
    return GrantOutcome::Failed;
}

} // namespace pryvane
