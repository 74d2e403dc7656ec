#include "ui/KeyboardFocus.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace pryvane::ui {

namespace {

const KeyboardFocus* g_focus = nullptr; // main thread only

/// Whose current row has the ring instead.
bool ringsItself(const QWidget* widget)
{
    const auto* list = qobject_cast<const QAbstractItemView*>(widget);
    return list && (list->inherits("pryvane::ui::RowTable") || list->currentIndex().isValid());
}

void press(QAbstractButton& button)
{
    auto* const pushed = qobject_cast<QPushButton*>(&button);
    auto* const tool = qobject_cast<QToolButton*>(&button);
    if (pushed && pushed->menu())
        pushed->showMenu();
    else if (tool && tool->menu())
        tool->showMenu();
    else
        button.click();
}

} // namespace

KeyboardFocus::KeyboardFocus(QApplication& application) : QObject(&application)
{
    g_focus = this;
    application.installEventFilter(this);
    connect(&application, &QApplication::focusChanged, this, &KeyboardFocus::follow);
}

KeyboardFocus::~KeyboardFocus()
{
    g_focus = nullptr;
    delete m_frame;
}

bool KeyboardFocus::isShown()
{
    return !g_focus || g_focus->m_shown;
}

void KeyboardFocus::setShown(bool shown)
{
    if (shown == m_shown)
        return;
    m_shown = shown;
    follow();
    if (auto* list = qobject_cast<QAbstractItemView*>(QApplication::focusWidget()))
        list->viewport()->update();
}

void KeyboardFocus::follow()
{
    QWidget* const widget = QApplication::focusWidget();
    const bool wanted = widget && !widget->isWindow() && m_shown && !ringsItself(widget);
    if (!wanted) {
        if (m_frame)
            m_frame->setWidget(nullptr);
        return;
    }
    if (!m_frame)
        m_frame = new QFocusFrame;
    m_frame->setWidget(widget);
}

bool KeyboardFocus::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn && watched->isWidgetType()) {
        const auto reason = static_cast<const QFocusEvent*>(event)->reason();
        // Where text goes is always shown; the window coming back changes nothing.
        if (reason == Qt::MouseFocusReason)
            setShown(qobject_cast<const QLineEdit*>(watched) != nullptr);
        else if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            setShown(true);
    } else if (event->type() == QEvent::KeyPress && watched == QApplication::focusWidget()) {
        setShown(true);
        const auto* const key = static_cast<const QKeyEvent*>(event);
        auto* const button = qobject_cast<QAbstractButton*>(watched);
        const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (isReturn && button && !qobject_cast<QCheckBox*>(button)) {
            if (!key->isAutoRepeat())
                press(*button);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace pryvane::ui
