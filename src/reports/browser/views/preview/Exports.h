#pragma once

#include "reports/browser/views/PreviewModule.h"

#include <string>

/// What the preview module exports, for itself and for whoever loads it.
namespace pryvane::preview {

inline constexpr const char* kModule = "libpryvane-preview.so";

/// Null when the bytes are no document.
using OpenDocument = DocumentPages* (*)(const std::string& pdf);
inline constexpr const char* kOpenDocument = "pryvaneOpenDocument";

/// False when the question was cancelled.
using AskWhereToPrint = bool (*)(QWidget* over, PrintTarget& target);
inline constexpr const char* kAskWhereToPrint = "pryvaneAskWhereToPrint";

} // namespace pryvane::preview
