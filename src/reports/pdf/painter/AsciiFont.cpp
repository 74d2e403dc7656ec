#include "reports/pdf/painter/AsciiFont.h"

#include <algorithm>
#include <utility>

namespace pryvane::pdf {

AsciiFont::AsciiFont(ScaledFont font) : m_font(std::move(font))
{
    cairo_font_extents_t extents;
    cairo_scaled_font_extents(m_font.get(), &extents);
    m_ascent = extents.ascent;
    m_lineHeight = extents.ascent + extents.descent;
    for (char c = 0x20; c < 0x7f; ++c)
        load(c, {&c, 1});
    load('\0', "\u2026");
}

void AsciiFont::load(char slot, std::string_view character)
{
    cairo_glyph_t* glyphs = nullptr;
    int count = 0;
    cairo_scaled_font_text_to_glyphs(m_font.get(), 0, 0, character.data(),
                                     static_cast<int>(character.size()), &glyphs, &count, nullptr,
                                     nullptr, nullptr);
    Glyph& glyph = m_glyphs[static_cast<unsigned char>(slot)];
    if (count == 1 && glyphs != nullptr && glyphs[0].index != 0) {
        cairo_text_extents_t extents;
        cairo_scaled_font_glyph_extents(m_font.get(), glyphs, 1, &extents);
        glyph = {glyphs[0].index, extents.x_advance};
    } else {
        m_complete = false;
    }
    cairo_glyph_free(glyphs);
}

bool AsciiFont::covers(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7f; });
}

double AsciiFont::width(std::string_view text) const
{
    double sum = 0;
    for (const char c : text)
        sum += glyph(c).advance;
    return sum;
}

const std::vector<AsciiFont::Line>& AsciiFont::lines(std::string_view text, double width)
{
    m_lines.clear();
    std::size_t begin = 0, breakAt = 0;
    double used = 0, usedAtBreak = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const double advance = glyph(text[i]).advance;
        // A space may hang over the edge: it shows nothing there.
        while (used + advance > width && i > begin && text[i] != ' ') {
            const bool atName = breakAt > begin;
            const std::size_t end = atName ? breakAt : i;
            m_lines.push_back({begin, end});
            used = atName ? used - usedAtBreak : 0;
            begin = end;
        }
        used += advance;
        if (text[i] == '/' || text[i] == ' ') {
            breakAt = i + 1;
            usedAtBreak = used;
        }
    }
    m_lines.push_back({begin, text.size()});
    return m_lines;
}

AsciiFont::Ends AsciiFont::elided(std::string_view text, double width) const
{
    double room = width - ellipsis().advance;
    Ends ends{0, 0};
    while (ends.head + ends.tail < text.size()) {
        const bool atHead = ends.head <= ends.tail;
        room -= glyph(atHead ? text[ends.head] : text[text.size() - 1 - ends.tail]).advance;
        if (room < 0)
            break;
        ++(atHead ? ends.head : ends.tail);
    }
    return ends;
}

} // namespace pryvane::pdf
