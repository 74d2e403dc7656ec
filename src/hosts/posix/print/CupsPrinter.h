#pragma once

#include "platform/Printer.h"

#include <chrono>
#include <string>

namespace pryvane {

/// Prints through the CUPS server of this computer, or the one that its settings name. Never asks
/// for a password, never waits on a silent server for much longer than the patience, and hears no
/// answer that does not end.
class CupsPrinter final : public Printer {
public:
    struct Options {
        std::string server; ///< socket path or host name; empty: as CUPS is set up
        std::chrono::milliseconds patience{5000};  ///< for connecting, and with silence
        std::chrono::milliseconds longest{10'000}; ///< for a whole answer
    };

    CupsPrinter() = default;
    explicit CupsPrinter(Options options) : m_options(std::move(options)) {}

    void obey(const StopFlag& stop) override { m_stop = &stop; }
    [[nodiscard]] Result<std::vector<PrinterName>> printers() override;
    [[nodiscard]] Result<int> printFile(const std::string& hostPath, std::string_view title,
                                        std::string_view queue,
                                        const PrintSettings& settings) override;

private:
    Options m_options;
    const StopFlag* m_stop = nullptr;
};

} // namespace pryvane
