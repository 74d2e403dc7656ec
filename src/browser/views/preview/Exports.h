#pragma once

#include "browser/views/PreviewModule.h"

#include <string>

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
