#include "removal/session/RemovalSummary.h"

namespace pryvane {

RemovalSummary removalSummary(std::size_t failed, FailedText form)
{
    if (failed == 0)
        return {"", "no_threats_bg", "All threats are Removed", "icn_white_check"};
    return {(form == FailedText::Indented ? "  " : "") + std::to_string(failed) + " Failed",
            "report_bg", failed == 1 ? "One Threat Remaining" : "Multiple Threats Remaining",
            "icn_white"};
}

} // namespace pryvane
