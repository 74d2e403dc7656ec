#include "reports/pdf/painter/ShapedText.h"

#include "core/Escape.h"
#include "reports/pdf/PdfPainter.h"
#include "reports/pdf/painter/RunPainter.h"
#include "reports/pdf/painter/Shrinking.h"

#include <algorithm>
#include <cmath>

namespace pryvane::pdf {

namespace {

bool holdsRightToLeft(std::string_view text)
{
    while (!text.empty()) {
        char32_t character = 0;
        const std::size_t length = decodeUtf8(text, character);
        if (length == 0)
            return false;
        // Hebrew to the Arabic extensions, presentation forms, and the right-to-left planes.
        if ((character >= 0x590 && character <= 0x8ff) ||
            (character >= 0xfb1d && character <= 0xfdff) ||
            (character >= 0xfe70 && character <= 0xfefc) ||
            (character >= 0x10800 && character <= 0x10fff) ||
            (character >= 0x1e800 && character <= 0x1efff))
            return true;
        text.remove_prefix(length);
    }
    return false;
}

int pangoUnits(double points)
{
    return points == kOneLine ? -1 : static_cast<int>(points * PANGO_SCALE);
}

PangoAlignment pangoAlignment(Alignment alignment)
{
    switch (alignment) {
    case Alignment::Centre:
        return PANGO_ALIGN_CENTER;
    case Alignment::Right:
        return PANGO_ALIGN_RIGHT;
    case Alignment::Left:
        break;
    }
    return PANGO_ALIGN_LEFT;
}

} // namespace

ShapedText::ShapedText(Fonts& fonts) : m_fonts(fonts), m_layout(pango_layout_new(fonts.context()))
{
    pango_layout_set_wrap(m_layout.get(), PANGO_WRAP_WORD_CHAR);
    pango_layout_set_auto_dir(m_layout.get(), FALSE);
}

void ShapedText::set(std::string_view text, Font font, std::size_t boldPrefix)
{
    if (holdsRightToLeft(text)) {
        m_text.clear();
        for (const char c : text) {
            m_text += c;
            if (c == '/')
                m_text += kLeftToRightMark;
        }
        text = m_text;
    }
    PangoLayout* layout = m_layout.get();
    pango_layout_set_width(layout, -1);
    pango_layout_set_ellipsize(layout, PANGO_ELLIPSIZE_NONE);
    pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));
    pango_layout_set_font_description(layout, Fonts::description(font).get());
    PangoAttrList* attributes = nullptr;
    if (boldPrefix > 0) {
        attributes = pango_attr_list_new();
        PangoAttribute* bold = pango_attr_weight_new(PANGO_WEIGHT_BOLD);
        bold->end_index = static_cast<guint>(boldPrefix);
        pango_attr_list_insert(attributes, bold);
    }
    pango_layout_set_attributes(layout, attributes);
    if (attributes != nullptr)
        pango_attr_list_unref(attributes);
}

void ShapedText::setScaled(const TextOp& op, double scale)
{
    set(op.text, {op.font.role, op.font.size * scale}, op.boldPrefix);
}

double ShapedText::usedHeight() const
{
    int height = 0;
    pango_layout_get_size(m_layout.get(), nullptr, &height);
    return inPoints(height);
}

double ShapedText::height(std::string_view text, Font font, double width)
{
    set(text, font, 0);
    pango_layout_set_width(m_layout.get(), pangoUnits(width));
    return usedHeight();
}

std::size_t ShapedText::fitting(std::string_view text, Font font, double width, double height)
{
    set(text, font, 0);
    pango_layout_set_width(m_layout.get(), pangoUnits(width));
    const std::string_view laidOut = pango_layout_get_text(m_layout.get());
    PangoLayoutIter* iterator = pango_layout_get_iter(m_layout.get());
    std::size_t end = laidOut.size();
    // The line whose lower edge lies below the room is the first that does not fit.
    for (bool first = true;; first = false) {
        int bottom = 0;
        pango_layout_iter_get_line_yrange(iterator, nullptr, &bottom);
        if (!first && bottom > pangoUnits(height)) {
            end = static_cast<std::size_t>(
                pango_layout_iter_get_line_readonly(iterator)->start_index);
            break;
        }
        if (!pango_layout_iter_next_line(iterator))
            break;
    }
    pango_layout_iter_free(iterator);

    std::size_t marks = 0;
    for (auto at = laidOut.find(kLeftToRightMark); at < end;
         at = laidOut.find(kLeftToRightMark, at + 1))
        ++marks;
    return end - marks * kLeftToRightMark.size();
}

void ShapedText::fitWrapped(const TextOp& op)
{
    for (double scale = 1;; scale = nextSmaller(scale)) {
        setScaled(op, scale);
        pango_layout_set_width(m_layout.get(), pangoUnits(op.roomWidth));
        if (usedHeight() <= op.roomHeight || scale <= kSmallestScale)
            return;
    }
}

void ShapedText::fitLine(const TextOp& op)
{
    constexpr double smallest = 0.6;
    setScaled(op, 1);
    int natural = 0;
    pango_layout_get_size(m_layout.get(), &natural, nullptr);
    const double width = inPoints(natural);
    if (width > op.roomWidth && op.overflow == Overflow::Shrinks)
        setScaled(op, std::max(smallest, op.roomWidth / width * 0.99));
    pango_layout_set_width(m_layout.get(), pangoUnits(op.roomWidth));
    pango_layout_set_ellipsize(m_layout.get(), PANGO_ELLIPSIZE_MIDDLE);
}

void ShapedText::draw(cairo_t* context, const TextOp& op)
{
    if (op.overflow == Overflow::Wraps)
        fitWrapped(op);
    else
        fitLine(op);
    pango_layout_set_alignment(m_layout.get(), pangoAlignment(op.alignment));
    const double top = kPageHeight - op.rect.y - op.rect.height;
    const RunPainter painter(context, pango_layout_get_text(m_layout.get()),
                             m_fonts.ascii(op.font));
    PangoLayoutIter* runs = pango_layout_get_iter(m_layout.get());
    do {
        PangoLayoutRun* run = pango_layout_iter_get_run_readonly(runs);
        if (run == nullptr) // the end of a line
            continue;
        PangoRectangle box;
        pango_layout_iter_get_run_extents(runs, nullptr, &box);
        painter.draw(*run, op.rect.x + inPoints(box.x),
                     top + inPoints(pango_layout_iter_get_baseline(runs)));
    } while (pango_layout_iter_next_run(runs));
    pango_layout_iter_free(runs);
}

} // namespace pryvane::pdf
