#include "cli/ReportLookup.h"

#include "core/Escape.h"
#include "reports/DefaultMethods.h"

namespace pryvane::cli {

namespace {

/// The identity of the report that was named.
Result<std::string> identityOf(const std::vector<ReportFacts>& list, std::string_view id)
{
    if (list.empty())
        return Error{"there are no reports yet; pryvane-cli scan makes one"};
    if (id == "latest")
        return list.front().reportId;
    const ReportFacts* match = nullptr;
    for (const ReportFacts& report : list) {
        if (report.reportId == id)
            return report.reportId;
        if (!id.empty() && std::string_view(report.reportId).starts_with(id)) {
            if (match) {
                return Error{"\"" + forTerminal(id) +
                             "\" begins the identity of more than one "
                             "report; pryvane-cli report list shows them whole"};
            }
            match = &report;
        }
    }
    if (!match) {
        return Error{"there is no report \"" + forTerminal(id) +
                     "\"; pryvane-cli report list shows those there are"};
    }
    return match->reportId;
}

} // namespace

Result<std::shared_ptr<SpywareScanReport>> findReport(DefaultMethods& store, std::string_view id)
{
    const auto list = store.listReports();
    if (!list)
        return list.error();
    const auto identity = identityOf(*list, id);
    if (!identity)
        return identity.error();
    return store.loadReport(*identity);
}

} // namespace pryvane::cli
