#include "reports/pdf/painter/RunPainter.h"

#include <algorithm>
#include <hb-ot.h>
#include <pango/pangocairo.h>
#include <span>
#include <string>
#include <vector>

namespace pryvane::pdf {

namespace {

bool isColoured(PangoFont* font)
{
    hb_face_t* face = hb_font_get_face(pango_font_get_hb_font(font));
    return hb_ot_color_has_png(face) || hb_ot_color_has_layers(face) || hb_ot_color_has_svg(face);
}

std::span<const PangoGlyphInfo> glyphsOf(const PangoGlyphItem& run)
{
    return {run.glyphs->glyphs, static_cast<std::size_t>(run.glyphs->num_glyphs)};
}

/// Calls `visit` with each cluster of the run, in the order of the text.
template <typename Visit>
void forEachCluster(PangoGlyphItem& run, const char* text, Visit visit)
{
    PangoGlyphItemIter cluster;
    for (gboolean more = pango_glyph_item_iter_init_start(&cluster, &run, text); more;
         more = pango_glyph_item_iter_next_cluster(&cluster))
        visit(cluster);
}

} // namespace

void RunPainter::draw(PangoGlyphItem& run, double x, double baseline) const
{
    const auto glyphs = glyphsOf(run);
    const bool coloured = isColoured(run.item->analysis.font);
    const bool unknown = std::any_of(glyphs.begin(), glyphs.end(), [](const auto& info) {
        return (info.glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0;
    });
    if (!coloured && !unknown) {
        drawOutlines(run, x, baseline);
        return;
    }
    drawByPango(run, x, baseline);
    if (coloured && m_blank != nullptr)
        writeBlanks(run, x, baseline);
}

void RunPainter::drawOutlines(PangoGlyphItem& run, double x, double baseline) const
{
    std::vector<cairo_glyph_t> glyphs;
    for (const PangoGlyphInfo& info : glyphsOf(run)) {
        if (info.glyph != PANGO_GLYPH_EMPTY)
            glyphs.push_back({info.glyph, x + inPoints(info.geometry.x_offset),
                              baseline + inPoints(info.geometry.y_offset)});
        x += inPoints(info.geometry.width);
    }
    std::string text;
    std::vector<cairo_text_cluster_t> clusters;
    forEachCluster(run, m_text, [&](const PangoGlyphItemIter& cluster) {
        const std::string_view part(
            m_text + cluster.start_index,
            static_cast<std::size_t>(cluster.end_index - cluster.start_index));
        if (part == kLeftToRightMark)
            return;
        // Right-to-left clusters count their glyphs down.
        const int step = cluster.end_glyph >= cluster.start_glyph ? 1 : -1;
        int count = 0;
        for (int i = cluster.start_glyph; i != cluster.end_glyph; i += step)
            count += run.glyphs->glyphs[i].glyph != PANGO_GLYPH_EMPTY ? 1 : 0;
        text.append(part);
        clusters.push_back({static_cast<int>(part.size()), count});
    });
    if (text.empty())
        return;
    const bool rightToLeft = (run.item->analysis.level & 1) != 0;
    cairo_set_scaled_font(
        m_context, pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(run.item->analysis.font)));
    cairo_show_text_glyphs(m_context, text.data(), static_cast<int>(text.size()), glyphs.data(),
                           static_cast<int>(glyphs.size()), clusters.data(),
                           static_cast<int>(clusters.size()),
                           rightToLeft ? CAIRO_TEXT_CLUSTER_FLAG_BACKWARD
                                       : static_cast<cairo_text_cluster_flags_t>(0));
}

void RunPainter::drawByPango(PangoGlyphItem& run, double x, double baseline) const
{
    cairo_move_to(m_context, x, baseline);
    pango_cairo_show_glyph_item(m_context, m_text, &run);
}

/// Coloured glyphs are drawn as pictures. A blank that stands for the same characters lies over
/// each, so that they can be searched and copied like any others.
void RunPainter::writeBlanks(PangoGlyphItem& run, double x, double baseline) const
{
    forEachCluster(run, m_text, [&](const PangoGlyphItemIter& cluster) {
        const int length = cluster.end_index - cluster.start_index;
        const cairo_glyph_t glyph{m_blank->glyph(' ').index, x, baseline};
        const cairo_text_cluster_t mapping{length, 1};
        cairo_set_scaled_font(m_context, m_blank->font());
        cairo_show_text_glyphs(m_context, m_text + cluster.start_index, length, &glyph, 1, &mapping,
                               1, static_cast<cairo_text_cluster_flags_t>(0));
        for (int i = cluster.start_glyph; i < cluster.end_glyph; ++i)
            x += inPoints(run.glyphs->glyphs[i].geometry.width);
    });
}

} // namespace pryvane::pdf
