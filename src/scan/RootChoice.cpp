#include "scan/RootChoice.h"

#include "platform/Alerts.h"
#include "platform/FolderPicker.h"
#include "platform/Log.h"
#include "platform/UserDefaults.h"
#include "scan/DiskAccess.h"

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
        m_access.isUserAccessible();
        if (homeIsWritable)
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
    const auto picked =
        m_services.folderPicker.pickFolder({"Confirm Access",
                                            "Give access for scanning in your HardDisk",
                                            FileURL::fileURLWithPath(m_options.homePath()),
                                            {}});
    if (!picked)
        return m_options.homeRoot();
    logFailure(m_services.log, m_services.defaults.set(preferences::kLibraryAccess, true));
    const auto bookmark = m_access.makeBookmark(*picked);
    if (!bookmark) {
        m_services.log.line("Error bookmarking selected URL: " + bookmark.error().message);
        m_services.alerts.runModal({"", "Access Denied", {"OK"}});
        return std::nullopt;
    }
    // The folder is only bookmarked: what is scanned stays the home folder.
    logFailure(m_services.log,
               m_services.defaults.setObject(preferences::kSaveDirectory, *bookmark));
    logFailure(m_services.log,
               m_services.defaults.setObject(preferences::kSaveDirectoryForHD, *bookmark));
    return m_options.homeRoot();
}

} // namespace pryvane
