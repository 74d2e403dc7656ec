#include "ui/MenuButton.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMenu>
#include <QStyleOptionButton>

namespace pryvane::ui {

namespace {

constexpr const char* kMenu = "pryvaneMenu";

QMenu* menuOf(const QObject* button)
{
    return button->property(kMenu).value<QMenu*>();
}

class MenuButtonAccess final : public QAccessibleWidget {
public:
    explicit MenuButtonAccess(QAbstractButton* button)
        : QAccessibleWidget(button, QAccessible::ButtonMenu)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        const QString said = QAccessibleWidget::text(kind);
        return said.isEmpty() && kind == QAccessible::Name ? button()->text() : said;
    }
    [[nodiscard]] int childCount() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(menuOf(widget())) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        return child && child->object() == menuOf(widget()) ? 0 : -1;
    }
    [[nodiscard]] QStringList actionNames() const override
    {
        return {pressAction(), setFocusAction()};
    }
    void doAction(const QString& action) override
    {
        if (action == pressAction() && button()->isEnabled())
            button()->animateClick();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    [[nodiscard]] QAbstractButton* button() const
    {
        return static_cast<QAbstractButton*>(widget());
    }
};

QAccessibleInterface* menuButtonAccess(const QString&, QObject* object)
{
    auto* button = qobject_cast<QAbstractButton*>(object);
    return button && menuOf(button) ? new MenuButtonAccess(button) : nullptr;
}

} // namespace

void giveMenu(QAbstractButton& button, QMenu* menu)
{
    static const bool once = [] {
        QAccessible::installFactory(&menuButtonAccess);
        return true;
    }();
    static_cast<void>(once);
    menu->setParent(&button, menu->windowFlags());
    button.setProperty(kMenu, QVariant::fromValue(menu));
    QObject::connect(&button, &QAbstractButton::clicked, menu, [menu, at = &button] {
        menu->popup(at->mapToGlobal(at->rect().bottomLeft()));
    });
}

MenuButton::MenuButton(const QString& title, QMenu* menu, QWidget* parent) : QPushButton(parent)
{
    giveMenu(*this, menu);
    setText(title);
}

void MenuButton::initStyleOption(QStyleOptionButton* option) const
{
    QPushButton::initStyleOption(option);
    option->features |= QStyleOptionButton::HasMenu;
}

} // namespace pryvane::ui
