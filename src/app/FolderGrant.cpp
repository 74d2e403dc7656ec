#include "app/FolderGrant.h"

#include "platform/Alerts.h"
#include "platform/FolderPicker.h"
#include "platform/GrantTokens.h"
#include "platform/Log.h"
#include "platform/UserDefaults.h"

namespace pryvane {

GrantOutcome askForGrant(const PlatformServices& services, GrantTokens& tokens,
                         const FolderQuestion& question, std::span<const std::string_view> keys)
{
    const auto picked = services.folderPicker.pickFolder(question);
    // Asked again: a panel may take a typed path that it does not offer.
    if (!picked || (question.allows && !question.allows(*picked)))
        return GrantOutcome::Cancelled;
    const auto token = tokens.make(*picked);
    for (const std::string_view key : keys) {
        logFailure(services.log, token ? services.defaults.setObject(key, *token)
                                       : services.defaults.removeObject(key));
    }
    if (token)
        return GrantOutcome::Granted;
    services.log.line("Error bookmarking selected URL: " + token.error().message);
    services.alerts.runModal({"", "Access Denied", {"OK"}});
    return GrantOutcome::Failed;
}

} // namespace pryvane
