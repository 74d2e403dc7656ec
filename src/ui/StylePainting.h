#pragma once

class QPainter;
class QRect;
class QStyleOption;
class QStyleOptionProgressBar;
class QStyleOptionSlider;

namespace pryvane::ui {

enum class ButtonTone : unsigned char { Plain, Primary, Destructive };

inline constexpr int kSwitchWidth = 36, kSwitchHeight = 20;

// How the program's own style draws each thing, in the colours of the option's palette.
void drawButton(const QStyleOption& option, QPainter& painter, ButtonTone tone, bool isDefault);
void drawFocusRing(const QStyleOption& option, QPainter& painter, bool onColour);
void drawSwitch(const QStyleOption& option, QPainter& painter);
void drawTickBox(const QStyleOption& option, QPainter& painter);
void drawRadioButton(const QStyleOption& option, QPainter& painter);
void drawProgress(const QStyleOptionProgressBar& bar, QPainter& painter);
void drawField(const QStyleOption& option, QPainter& painter);
void drawHeaderSection(const QStyleOption& option, QPainter& painter);
void drawScrollBar(const QStyleOptionSlider& bar, const QRect& thumb, QPainter& painter);

} // namespace pryvane::ui
