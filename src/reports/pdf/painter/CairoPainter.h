#pragma once

#include "reports/pdf/PdfPainter.h"
#include "reports/pdf/painter/Fonts.h"
#include "reports/pdf/painter/ShapedText.h"

#include <memory>
#include <string>
#include <vector>

namespace pryvane::pdf {

/// Draws with Cairo; shapes with Pango what is not plain ASCII.
class CairoPainter final : public PdfPainter {
public:
    [[nodiscard]] static Result<std::unique_ptr<PdfPainter>> make();

    [[nodiscard]] std::string legible(std::string text) override;
    [[nodiscard]] float height(std::string_view text, Font font, double width) override;
    [[nodiscard]] std::size_t fitting(std::string_view text, Font font, double width,
                                      double height) override;
    [[nodiscard]] Result<std::string> paint(const std::vector<Page>& pages,
                                            const DocumentInformation& information) override;

private:
    /// Texts of one font and colour on one page. Drawn at once: each call costs more than its
    /// glyphs.
    struct Batch {
        cairo_scaled_font_t* font;
        Ink ink;
        std::string text;
        std::vector<cairo_glyph_t> glyphs;
        std::vector<cairo_text_cluster_t> clusters;
    };

    explicit CairoPainter(std::unique_ptr<Fonts> fonts);
    [[nodiscard]] AsciiFont* plainFont(std::string_view text, Font font);
    void drawPage(cairo_t* context, const Page& page);
    void drawText(cairo_t* context, const TextOp& op);
    void drawPlain(const TextOp& op, AsciiFont& font);
    void drawPlainWrapped(const TextOp& op, AsciiFont& font);
    void drawBatches(cairo_t* context);
    [[nodiscard]] Batch& batch(const AsciiFont& font, Ink ink);

    std::unique_ptr<Fonts> m_fonts;
    ShapedText m_shaped;
    std::vector<Batch> m_batches;
};

} // namespace pryvane::pdf
