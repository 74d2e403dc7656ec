#include "ui/Style.h"

#include "ui/KeyboardFocus.h"
#include "ui/StylePainting.h"
#include "ui/Surfaces.h"
#include "ui/Theme.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QSignalBlocker>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>

namespace pryvane::ui {

namespace {

constexpr char kTone[] = "pryvaneTone";
constexpr char kSwitch[] = "pryvaneSwitch";
constexpr int kIndicator = 18, kScrollBar = 12, kShortestThumb = 28;

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

/// Whose frame is drawn by what is around it.
bool isInsideAnotherField(const QWidget* widget)
{
    const QWidget* around = widget ? widget->parentWidget() : nullptr;
    return around && (around->inherits("QAbstractSpinBox") || around->inherits("QComboBox"));
}

/// Whether what the frame goes around lies on a coloured panel, where the accent does not show.
bool isOnColour(const QWidget* frame)
{
    const auto* ring = qobject_cast<const QFocusFrame*>(frame);
    for (const QWidget* at = ring ? ring->widget() : nullptr; at; at = at->parentWidget())
        if (qobject_cast<const ColouredView*>(at))
            return true;
    return false;
}

/// Whether Return presses it from elsewhere on its sheet.
bool isDefault(const QStyleOption& option)
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return button && (button->features & QStyleOptionButton::DefaultButton) != 0;
}

ButtonTone toneFor(const QWidget* widget)
{
    const QString tone = toneOf(widget);
    return tone.isEmpty()                     ? ButtonTone::Plain
           : tone == QLatin1String("primary") ? ButtonTone::Primary
                                              : ButtonTone::Destructive;
}

} // namespace

Style::Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const
{
    switch (element) {
    case PE_PanelButtonCommand:
        return drawButton(*option, *painter, toneFor(widget), isDefault(*option));
    case PE_FrameFocusRect:
        // Around a control KeyboardFocus has a ring; in a list it is the current row's.
        if (qobject_cast<const QAbstractItemView*>(widget) && KeyboardFocus::isShown())
            drawFocusRing(*option, *painter, false);
        return;
    case PE_IndicatorCheckBox:
        return isSwitch(widget) ? drawSwitch(*option, *painter) : drawTickBox(*option, *painter);
    case PE_IndicatorRadioButton:
        return drawRadioButton(*option, *painter);
    case PE_IndicatorItemViewItemCheck:
        return drawTickBox(*option, *painter);
    case PE_PanelItemViewRow:
        if (widget && widget->inherits("pryvane::ui::RowTable"))
            return; // its rows draw their own ground, on which words stay readable
        break;
    case PE_PanelLineEdit:
        if (isInsideAnotherField(widget))
            return;
        return drawField(*option, *painter);
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
    if (element == CE_HeaderSection)
        return drawHeaderSection(*option, *painter);
    if (element == CE_FocusFrame)
        return drawFocusRing(*option, *painter, isOnColour(widget));
    QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                               QPainter* painter, const QWidget* widget) const
{
    if (control == CC_ScrollBar) {
        if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
            if (bar->maximum > bar->minimum)
                drawScrollBar(*bar, subControlRect(control, bar, SC_ScrollBarSlider, widget),
                              *painter);
            return;
        }
    }
    const auto* list = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control == CC_SpinBox || (control == CC_ComboBox && list && list->editable)) {
        // One frame around words and arrows, as other fields have.
        drawField(*option, *painter);
        const auto arrow = [&](PrimitiveElement element, SubControl part) {
            QStyleOption place = static_cast<const QStyleOption&>(*option);
            place.rect = subControlRect(control, option, part, widget);
            drawPrimitive(element, &place, painter, widget);
        };
        if (control == CC_ComboBox)
            return arrow(PE_IndicatorArrowDown, SC_ComboBoxArrow);
        arrow(PE_IndicatorArrowUp, SC_SpinBoxUp);
        return arrow(PE_IndicatorArrowDown, SC_SpinBoxDown);
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

/// Scroll bars are a thumb and nothing else.
QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                            SubControl part, const QWidget* widget) const
{
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || !bar)
        return QProxyStyle::subControlRect(control, option, part, widget);
    const bool upright = bar->orientation == Qt::Vertical;
    const int length = upright ? bar->rect.height() : bar->rect.width();
    const qint64 range = qint64(bar->maximum) - bar->minimum;
    const int thumb = range <= 0
                          ? length
                          : std::clamp(static_cast<int>(qint64(length) * bar->pageStep /
                                                        std::max<qint64>(1, range + bar->pageStep)),
                                       std::min(kShortestThumb, length), length);
    const int at = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                           length - thumb, bar->upsideDown);
    const auto piece = [&](int from, int size) {
        const QRect along = upright ? QRect(0, from, bar->rect.width(), size)
                                    : QRect(from, 0, size, bar->rect.height());
        return visualRect(bar->direction, bar->rect, along.translated(bar->rect.topLeft()));
    };
    switch (part) {
    case SC_ScrollBarSlider:
        return piece(at, thumb);
    case SC_ScrollBarSubPage:
        return piece(0, at);
    case SC_ScrollBarAddPage:
        return piece(at + thumb, length - at - thumb);
    case SC_ScrollBarGroove:
        return piece(0, length);
    default:
        return {};
    }
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_IndicatorWidth:
        return isSwitch(widget) ? kSwitchWidth : kIndicator;
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return kIndicator;
    case PM_IndicatorHeight:
        return isSwitch(widget) ? kSwitchHeight : kIndicator;
    case PM_CheckBoxLabelSpacing:
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return kRelated;
    case PM_ScrollBarExtent:
        return kScrollBar;
    case PM_ButtonDefaultIndicator:
        return 0;
    case PM_FocusFrameHMargin:
        return kRingReach;
    case PM_FocusFrameVMargin:
        return widget ? QProxyStyle::pixelMetric(metric, option, widget) : kRingReach;
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
    case SH_FocusFrame_AboveWidget:
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
    if (element == SE_HeaderLabel) // in line with the words of the cells
        return option->rect.adjusted(kRelated, 0, -kRelated, 0);
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

void showTicked(QCheckBox& box, Qt::CheckState state)
{
    const QSignalBlocker quiet(box);
    box.setCheckState(state);
}

void showTicked(QCheckBox& box, bool on)
{
    showTicked(box, on ? Qt::Checked : Qt::Unchecked);
}

} // namespace pryvane::ui
