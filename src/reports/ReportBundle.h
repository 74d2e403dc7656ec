#pragma once

#include "core/Result.h"
#include "reports/ReportAppendix.h"
#include "reports/SpywareScanReport.h"

#include <functional>
#include <string>

namespace pryvane {

/// Makes the document at that path.
using DocumentWriter = std::function<Result<Done>(const std::string& path)>;

/// Makes the folder and puts the report into it in every form, each a file of its own, with their
/// SHA-256 in SHA256SUMS, which is written last. What stands there is never touched: a folder of
/// that name is an error. Where a file cannot be written, none is left.
[[nodiscard]] Result<Done> writeReportBundle(const std::string& folder,
                                             const SpywareScanReport& report,
                                             const ReportAppendix* appendix,
                                             const DocumentWriter& writePdf);

} // namespace pryvane
