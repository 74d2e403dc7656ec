#pragma once

#include <span>

namespace pryvane {

/// A text of the rooms without Qt, as it is translated where the window shows it. "%1" to "%9"
/// stand for what is put in, "%n" for a count.
struct EngineText {
    const char* english;
    const char* one = "";    ///< the form for a count of one, where there is another
    const char* inner = "";  ///< the numbers of the pieces that are such texts themselves
    const char* digits = ""; ///< the numbers of those that can only be digits
};

// In the order in which they are tried; those that hold others come first.
[[nodiscard]] std::span<const EngineText> scanTexts();
[[nodiscard]] std::span<const EngineText> scheduleTexts();
[[nodiscard]] std::span<const EngineText> removalTexts();
[[nodiscard]] std::span<const EngineText> privacyTexts();
[[nodiscard]] std::span<const EngineText> factTexts();

} // namespace pryvane
