#pragma once

#include "core/Result.h"
#include "core/StopFlag.h"

#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

struct PrinterName {
    std::string name; ///< the queue, as the print service calls it
    bool isDefault = false;
};

/// Paper of a print job: the size of the document's page, no margins.
struct PrintSettings {
    double widthPoints = 595;
    double heightPoints = 842;
};

/// The host's print service. Calls may wait on it for some seconds.
class Printer {
public:
    virtual ~Printer() = default;

    /// A stop that ends calls at once, with an error; it must outlive this.
    virtual void obey(const StopFlag&) {}

    /// The queues there are. An error says that the service does not answer.
    [[nodiscard]] virtual Result<std::vector<PrinterName>> printers() = 0;

    /// Sends the PDF file to the queue (empty: the default one), and gives the job's number. An
    /// error says what was missing: the file, the service, the queue.
    [[nodiscard]] virtual Result<int> printFile(const std::string& hostPath, std::string_view title,
                                                std::string_view queue,
                                                const PrintSettings& settings) = 0;
};

} // namespace pryvane
