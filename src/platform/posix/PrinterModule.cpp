#include "platform/posix/CupsPrinter.h"
#include "platform/posix/LoadedPrinter.h"

extern "C" __attribute__((visibility("default"))) pryvane::Printer* pryvaneMakePrinter()
{
    return new pryvane::CupsPrinter;
}

static_assert(std::is_same_v<decltype(&pryvaneMakePrinter), pryvane::MakePrinter>);
