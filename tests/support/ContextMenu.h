#pragma once

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>
#include <gtest/gtest.h>

namespace pryvane::test {

/// Opens the context menu of a list as its key does, and triggers the entry of that title, which
/// may stand in a menu of the menu.
inline void chooseFromMenu(QAbstractScrollArea* list, const QString& title)
{
    QTimer::singleShot(0, qApp, [title] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        QList<QAction*> actions = menu->actions();
        for (const QAction* action : menu->actions())
            if (action->menu())
                actions += action->menu()->actions();
        for (QAction* action : actions)
            if (action->text() == title)
                action->trigger();
        menu->close();
    });
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(list->viewport(), &byKey);
}

} // namespace pryvane::test
