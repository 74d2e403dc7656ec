#pragma once

#include "platform/Printer.h"

#include <memory>

namespace pryvane {

/// The print service behind a module that is loaded when it is first asked: its library brings
/// thirty others, which a start of the program has no use for. One thread at a time.
class LoadedPrinter final : public Printer {
public:
    [[nodiscard]] Result<std::vector<PrinterName>> printers() override;
    [[nodiscard]] Result<int> printFile(const std::string& hostPath, std::string_view title,
                                        std::string_view queue,
                                        const PrintSettings& settings) override;

private:
    [[nodiscard]] Result<Done> load();

    std::unique_ptr<Printer> m_printer;
};

/// What the module exports: makes a printer that is now the caller's.
using MakePrinter = Printer* (*)();
inline constexpr const char* kPrintModule = "libpryvane-print.so";
inline constexpr const char* kMakePrinterFunction = "pryvaneMakePrinter";

} // namespace pryvane
