#pragma once

#include "core/Result.h"
#include "reports/pdf/PdfPainter.h"

#include <memory>

namespace pryvane::pdf {

/// The painter's module, apart because binding its forty libraries takes longer than all the rest
/// of a program's start.
struct PainterModule {
    static constexpr const char* kFile = "libpryvane-pdf.so";

    Result<std::unique_ptr<PdfPainter>> (*makePainter)();
};

} // namespace pryvane::pdf
