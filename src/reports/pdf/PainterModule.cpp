#include "reports/pdf/PainterModule.h"

#include <dlfcn.h>
#include <string>
#include <utility>

namespace pryvane::pdf {

namespace {

#ifdef __APPLE__
constexpr const char* kModule = "@rpath/libpryvane-pdf.so";
#else
constexpr const char* kModule = "libpryvane-pdf.so"; // found by the program's own run path
#endif

/// What the module exports: a painter, or nothing and the reason.
using MakePainter = PdfPainter* (*)(std::string& whyNot);
constexpr const char* kMakePainter = "pryvaneMakePdfPainter";

Error loadError()
{
    // The caller's thread alone has loaded something in between.
    const char* reason = dlerror();
    return Error{std::string("the PDF module cannot be loaded (") +
                 (reason != nullptr ? reason : "no reason given") +
                 "); install Pryvane again, with the Pango and Cairo libraries"};
}

} // namespace

Result<std::unique_ptr<PdfPainter>> loadPainter()
{
    // Never unloaded: GLib's types cannot be registered twice.
    void* module = dlopen(kModule, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (module == nullptr)
        return loadError();
    const auto make = reinterpret_cast<MakePainter>(dlsym(module, kMakePainter));
    if (make == nullptr)
        return loadError();
    std::string whyNot;
    std::unique_ptr<PdfPainter> painter(make(whyNot));
    if (!painter)
        return Error{std::move(whyNot)};
    return painter;
}

} // namespace pryvane::pdf
