#pragma once

#include "core/Result.h"
#include "reports/pdf/PageOps.h"
#include "reports/pdf/painter/AsciiFont.h"

#include <memory>
#include <pango/pangocairo.h>
#include <unordered_map>
#include <utility>

namespace pryvane::pdf {

struct GObjectDeleter {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename Type>
using GObject = std::unique_ptr<Type, GObjectDeleter>;

struct FontDescriptionDeleter {
    void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
};
using FontDescription = std::unique_ptr<PangoFontDescription, FontDescriptionDeleter>;

/// The fonts of this host: what stands for the title-bar and the system font, and what steps in for
/// characters that these lack.
class Fonts {
public:
    /// An error where the host has no font at all.
    [[nodiscard]] static Result<std::unique_ptr<Fonts>> open();

    [[nodiscard]] static FontDescription description(Font font);
    [[nodiscard]] PangoContext* context() const { return m_context.get(); }

    /// None where the font lacks some of the ASCII characters.
    [[nodiscard]] AsciiFont* ascii(Font font);

    /// Whether some font has the character, or it shows nothing by itself.
    [[nodiscard]] bool canDraw(char32_t character);

private:
    Fonts();
    [[nodiscard]] ScaledFont scaled(Font font) const;

    GObject<PangoFontMap> m_map;
    GObject<PangoContext> m_context;
    GObject<PangoFontset> m_fallbacks;
    std::vector<std::pair<Font, std::unique_ptr<AsciiFont>>> m_ascii; ///< a few sizes
    std::unordered_map<char32_t, bool> m_drawable;
};

} // namespace pryvane::pdf
