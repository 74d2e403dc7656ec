#pragma once

#include <QProxyStyle>

class QCheckBox;

namespace pryvane::ui {

/// Fusion with this program's corners, focus ring, buttons and tick boxes. Reads all colours from
/// the palette of what it draws.
class Style final : public QProxyStyle {
    Q_OBJECT

public:
    Style();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl part, const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* data) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& contents,
                                         const QWidget* widget) const override;
    [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                       const QWidget* widget) const override;
};

/// A button that does what the screen is for: filled with the accent colour. One to a screen.
void makePrimary(QWidget& button);

/// A button that deletes: worded and coloured as such.
void makeDestructive(QWidget& button);

/// A check box drawn as a switch.
void makeSwitch(QWidget& checkBox);

/// Shows a state without the box telling of it: its toggled() and stateChanged() are then what a
/// person did, by click, key or screen reader alike.
void showTicked(QCheckBox& box, Qt::CheckState state);
void showTicked(QCheckBox& box, bool on);

} // namespace pryvane::ui
