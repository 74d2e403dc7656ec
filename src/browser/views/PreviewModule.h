#pragma once

#include "core/Result.h"

#include <QImage>
#include <QSizeF>

#include <memory>
#include <optional>
#include <string>

class QWidget;

namespace pryvane {

/// The pages of a document as pictures. Main thread only.
class DocumentPages {
public:
    virtual ~DocumentPages() = default;
    [[nodiscard]] virtual int count() const = 0;
    [[nodiscard]] virtual QSizeF points(int page) const = 0;
    [[nodiscard]] virtual QImage draw(int page, QSize pixels) = 0;
};

/// Where a document is to be printed: on a queue, or into a file.
struct PrintTarget {
    std::string queue; ///< empty: the default one
    std::string file;  ///< host path, raw bytes; empty: none
};

// Both come from the module beside the program, which is loaded on first use: its libraries take
// more memory than the whole window, and few reports are printed.

/// The pages of a PDF document, or why they cannot be shown.
[[nodiscard]] Result<std::unique_ptr<DocumentPages>> openDocument(const std::string& pdf);

/// Asks with the system's print dialog; none when it was cancelled.
[[nodiscard]] Result<std::optional<PrintTarget>> askWhereToPrint(QWidget* over);

} // namespace pryvane
