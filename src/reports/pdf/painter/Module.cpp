#include "core/LoadedModule.h"
#include "reports/pdf/PdfPainter.h"
#include "reports/pdf/painter/CairoPainter.h"

namespace {

using namespace pryvane;

Result<std::unique_ptr<pdf::PdfPainter>> makePainter()
{
    auto painter = pdf::CairoPainter::make();
    if (!painter)
        return painter.error();
    return std::unique_ptr<pdf::PdfPainter>(std::move(*painter));
}

} // namespace

PRYVANE_EXPORT_MODULE(pdf::PainterModule, makePainter)
