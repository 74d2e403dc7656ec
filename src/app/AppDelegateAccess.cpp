#include "app/AppDelegate.h"
#include "platform/FileSystem.h"
#include "platform/FolderAccess.h"
#include "platform/Messages.h"
#include "platform/UserDefaults.h"
#include "platform/Users.h"
#include "scan/RootChoice.h"

#include <array>

namespace pryvane {

namespace {

FileURL wholeDisk()
{
    return FileURL::fileURLWithPath("/");
}

} // namespace

FileURL AppDelegate::homeFolder() const
{
    return FileURL::fileURLWithPath(m_facts.user.empty() ? "/Users" : homePath(m_facts.user));
}

bool AppDelegate::isWritable(const FileURL& folder)
{
    return m_desktop.grantTokens.writable(folder);
}

Result<Bytes> AppDelegate::makeBookmark(const FileURL& folder)
{
    return m_desktop.grantTokens.make(folder);
}

bool AppDelegate::makeBookMarkURLAccessible(std::string_view key)
{
    for (const std::string& kept :
         {std::string(key), grantKeyOf(key, m_services.disk.identity())}) {
        const auto token = m_services.defaults.getBytes(kept);
        if (token && m_desktop.grantTokens.reopen(*token))
            return true;
    }
    return false;
}

/// A folder that can be written without a grant counts as not granted, on purpose.
bool AppDelegate::grantReopens(const FileURL& folder, std::string_view key)
{
    return !isWritable(folder) && makeBookMarkURLAccessible(key);
}

bool AppDelegate::isUserDirAccessible()
{
    return m_facts.isGranted || grantReopens(homeFolder(), preferences::kSaveDirectory);
}

bool AppDelegate::isHDAccessible()
{
    return m_facts.isGranted || grantReopens(wholeDisk(), preferences::kSaveDirectoryForHD);
}

bool AppDelegate::isUserAccessible()
{
    return m_facts.isGranted || isWritable(homeFolder()) ||
           makeBookMarkURLAccessible(preferences::kSaveDirectory);
}

void AppDelegate::checkForHDAccess()
{
    if (!m_services.defaults.get(preferences::kSandboxingDone) || isHDAccessible())
        return;
    const int answer = m_services.alerts.runModal(
        {"Access Alert",
         "Pryvane does not have permission to scan your entire mac. Please grant root access or "
         "continue to only scan your user directory.",
         {"Continue", "Confirm Access"}});
    if (answer != kAlertFirstButton)
        confirmAccessAction();
}

void AppDelegate::confirmAccessAction()
{
    constexpr std::array kKeys = {preferences::kSaveDirectory, preferences::kSaveDirectoryForHD};
    const auto outcome = askForGrant(
        m_services, [this](const FileURL& url) { return makeBookmark(url); },
        {"Confirm Access", "Give access for scanning in your HardDisk", wholeDisk(),
         &AppDelegate::panelShouldEnableURL, "Choose the whole disk."},
        kKeys);
    if (outcome == GrantOutcome::Granted)
        Q_EMIT stateChanged();
}

bool AppDelegate::panelShouldEnableURL(const FileURL& url)
{
    return url.absolutePath() == "/";
}

} // namespace pryvane
