#pragma once

#include "reports/pdf/PageOps.h"
#include "reports/pdf/painter/Fonts.h"

#include <cairo.h>
#include <string_view>

namespace pryvane::pdf {

/// Texts of any script, through the shaping engine.
class ShapedText {
public:
    explicit ShapedText(Fonts& fonts);

    [[nodiscard]] double height(std::string_view text, Font font, double width);
    [[nodiscard]] std::size_t fitting(std::string_view text, Font font, double width,
                                      double height);

    /// Draws the text in the current colour; the context's origin is the page's top left corner.
    void draw(cairo_t* context, const TextOp& op);

private:
    void set(std::string_view text, Font font, std::size_t boldPrefix);
    void setScaled(const TextOp& op, double scale);
    void fitWrapped(const TextOp& op);
    void fitLine(const TextOp& op);
    [[nodiscard]] double usedHeight() const;

    Fonts& m_fonts;
    GObject<PangoLayout> m_layout;
    std::string m_text;
};

} // namespace pryvane::pdf
