#pragma once

#include "platform/Printer.h"

#include <memory>

namespace pryvane {

/// The print service behind a module that is loaded when it is first asked: its library brings
/// thirty others, which a start of the program has no use for. One thread at a time.
class LoadedPrinter final : public Printer {
public:
    void obey(const StopFlag& stop) override { m_stop = &stop; }
    [[nodiscard]] Result<std::vector<PrinterName>> printers() override;
    [[nodiscard]] Result<int> printFile(const std::string& hostPath, std::string_view title,
                                        std::string_view queue,
                                        const PrintSettings& settings) override;

private:
    [[nodiscard]] Result<Done> load();

    const StopFlag* m_stop = nullptr;
    std::unique_ptr<Printer> m_printer;
};

struct PrintModule {
    static constexpr const char* kFile = "libpryvane-print.so";

    std::unique_ptr<Printer> (*makePrinter)();
};

} // namespace pryvane
