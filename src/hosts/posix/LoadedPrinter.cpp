#include "hosts/posix/LoadedPrinter.h"

#include "core/LoadedModule.h"

namespace pryvane {

Result<Done> LoadedPrinter::load()
{
    if (m_printer)
        return Done{};
    const auto module = loadedModule<PrintModule>();
    if (!module)
        return module.error();
    m_printer = (*module)->makePrinter();
    if (m_stop)
        m_printer->obey(*m_stop);
    return Done{};
}

Result<std::vector<PrinterName>> LoadedPrinter::printers()
{
    const auto loaded = load();
    return loaded ? m_printer->printers() : loaded.error();
}

Result<int> LoadedPrinter::printFile(const std::string& hostPath, std::string_view title,
                                     std::string_view queue, const PrintSettings& settings)
{
    const auto loaded = load();
    return loaded ? m_printer->printFile(hostPath, title, queue, settings) : loaded.error();
}

} // namespace pryvane
