#include "reports/pdf/PainterModule.h"
#include "reports/pdf/painter/CairoPainter.h"

// The one name that the module shows.
extern "C" __attribute__((visibility("default")))
pryvane::Result<std::unique_ptr<pryvane::pdf::PdfPainter>>
pryvaneMakePdfPainter();

pryvane::Result<std::unique_ptr<pryvane::pdf::PdfPainter>> pryvaneMakePdfPainter()
{
    return pryvane::pdf::CairoPainter::make();
}
