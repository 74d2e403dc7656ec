#pragma once

#include <QString>

namespace pryvane::ui {

/// How a system writes the keys of a shortcut.
enum class KeyWords : std::uint8_t { Plain, Mac };

/// Of the system that this runs on.
[[nodiscard]] KeyWords hostsKeyWords();

/// A text for people whose shortcuts stand in it as "Ctrl+F" and "F1" (help), in that system's
/// words: a Mac's are "⌘F" and "⌘?".
[[nodiscard]] QString withKeys(QString text, KeyWords words = hostsKeyWords());

} // namespace pryvane::ui
