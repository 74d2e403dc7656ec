// Stored report lists are read from a file that anything may have damaged: no bytes may crash the
// reader or cost much memory, and what it reads must come back the same after being stored again.

#include "reports/ReportCodec.h"
#include "reports/ReportExport.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace pryvane;
    const auto first = decodeReports({reinterpret_cast<const char*>(data), size});
    if (!first)
        return 0;
    const std::string stored = encodeReports(*first);
    const auto second = decodeReports(stored);
    if (!second || encodeReports(*second) != stored)
        std::abort();
    for (const auto& report : *second) {
        report->derive(Date{});
        const auto drop = [](std::string_view) {};
        writeAsJson(*report, drop);
        writeAsCsv(*report, drop);
        writeAsHtml(*report, drop);
    }
    return 0;
}
