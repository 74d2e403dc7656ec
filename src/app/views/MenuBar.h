#pragma once

#include "app/AppDelegate.h"
#include "ui/Theme.h"

#include <QMenuBar>

#include <functional>
#include <vector>

class QAction;
class QMenu;

namespace pryvane {

/// What the menus do, and what they show of the program.
struct MenuActions {
    std::function<void()> openVolume, print, quit, help, findInList;
    std::function<void(WindowCommand)> perform;
    std::function<void(int row)> showScreen;
    std::function<bool()> canPrint;
    std::function<std::vector<WindowMenuEntry>()> windows;
    std::function<void(ui::AppearanceSetting)> setAppearance;
    std::function<ui::AppearanceSetting()> appearance;
};

/// Fills the File menu; the entry for printing is as things are now.
void fillFileMenu(QMenu& menu, const MenuActions& actions);
void fillWindowMenu(QMenu& menu, const MenuActions& actions);
/// Light, dark, more contrast, or as the desktop has it.
void fillAppearanceMenu(QMenu& menu, const MenuActions& actions);
QAction* addHelp(QMenu& menu, const MenuActions& actions);

/// The menus in a bar, as a Mac has them at the top of the screen. Its shortcuts are the program's:
/// nothing else may take the same keys.
class MenuBar final : public QMenuBar {
    Q_OBJECT

public:
    explicit MenuBar(MenuActions actions);

    /// Brings up to date what other parts decide.
    void refresh();

private:
    const MenuActions m_actions;
    QMenu* m_file;
    QMenu* m_window;
};

} // namespace pryvane
