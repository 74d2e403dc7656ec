#include "reports/pdf/PainterModule.h"

#include "platform/LoadedModule.h"

namespace pryvane::pdf {

Result<std::unique_ptr<PdfPainter>> loadPainter()
{
    const auto make = functionOfModule("libpryvane-pdf.so", kMakePainterSymbol);
    if (!make)
        return make.error();
    return reinterpret_cast<MakePainter>(*make)();
}

} // namespace pryvane::pdf
