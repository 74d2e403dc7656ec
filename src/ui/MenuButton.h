#pragma once

#include <QPushButton>

class QMenu;

namespace pryvane::ui {

/// Has the button unfold the menu below it, which is the button's from now on. Everything else goes
/// on meanwhile: with a menu of Qt's own whoever pressed the button, a screen reader too, would
/// wait until the menu is closed. A screen reader finds the menu at the button, if it is given
/// before the button's words.
void giveMenu(QAbstractButton& button, QMenu* menu);

/// A button that looks like what it does: it has a menu.
class MenuButton final : public QPushButton {
    Q_OBJECT

public:
    MenuButton(const QString& title, QMenu* menu, QWidget* parent = nullptr);

protected:
    void initStyleOption(QStyleOptionButton* option) const override;
};

} // namespace pryvane::ui
