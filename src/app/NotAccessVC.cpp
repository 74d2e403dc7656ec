#include "app/NotAccessVC.h"

#include "app/AppDelegate.h"
#include "core/Escape.h"
#include "platform/FileSystem.h"
#include "platform/FolderAccess.h"
#include "platform/Messages.h"
#include "platform/UserDefaults.h"
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
    if (outcome == GrantOutcome::Granted)
        open();
}

void NotAccessVC::open()
{
    m_isGranted = true;
    Q_EMIT stateChanged();
    m_later.postAfter(kFollowUp, [this] { m_delegate.openMainWindow(); });
}

std::vector<AccessChoice> NotAccessVC::choices() const
{
    std::vector<AccessChoice> choices;
    const FileURL home = m_delegate.homeFolder(), all = FileURL::fileURLWithPath("/Users");
    const auto add = [&](AccessScope scope, const FileURL& folder) {
        choices.push_back({scope, folder, m_services.disk.exists(folder)});
    };
    if (home.absolutePath() != all.absolutePath())
        add(AccessScope::ThisHome, home);
    add(AccessScope::EveryHome, all);
    add(AccessScope::WholeDisk, FileURL::fileURLWithPath("/"));
    return choices;
}

void NotAccessVC::grant(AccessScope scope)
{
    constexpr std::array kKeys = {preferences::kSaveDirectory, preferences::kSaveDirectoryForHD};
    const bool whole = scope == AccessScope::WholeDisk;
    for (const AccessChoice& choice : choices()) {
        if (choice.scope != scope)
            continue;
        const auto outcome = keepGrant(
            m_services, [this](const FileURL& url) { return m_tokens.make(url); }, choice.folder,
            std::span(kKeys).first(whole ? 2 : 1));
        if (outcome != GrantOutcome::Granted)
            return;
        logFailure(m_services.log,
                   m_services.defaults.set(preferences::kWholeDisk,
                                           whole ? m_services.disk.identity() : std::string()));
        Q_EMIT granted(scope);
        return open();
    }
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
