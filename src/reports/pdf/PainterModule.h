#pragma once

#include "core/Result.h"
#include "reports/pdf/PdfPainter.h"

#include <memory>

namespace pryvane::pdf {

/// A painter from the module beside the program. It is loaded when the first document is written,
/// because binding its forty libraries takes longer than all the rest of a program's start.
[[nodiscard]] Result<std::unique_ptr<PdfPainter>> loadPainter();

} // namespace pryvane::pdf
