#include "reports/pdf/painter/Fonts.h"

#include <algorithm>

namespace pryvane::pdf {

namespace {

// The columns were made for a narrow face: "Not Quarantined" must fit its 100 points.
constexpr const char* kFamilies =
    "Liberation Sans,Arimo,Helvetica Neue,Helvetica,Nimbus Sans,Noto Sans,DejaVu Sans,sans-serif";

/// Widths as the font's designer gave them, so that they do not depend on a screen's pixels.
void measureWithoutHinting(PangoContext* context)
{
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context, FALSE);
}

} // namespace

Fonts::Fonts()
    : m_map(pango_cairo_font_map_new()), m_context(pango_font_map_create_context(m_map.get()))
{
    measureWithoutHinting(m_context.get());
    // A path is read from left to right, whatever its names are written in.
    pango_context_set_base_dir(m_context.get(), PANGO_DIRECTION_LTR);
}

Result<std::unique_ptr<Fonts>> Fonts::open()
{
    std::unique_ptr<Fonts> fonts(new Fonts);
    const FontDescription plain = description({});
    const GObject<PangoFont> any(
        pango_font_map_load_font(fonts->m_map.get(), fonts->m_context.get(), plain.get()));
    if (!any)
        return Error{"no font is installed, so no report can be printed; install one, for example "
                     "the package fonts-liberation"};
    fonts->m_fallbacks.reset(pango_font_map_load_fontset(
        fonts->m_map.get(), fonts->m_context.get(), plain.get(), pango_language_get_default()));
    return fonts;
}

FontDescription Fonts::description(Font font)
{
    FontDescription description(pango_font_description_new());
    pango_font_description_set_family_static(description.get(), kFamilies);
    pango_font_description_set_weight(description.get(), font.role == FontRole::TitleBar
                                                             ? PANGO_WEIGHT_BOLD
                                                             : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_absolute_size(description.get(), font.size * PANGO_SCALE);
    return description;
}

ScaledFont Fonts::scaled(Font font) const
{
    const GObject<PangoFont> loaded(
        pango_font_map_load_font(m_map.get(), m_context.get(), description(font).get()));
    if (!loaded)
        return nullptr;
    return ScaledFont(cairo_scaled_font_reference(
        pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(loaded.get()))));
}

AsciiFont* Fonts::ascii(Font font)
{
    auto known = std::find_if(m_ascii.begin(), m_ascii.end(),
                              [&](const auto& entry) { return entry.first == font; });
    if (known == m_ascii.end()) {
        ScaledFont loaded = scaled(font);
        auto made = loaded ? std::make_unique<AsciiFont>(std::move(loaded)) : nullptr;
        if (made && !made->complete())
            made.reset();
        known = m_ascii.emplace(m_ascii.end(), font, std::move(made));
    }
    return known->second.get();
}

bool Fonts::canDraw(char32_t character)
{
    const auto [entry, isNew] = m_drawable.try_emplace(character, true);
    if (isNew && !pango_is_zero_width(character)) {
        const GObject<PangoFont> best(pango_fontset_get_font(m_fallbacks.get(), character));
        entry->second = best && pango_font_has_char(best.get(), character);
    }
    return entry->second;
}

} // namespace pryvane::pdf
