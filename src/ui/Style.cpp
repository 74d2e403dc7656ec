#include "ui/Style.h"

#include "ui/Theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>

namespace pryvane::ui {

namespace {

constexpr char kTone[] = "pryvaneTone";
constexpr char kSwitch[] = "pryvaneSwitch";
constexpr int kIndicator = 18, kSwitchWidth = 36, kSwitchHeight = 20;

bool has(QStyle::State state, QStyle::StateFlag flag)
{
    return (state & flag) != 0;
}

QString toneOf(const QWidget* widget)
{
    return widget ? widget->property(kTone).toString() : QString();
}

bool isSwitch(const QWidget* widget)
{
    return widget && widget->property(kSwitch).toBool();
}

QColor mixed(const QColor& from, const QColor& to, float part)
{
    const auto between = [part](float a, float b) { return a + (b - a) * part; };
    return QColor::fromRgbF(between(from.redF(), to.redF()), between(from.greenF(), to.greenF()),
                            between(from.blueF(), to.blueF()));
}

void drawButton(const QStyleOption& option, QPainter& painter, const QWidget* widget)
{
    const QPalette& palette = option.palette;
    const QString tone = toneOf(widget);
    QColor fill = palette.color(QPalette::Button);
    QColor edge = hairline(palette);
    if (!tone.isEmpty() && has(option.state, QStyle::State_Enabled)) {
        fill = tone == QLatin1String("primary") ? palette.color(QPalette::Highlight)
                                                : QColor(181, 47, 53);
        edge = fill;
    }
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

void drawFocusRing(const QStyleOption& option, QPainter& painter)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(option.palette.color(QPalette::Highlight), 2));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(1, 1, -1, -1), 6, 6);
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
    const bool enabled = has(option.state, QStyle::State_Enabled);
    const QRectF box = QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5);
    QColor accent = option.palette.color(QPalette::Highlight);
    QColor edge = secondaryText(option.palette);
    if (!enabled) {
        accent = mixed(accent, option.palette.color(QPalette::Window), 0.6F);
        edge = mixed(edge, option.palette.color(QPalette::Window), 0.6F);
    }
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
    const bool focused = has(option.state, QStyle::State_HasFocus);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(focused ? QPen(option.palette.color(QPalette::Highlight), 2)
                           : QPen(hairline(option.palette), 1));
    painter.setBrush(option.palette.color(QPalette::Base));
    const double inset = focused ? 1 : .5;
    painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), 6, 6);
    painter.restore();
}

} // namespace

Style::Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const
{
    switch (element) {
    case PE_PanelButtonCommand:
        return drawButton(*option, *painter, widget);
    case PE_FrameFocusRect:
        if (has(option->state, State_KeyboardFocusChange) || !widget ||
            widget->testAttribute(Qt::WA_KeyboardFocusChange))
            drawFocusRing(*option, *painter);
        return;
    case PE_IndicatorCheckBox:
        return isSwitch(widget) ? drawSwitch(*option, *painter) : drawTickBox(*option, *painter);
    case PE_IndicatorItemViewItemCheck:
        return drawTickBox(*option, *painter);
    case PE_PanelLineEdit:
        if (!widget || !widget->inherits("QAbstractSpinBox"))
            return drawField(*option, *painter);
        break;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const
{
    if (element == CE_PushButtonLabel && !toneOf(widget).isEmpty() &&
        has(option->state, State_Enabled)) {
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            QStyleOptionButton label = *button;
            label.palette.setColor(QPalette::ButtonText,
                                   toneOf(widget) == QLatin1String("primary")
                                       ? option->palette.color(QPalette::HighlightedText)
                                       : QColor(Qt::white));
            return QProxyStyle::drawControl(element, &label, painter, widget);
        }
    }
    if (element == CE_ProgressBar) {
        if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option))
            return drawProgress(*bar, *painter);
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_IndicatorWidth:
        return isSwitch(widget) ? kSwitchWidth : kIndicator;
    case PM_IndicatorHeight:
        return isSwitch(widget) ? kSwitchHeight : kIndicator;
    case PM_CheckBoxLabelSpacing:
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return kRelated;
    case PM_ButtonDefaultIndicator:
        return 0;
    case PM_FocusFrameHMargin:
        return 4;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* data) const
{
    switch (hint) {
    case SH_EtchDisabledText:
    case SH_DialogButtonBox_ButtonsHaveIcons:
        return 0;
    case SH_ItemView_ShowDecorationSelected:
        return 1;
    case SH_Widget_Animation_Duration:
        return reducedMotion() ? 0 : 150;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const
{
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_PushButton) {
        size.rwidth() += kRelated;
        size.setHeight(std::max(size.height() + 4, kTarget + 2));
    } else if (type == CT_CheckBox || type == CT_LineEdit || type == CT_ComboBox ||
               type == CT_SpinBox) {
        size.setHeight(std::max(size.height(), kTarget));
    }
    return size;
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option,
                            const QWidget* widget) const
{
    // The ring goes around the whole control, so that it shows on a box without a label too.
    if (element == SE_CheckBoxFocusRect || element == SE_PushButtonFocusRect)
        return option->rect;
    if (element == SE_LineEditContents)
        return QProxyStyle::subElementRect(element, option, widget).adjusted(6, 0, -6, 0);
    return QProxyStyle::subElementRect(element, option, widget);
}

void makePrimary(QWidget& button)
{
    button.setProperty(kTone, QStringLiteral("primary"));
}

void makeDestructive(QWidget& button)
{
    button.setProperty(kTone, QStringLiteral("destructive"));
}

void makeSwitch(QWidget& checkBox)
{
    checkBox.setProperty(kSwitch, true);
}

} // namespace pryvane::ui
