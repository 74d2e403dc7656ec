#pragma once

#include "reports/pdf/painter/AsciiFont.h"

#include <cairo.h>
#include <pango/pango.h>
#include <string_view>

namespace pryvane::pdf {

/// Keeps the names of a path in their order: without it two right-to-left names in a row would
/// change places. The texts of a report hold no such mark themselves, and what is copied out of the
/// document holds none either.
inline constexpr std::string_view kLeftToRightMark = "\u200e";

[[nodiscard]] constexpr double inPoints(int pangoUnits)
{
    return static_cast<double>(pangoUnits) / PANGO_SCALE;
}

/// Draws shaped runs of one text so that searching and copying give the characters back.
class RunPainter {
public:
    /// `blank` may be null: pictured characters then cannot be copied. All must outlive it.
    RunPainter(cairo_t* context, const char* text, const AsciiFont* blank)
        : m_context(context), m_text(text), m_blank(blank)
    {
    }

    void draw(PangoGlyphItem& run, double x, double baseline) const;

private:
    void drawOutlines(PangoGlyphItem& run, double x, double baseline) const;
    void drawByPango(PangoGlyphItem& run, double x, double baseline) const;
    void writeBlanks(PangoGlyphItem& run, double x, double baseline) const;

    cairo_t* m_context;
    const char* m_text;
    const AsciiFont* m_blank;
};

} // namespace pryvane::pdf
