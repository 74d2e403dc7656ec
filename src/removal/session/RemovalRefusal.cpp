#include "removal/session/RemovalRefusal.h"

#include "platform/Messages.h"
#include "platform/Remover.h"

namespace pryvane {

bool isRefused(const Remover& remover, Alerts& alerts)
{
    const std::string refusal = remover.refusal();
    if (refusal.empty())
        return false;
    alerts.runModal({"Nothing can be removed here", refusal, {"OK"}});
    return true;
}

} // namespace pryvane
