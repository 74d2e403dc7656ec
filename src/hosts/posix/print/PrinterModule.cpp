#include "core/LoadedModule.h"
#include "hosts/posix/LoadedPrinter.h"
#include "hosts/posix/print/CupsPrinter.h"

namespace {

std::unique_ptr<pryvane::Printer> makePrinter()
{
    return std::make_unique<pryvane::CupsPrinter>();
}

} // namespace

PRYVANE_EXPORT_MODULE(pryvane::PrintModule, makePrinter)
