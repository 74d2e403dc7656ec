#include "reports/ReportAppendix.h"

#include <algorithm>

namespace pryvane {

std::vector<std::string> detailsOf(const ReportAppendix::List& list, const ReportAppendix::Row& row)
{
    std::vector<std::string> details;
    const std::size_t count = std::min(list.columns.size(), row.cells.size());
    for (std::size_t i = 1; i < count; ++i)
        if (!row.cells[i].empty())
            details.push_back(list.columns[i] + ": " + row.cells[i]);
    return details;
}

} // namespace pryvane
