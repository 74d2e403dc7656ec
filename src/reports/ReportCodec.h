#pragma once

#include "core/Result.h"
#include "reports/SpywareScanReport.h"

#include <string>
#include <string_view>

namespace pryvane {

/// The stored form of a report list: one self-describing CBOR value, which carries paths as the raw
/// bytes they are.
[[nodiscard]] std::string encodeReports(const ReportList& reports);

/// The list that encodeReports() stored, or why the bytes are none. Safe on any bytes. Unknown keys
/// are passed over. The reports are not derived yet, and no record has been looked for on a disk:
/// all read as unavailable.
[[nodiscard]] Result<ReportList> decodeReports(std::string_view bytes);

} // namespace pryvane
