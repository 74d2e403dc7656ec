#pragma once

#include "core/Result.h"
#include "reports/SpywareScanReport.h"

#include <memory>
#include <string_view>

namespace pryvane {
class DefaultMethods;
}

namespace pryvane::cli {

/// The report that a person named: "latest", an identity, or the beginning of exactly one.
[[nodiscard]] Result<std::shared_ptr<SpywareScanReport>> findReport(DefaultMethods& store,
                                                                    std::string_view id);

} // namespace pryvane::cli
