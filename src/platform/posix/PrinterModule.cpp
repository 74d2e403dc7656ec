#include "platform/LoadedModule.h"
#include "platform/posix/CupsPrinter.h"
#include "platform/posix/LoadedPrinter.h"

namespace {

std::unique_ptr<pryvane::Printer> makePrinter()
{
    return std::make_unique<pryvane::CupsPrinter>();
}

} // namespace

PRYVANE_EXPORT_MODULE(pryvane::PrintModule, makePrinter)
