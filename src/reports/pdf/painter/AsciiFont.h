#pragma once

#include <array>
#include <cairo.h>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace pryvane::pdf {

struct ScaledFontDeleter {
    void operator()(cairo_scaled_font_t* font) const { cairo_scaled_font_destroy(font); }
};
using ScaledFont = std::unique_ptr<cairo_scaled_font_t, ScaledFontDeleter>;

/// The printable ASCII characters of one font at one size: their widths, added up and broken into
/// lines without a shaping engine. Nearly all paths need nothing else, at a tenth of the cost.
class AsciiFont {
public:
    struct Glyph {
        unsigned long index = 0;
        double advance = 0;
    };
    struct Line {
        std::size_t begin, end;
    };
    /// What is kept of a text that is cut in its middle.
    struct Ends {
        std::size_t head, tail; ///< bytes
    };

    explicit AsciiFont(ScaledFont font);

    [[nodiscard]] static bool covers(std::string_view text);

    /// Whether the font has all of these characters.
    [[nodiscard]] bool complete() const { return m_complete; }

    [[nodiscard]] cairo_scaled_font_t* font() const { return m_font.get(); }
    [[nodiscard]] double ascent() const { return m_ascent; }
    [[nodiscard]] double lineHeight() const { return m_lineHeight; }
    [[nodiscard]] const Glyph& glyph(char c) const
    {
        return m_glyphs[static_cast<unsigned char>(c)];
    }
    [[nodiscard]] const Glyph& ellipsis() const { return m_glyphs[0]; }

    [[nodiscard]] double width(std::string_view text) const;

    /// Breaks behind slashes and spaces, and inside a name that is wider than a line. Valid until
    /// the next call.
    [[nodiscard]] const std::vector<Line>& lines(std::string_view text, double width);

    /// The longest ends that fit on both sides of an ellipsis.
    [[nodiscard]] Ends elided(std::string_view text, double width) const;

private:
    void load(char slot, std::string_view character);

    ScaledFont m_font;
    std::array<Glyph, 128> m_glyphs{};
    std::vector<Line> m_lines;
    double m_ascent = 0;
    double m_lineHeight = 0;
    bool m_complete = true;
};

} // namespace pryvane::pdf
