#include "ui/StylePainting.h"

#include "ui/KeyboardFocus.h"
#include "ui/Theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

#include <algorithm>

namespace pryvane::ui {

namespace {

bool has(QStyle::State state, QStyle::StateFlag flag)
{
    return (state & flag) != 0;
}

QColor mixed(const QColor& from, const QColor& to, float part)
{
    const auto between = [part](float a, float b) { return a + (b - a) * part; };
    return QColor::fromRgbF(between(from.redF(), to.redF()), between(from.greenF(), to.greenF()),
                            between(from.blueF(), to.blueF()));
}

/// What a control is ticked with, and the edge of one that is not; paler where it is disabled.
struct IndicatorColours {
    explicit IndicatorColours(const QStyleOption& option)
        : accent(option.palette.color(QPalette::Highlight)), edge(secondaryText(option.palette))
    {
        if (has(option.state, QStyle::State_Enabled))
            return;
        const QColor ground = option.palette.color(QPalette::Window);
        accent = mixed(accent, ground, 0.6F);
        edge = mixed(edge, ground, 0.6F);
    }
    QColor accent, edge;
};

} // namespace

void drawButton(const QStyleOption& option, QPainter& painter, ButtonTone tone, bool isDefault)
{
    const QPalette& palette = option.palette;
    QColor fill = palette.color(QPalette::Button);
    QColor edge = hairline(palette);
    if (tone != ButtonTone::Plain && has(option.state, QStyle::State_Enabled)) {
        fill =
            tone == ButtonTone::Primary ? palette.color(QPalette::Highlight) : QColor(181, 47, 53);
        edge = fill;
    } else if (isDefault && has(option.state, QStyle::State_Enabled))
        edge = palette.color(QPalette::Highlight);
    const QColor ink = palette.color(QPalette::ButtonText);
    if (has(option.state, QStyle::State_Sunken) || has(option.state, QStyle::State_On))
        fill = mixed(fill, ink, 0.16F);
    else if (has(option.state, QStyle::State_MouseOver) && has(option.state, QStyle::State_Enabled))
        fill = mixed(fill, ink, 0.07F);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(.5, .5, -.5, -.5), 6, 6);
    painter.restore();
}

void drawFocusRing(const QStyleOption& option, QPainter& painter, bool onColour)
{
    constexpr double kInset = kRingThickness / 2.0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(onColour ? QColor(Qt::white) : option.palette.color(QPalette::Highlight),
                        kRingThickness));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(kInset, kInset, -kInset, -kInset), 9, 9);
    painter.restore();
}

void drawSwitch(const QStyleOption& option, QPainter& painter)
{
    const bool on = has(option.state, QStyle::State_On);
    const bool enabled = has(option.state, QStyle::State_Enabled);
    QRectF track(option.rect.x(), option.rect.center().y() - kSwitchHeight / 2.0 + .5, kSwitchWidth,
                 kSwitchHeight);
    track.adjust(.5, .5, -.5, -.5);
    const QColor accent = option.palette.color(QPalette::Highlight);
    QColor fill =
        on ? accent
           : mixed(option.palette.color(QPalette::Window), secondaryText(option.palette), 0.35F);
    if (!enabled)
        fill = mixed(fill, option.palette.color(QPalette::Window), 0.6F);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(isHighContrast() ? QPen(option.palette.color(QPalette::WindowText), 1)
                                    : QPen(Qt::NoPen));
    painter.setBrush(fill);
    painter.drawRoundedRect(track, track.height() / 2, track.height() / 2);
    const double size = track.height() - 5;
    const double x = on ? track.right() - size - 2.5 : track.left() + 2.5;
    painter.setPen(Qt::NoPen);
    painter.setBrush(on ? option.palette.color(QPalette::HighlightedText) : QColor(Qt::white));
    painter.drawEllipse(QRectF(x, track.top() + 2.5, size, size));
    painter.restore();
}

void drawTickBox(const QStyleOption& option, QPainter& painter)
{
    const bool on = has(option.state, QStyle::State_On);
    const bool partly = has(option.state, QStyle::State_NoChange);
    const QRectF box = QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5);
    const auto [accent, edge] = IndicatorColours(option);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(on || partly ? accent : edge, 1.2));
    painter.setBrush(on || partly ? accent : option.palette.color(QPalette::Base));
    painter.drawRoundedRect(box, 4, 4);
    painter.setPen(QPen(option.palette.color(QPalette::HighlightedText), 1.8, Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    const QPointF middle = box.center();
    if (partly) {
        painter.drawLine(middle - QPointF(3.4, 0), middle + QPointF(3.4, 0));
    } else if (on) {
        QPainterPath tick(middle + QPointF(-3.6, .2));
        tick.lineTo(middle + QPointF(-1, 2.8));
        tick.lineTo(middle + QPointF(3.8, -2.8));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(tick);
    }
    painter.restore();
}

void drawRadioButton(const QStyleOption& option, QPainter& painter)
{
    const bool on = has(option.state, QStyle::State_On);
    const auto [accent, edge] = IndicatorColours(option);
    const QRectF circle = QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(on ? accent : edge, 1.2));
    painter.setBrush(on ? accent : option.palette.color(QPalette::Base));
    painter.drawEllipse(circle);
    if (on) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(option.palette.color(QPalette::HighlightedText));
        painter.drawEllipse(circle.center(), 3.0, 3.0);
    }
    painter.restore();
}

/// A flat bar; a moving piece of it where no amount is known.
void drawProgress(const QStyleOptionProgressBar& bar, QPainter& painter)
{
    const QRectF groove(bar.rect.x(), bar.rect.center().y() - 2.5, bar.rect.width(), 6);
    QColor track = bar.palette.color(QPalette::WindowText);
    track.setAlphaF(isHighContrast() ? 0.4F : 0.12F);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(track);
    painter.drawRoundedRect(groove, 3, 3);
    painter.setBrush(bar.palette.color(QPalette::Highlight));
    const double range = double(bar.maximum) - bar.minimum;
    QRectF filled = groove;
    if (range > 0)
        filled.setWidth(groove.width() * std::clamp((bar.progress - bar.minimum) / range, 0., 1.));
    else
        filled.adjust(groove.width() / 3, 0, -groove.width() / 3, 0);
    if (filled.width() >= 1)
        painter.drawRoundedRect(filled, 3, 3);
    painter.restore();
}

void drawField(const QStyleOption& option, QPainter& painter)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(hairline(option.palette), 1));
    painter.setBrush(option.palette.color(QPalette::Base));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(.5, .5, -.5, -.5), 6, 6);
    painter.restore();
}

/// Flat: words over a hairline.
void drawHeaderSection(const QStyleOption& option, QPainter& painter)
{
    painter.fillRect(option.rect, option.palette.color(QPalette::Base));
    painter.save();
    painter.setPen(hairline(option.palette));
    painter.drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter.restore();
}

void drawScrollBar(const QStyleOptionSlider& bar, const QRect& thumb, QPainter& painter)
{
    QColor ink = bar.palette.color(QPalette::WindowText);
    const bool held =
        has(bar.state, QStyle::State_Sunken) || has(bar.state, QStyle::State_MouseOver);
    ink.setAlphaF(isHighContrast() ? 0.8F : held ? 0.45F : 0.25F);
    const bool upright = bar.orientation == Qt::Vertical;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    const QRectF pill =
        upright ? QRectF(thumb).adjusted(3, 1, -2, -1) : QRectF(thumb).adjusted(1, 3, -1, -2);
    const double round = std::min(pill.width(), pill.height()) / 2;
    painter.drawRoundedRect(pill, round, round);
    painter.restore();
}

} // namespace pryvane::ui
