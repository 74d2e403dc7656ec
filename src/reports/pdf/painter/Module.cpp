#include "reports/pdf/painter/CairoPainter.h"

#include <utility>

// The one name that the program asks the module for.
extern "C" __attribute__((visibility("default"))) pryvane::pdf::PdfPainter*
pryvaneMakePdfPainter(std::string& whyNot)
{
    auto painter = pryvane::pdf::CairoPainter::make();
    if (!painter) {
        whyNot = painter.error().message;
        return nullptr;
    }
    return std::move(*painter).release();
}
