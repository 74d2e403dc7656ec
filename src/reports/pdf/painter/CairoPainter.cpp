#include "reports/pdf/painter/CairoPainter.h"

#include "core/Escape.h"
#include "reports/pdf/painter/PackedPdf.h"
#include "reports/pdf/painter/Shrinking.h"

#include <cairo-pdf.h>
#include <cmath>
#include <new>
#include <utility>

namespace pryvane::pdf {

namespace {

constexpr double kDarkGrey = 1.0 / 3;
/// Above this size the kerning of a shaped text is worth its cost.
constexpr double kLargestPlainSize = kSystemSize;

cairo_status_t appendBytes(void* document, const unsigned char* bytes, unsigned int length)
{
    try {
        static_cast<std::string*>(document)->append(reinterpret_cast<const char*>(bytes), length);
    } catch (const std::bad_alloc&) {
        return CAIRO_STATUS_NO_MEMORY;
    }
    return CAIRO_STATUS_SUCCESS;
}

struct SurfaceDeleter {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
struct ContextDeleter {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

void setInk(cairo_t* context, Ink ink)
{
    const double level = ink == Ink::Black ? 0 : kDarkGrey;
    cairo_set_source_rgb(context, level, level, level);
}

void addRectangle(cairo_t* context, const Rect& rect)
{
    cairo_rectangle(context, rect.x, kPageHeight - rect.y - rect.height, rect.width, rect.height);
}

void drawBand(cairo_t* context, const BandOp& op)
{
    addRectangle(context, op.rect);
    cairo_set_source_rgba(context, 0.2, 0.2, 0.2, 0.1);
    cairo_fill(context);
}

void drawFrame(cairo_t* context, const FrameOp& op)
{
    addRectangle(context, op.rect);
    setInk(context, Ink::DarkGrey);
    cairo_set_line_width(context, 1);
    cairo_stroke(context);
}

/// Puts texts of one font behind each other, wherever they stand on the page.
class GlyphWriter {
public:
    GlyphWriter(const AsciiFont& font, std::string& text, std::vector<cairo_glyph_t>& glyphs,
                std::vector<cairo_text_cluster_t>& clusters)
        : m_font(font), m_text(text), m_glyphs(glyphs), m_clusters(clusters)
    {
    }
    void moveTo(double x, double baseline)
    {
        m_x = x;
        m_baseline = baseline;
    }
    void write(std::string_view text)
    {
        m_text.append(text);
        for (const char c : text)
            add(m_font.glyph(c), 1);
    }
    void writeEllipsis()
    {
        constexpr std::string_view ellipsis = "\u2026";
        m_text.append(ellipsis);
        add(m_font.ellipsis(), static_cast<int>(ellipsis.size()));
    }

private:
    void add(const AsciiFont::Glyph& glyph, int bytes)
    {
        m_glyphs.push_back({glyph.index, m_x, m_baseline});
        m_clusters.push_back({bytes, 1});
        m_x += glyph.advance;
    }
    const AsciiFont& m_font;
    std::string& m_text;
    std::vector<cairo_glyph_t>& m_glyphs;
    std::vector<cairo_text_cluster_t>& m_clusters;
    double m_x = 0, m_baseline = 0;
};

} // namespace

CairoPainter::CairoPainter(std::unique_ptr<Fonts> fonts)
    : m_fonts(std::move(fonts)), m_shaped(*m_fonts)
{
}

Result<std::unique_ptr<PdfPainter>> CairoPainter::make()
{
    auto fonts = Fonts::open();
    if (!fonts)
        return fonts.error();
    return std::unique_ptr<PdfPainter>(new CairoPainter(std::move(*fonts)));
}

AsciiFont* CairoPainter::plainFont(std::string_view text, Font font)
{
    return font.size <= kLargestPlainSize && AsciiFont::covers(text) ? m_fonts->ascii(font)
                                                                     : nullptr;
}

std::string CairoPainter::legible(std::string text)
{
    if (AsciiFont::covers(text))
        return text;
    std::string out;
    for (std::string_view rest = text; !rest.empty();) {
        char32_t character = 0;
        const std::size_t length = decodeUtf8(rest, character);
        if (length == 0)
            return forScreen(text);
        if (m_fonts->canDraw(character))
            out.append(rest.substr(0, length));
        else
            out += escapedCodePoint(character);
        rest.remove_prefix(length);
    }
    return out;
}

float CairoPainter::height(std::string_view text, Font font, double width)
{
    AsciiFont* plain = plainFont(text, font);
    const double height = plain == nullptr ? m_shaped.height(text, font, width)
                                           : static_cast<double>(plain->lines(text, width).size()) *
                                                 plain->lineHeight();
    return static_cast<float>(std::ceil(height));
}

std::size_t CairoPainter::fitting(std::string_view text, Font font, double width, double height)
{
    AsciiFont* plain = plainFont(text, font);
    if (plain == nullptr)
        return m_shaped.fitting(text, font, width, height);
    const auto& lines = plain->lines(text, width);
    const auto room = static_cast<std::size_t>(std::max(1.0, height / plain->lineHeight()));
    return room < lines.size() ? lines[room].begin : text.size();
}

CairoPainter::Batch& CairoPainter::batch(const AsciiFont& font, Ink ink)
{
    for (Batch& known : m_batches) {
        if (known.font == font.font() && known.ink == ink)
            return known;
    }
    return m_batches.emplace_back(Batch{font.font(), ink, {}, {}, {}});
}

void CairoPainter::drawPlainWrapped(const TextOp& op, AsciiFont& font)
{
    AsciiFont* fitted = &font;
    for (double scale = 1;; scale = nextSmaller(scale)) {
        if (scale < 1)
            fitted = m_fonts->ascii({op.font.role, op.font.size * scale});
        const auto lines = static_cast<double>(fitted->lines(op.text, op.roomWidth).size());
        if (lines * fitted->lineHeight() <= op.roomHeight || scale <= kSmallestScale)
            break;
    }
    Batch& to = batch(*fitted, op.ink);
    GlyphWriter writer(*fitted, to.text, to.glyphs, to.clusters);
    double baseline = kPageHeight - op.rect.y - op.rect.height + fitted->ascent();
    const std::string_view text = op.text;
    for (const auto& line : fitted->lines(text, op.roomWidth)) {
        writer.moveTo(op.rect.x, baseline);
        writer.write(text.substr(line.begin, line.end - line.begin));
        baseline += fitted->lineHeight();
    }
}

void CairoPainter::drawPlain(const TextOp& op, AsciiFont& font)
{
    if (op.overflow == Overflow::Wraps) {
        drawPlainWrapped(op, font);
        return;
    }
    Batch& to = batch(font, op.ink);
    GlyphWriter writer(font, to.text, to.glyphs, to.clusters);
    const double width = font.width(op.text);
    const double spare = std::max(0.0, op.rect.width - width);
    const double indent = op.alignment == Alignment::Left     ? 0
                          : op.alignment == Alignment::Centre ? spare / 2
                                                              : spare;
    writer.moveTo(op.rect.x + indent, kPageHeight - op.rect.y - op.rect.height + font.ascent());
    const std::string_view text = op.text;
    if (width <= op.roomWidth) {
        writer.write(text);
        return;
    }
    const auto ends = font.elided(text, op.roomWidth);
    writer.write(text.substr(0, ends.head));
    writer.writeEllipsis();
    writer.write(text.substr(text.size() - ends.tail));
}

void CairoPainter::drawText(cairo_t* context, const TextOp& op)
{
    const bool maybePlain = op.boldPrefix == 0 && op.overflow != Overflow::Shrinks;
    if (AsciiFont* plain = maybePlain ? plainFont(op.text, op.font) : nullptr) {
        drawPlain(op, *plain);
        return;
    }
    setInk(context, op.ink);
    m_shaped.draw(context, op);
}

void CairoPainter::drawBatches(cairo_t* context)
{
    for (Batch& batch : m_batches) {
        setInk(context, batch.ink);
        cairo_set_scaled_font(context, batch.font);
        cairo_show_text_glyphs(context, batch.text.data(), static_cast<int>(batch.text.size()),
                               batch.glyphs.data(), static_cast<int>(batch.glyphs.size()),
                               batch.clusters.data(), static_cast<int>(batch.clusters.size()),
                               static_cast<cairo_text_cluster_flags_t>(0));
    }
    m_batches.clear();
}

void CairoPainter::drawPage(cairo_t* context, const Page& page)
{
    for (const PageOp& op : page) {
        if (const auto* text = std::get_if<TextOp>(&op))
            drawText(context, *text);
        else if (const auto* frame = std::get_if<FrameOp>(&op))
            drawFrame(context, *frame);
        else
            drawBand(context, std::get<BandOp>(op));
    }
    drawBatches(context);
    cairo_show_page(context);
}

Result<std::string> CairoPainter::paint(const std::vector<Page>& pages,
                                        const DocumentInformation& information)
{
    std::string document;
    const std::unique_ptr<cairo_surface_t, SurfaceDeleter> surface(
        cairo_pdf_surface_create_for_stream(appendBytes, &document, kPageWidth, kPageHeight));
    const auto set = [&](cairo_pdf_metadata_t field, const std::string& value) {
        cairo_pdf_surface_set_metadata(surface.get(), field, value.c_str());
    };
    set(CAIRO_PDF_METADATA_TITLE, information.title);
    set(CAIRO_PDF_METADATA_CREATOR, information.creator);
    set(CAIRO_PDF_METADATA_SUBJECT, information.subject);
    set(CAIRO_PDF_METADATA_AUTHOR, information.author);
    cairo_status_t status = CAIRO_STATUS_SUCCESS;
    {
        const std::unique_ptr<cairo_t, ContextDeleter> context(cairo_create(surface.get()));
        for (const Page& page : pages)
            drawPage(context.get(), page);
        status = cairo_status(context.get());
    }
    cairo_surface_finish(surface.get());
    if (status == CAIRO_STATUS_SUCCESS)
        status = cairo_surface_status(surface.get());
    if (status != CAIRO_STATUS_SUCCESS)
        return Error{std::string("the PDF document cannot be drawn: ") +
                     cairo_status_to_string(status)};
    return packedPdf(std::move(document));
}

} // namespace pryvane::pdf
