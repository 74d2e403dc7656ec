#include "app/NotAccessVC.h"

#include "app/AppDelegate.h"
#include "core/Escape.h"
#include "platform/FolderAccess.h"
#include "scan/RootChoice.h"

#include <array>

namespace pryvane {

namespace {

constexpr std::chrono::milliseconds kFollowUp{300};

} // namespace

NotAccessVC::NotAccessVC(const PlatformServices& services, GrantTokens& tokens,
                         AppDelegate& delegate, QObject* parent)
    : QObject(parent), m_services(services), m_tokens(tokens), m_delegate(delegate),
      m_later(services.mainQueue)
{
}

void NotAccessVC::confirmAccessAction()
{
    constexpr std::array kKeys = {preferences::kSaveDirectory};
    const auto outcome = askForGrant(
        m_services, [this](const FileURL& url) { return m_tokens.make(url); },
        {"Confirm Access", "Give access for scanning in your Home Directory",
         m_delegate.homeFolder(), [this](const FileURL& url) { return panelShouldEnableURL(url); },
         "Choose " + forScreen(m_delegate.homeFolder().absolutePath()) +
             ", the folder Users, or the whole disk."},
        kKeys);
    if (outcome != GrantOutcome::Granted)
        return;
    m_isGranted = true;
    Q_EMIT stateChanged();
    m_later.postAfter(kFollowUp, [this] { m_delegate.openMainWindow(); });
}

void NotAccessVC::closeAppAction()
{
    m_delegate.terminateSelf();
}

bool NotAccessVC::panelShouldEnableURL(const FileURL& url) const
{
    const std::string path = url.absolutePath();
    return path == m_delegate.homeFolder().absolutePath() || path == "/Users" || path == "/";
}

} // namespace pryvane
