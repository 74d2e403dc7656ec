#pragma once

#include "core/Result.h"
#include "reports/pdf/PageOps.h"

#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane::pdf {

inline constexpr double kOneLine = std::numeric_limits<double>::infinity();

/// What a layout asks about texts before it can place them. Texts are UTF-8 without control
/// characters.
class TextMeasure {
public:
    virtual ~TextMeasure() = default;

    /// The text with each character that no installed font can draw written as an escape.
    [[nodiscard]] virtual std::string legible(std::string text) = 0;

    /// Whole points that the text takes up when it is wrapped at `width` (kOneLine: not wrapped).
    [[nodiscard]] virtual float height(std::string_view text, Font font, double width) = 0;

    /// How many bytes of the text, whole lines and at least one, `height` points have room for.
    [[nodiscard]] virtual std::size_t fitting(std::string_view text, Font font, double width,
                                              double height) = 0;
};

/// Knows the fonts of this host and turns pages into a PDF document. One thread at a time.
class PdfPainter : public TextMeasure {
public:
    /// The bytes of the finished document.
    [[nodiscard]] virtual Result<std::string> paint(const std::vector<Page>& pages,
                                                    const DocumentInformation& information) = 0;
};

/// The painter's module, apart because binding its forty libraries takes longer than all the rest
/// of a program's start.
struct PainterModule {
    static constexpr const char* kFile = "libpryvane-pdf.so";

    Result<std::unique_ptr<PdfPainter>> (*makePainter)();
};

} // namespace pryvane::pdf
