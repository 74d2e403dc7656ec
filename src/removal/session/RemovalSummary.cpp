#include "removal/session/RemovalSummary.h"

#include "core/Texts.h"

namespace pryvane {

std::string RemovalCounts::text() const
{
    std::string text = countedText(tally.removed, "finding", "findings") + " removed";
    if (tally.failed > 0)
        text += ", " + std::to_string(tally.failed) + " failed";
    const std::size_t left = tally.left - (remoteDesktop && tally.left > 0 ? 1 : 0);
    if (left > 0)
        text += ", " + std::to_string(left) + " left as you chose";
    if (remoteDesktop)
        text += "; Apple Remote Desktop stays: it is switched off in the Mac's settings";
    return text + ".";
}

RemovalSummary removalSummary(const RemovalCounts& counts, FailedText form)
{
    const std::size_t failed = counts.tally.failed;
    if (failed == 0)
        return {"", "no_threats_bg", "All threats are Removed", "icn_white_check", counts.text()};
    return {(form == FailedText::Indented ? "  " : "") + std::to_string(failed) + " Failed",
            "report_bg", failed == 1 ? "One Threat Remaining" : "Multiple Threats Remaining",
            "icn_white", counts.text()};
}

} // namespace pryvane
