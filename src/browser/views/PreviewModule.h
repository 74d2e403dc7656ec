#pragma once

#include "browser/views/preview/Exports.h"
#include "core/Result.h"

#include <memory>
#include <optional>
#include <string>

class QWidget;

namespace pryvane {

// Both come from the module beside the program, which is loaded on first use: its libraries take
// more memory than the whole window, and few reports are printed.

/// The pages of a PDF document, or why they cannot be shown.
[[nodiscard]] Result<std::unique_ptr<DocumentPages>> openDocument(const std::string& pdf);

/// Asks with the system's print dialog; none when it was cancelled.
[[nodiscard]] Result<std::optional<PrintTarget>> askWhereToPrint(QWidget* over);

} // namespace pryvane
