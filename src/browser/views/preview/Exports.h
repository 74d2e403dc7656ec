#pragma once

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

} // namespace pryvane

/// What the preview module exports, for itself and for whoever loads it.
namespace pryvane::preview {

struct Exports {
    static constexpr const char* kFile = "libpryvane-preview.so";

    /// Null when the bytes are no document.
    std::unique_ptr<DocumentPages> (*openDocument)(const std::string& pdf);
    /// None when the question was cancelled.
    std::optional<PrintTarget> (*askWhereToPrint)(QWidget* over);
};

} // namespace pryvane::preview
