#include "cli/ReportLookup.h"

#include "core/Escape.h"

namespace pryvane::cli {

Result<std::shared_ptr<SpywareScanReport>> findReport(const ReportList& list, std::string_view id)
{
    if (list.empty())
        return Error{"there are no reports yet; pryvane-cli scan makes one"};
    if (id == "latest")
        return list.front();
    std::shared_ptr<SpywareScanReport> match;
    for (const auto& report : list) {
        if (report->reportId == id)
            return report;
        if (!id.empty() && std::string_view(report->reportId).starts_with(id)) {
            if (match) {
                return Error{"\"" + forTerminal(id) +
                             "\" begins the identity of more than one "
                             "report; pryvane-cli report list shows them whole"};
            }
            match = report;
        }
    }
    if (!match) {
        return Error{"there is no report \"" + forTerminal(id) +
                     "\"; pryvane-cli report list shows those there are"};
    }
    return match;
}

} // namespace pryvane::cli
