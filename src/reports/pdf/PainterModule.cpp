#include "reports/pdf/PainterModule.h"

#include "platform/LoadedModule.h"

#include <string>
#include <utility>

namespace pryvane::pdf {

namespace {

/// What the module exports: a painter, or nothing and the reason.
using MakePainter = PdfPainter* (*)(std::string& whyNot);
constexpr const char* kMakePainter = "pryvaneMakePdfPainter";

} // namespace

Result<std::unique_ptr<PdfPainter>> loadPainter()
{
    const auto make = functionOfModule("libpryvane-pdf.so", kMakePainter);
    if (!make)
        return make.error();
    std::string whyNot;
    std::unique_ptr<PdfPainter> painter(reinterpret_cast<MakePainter>(*make)(whyNot));
    if (!painter)
        return Error{std::move(whyNot)};
    return painter;
}

} // namespace pryvane::pdf
