#pragma once

#include "app/views/FramedWindow.h"

#include <QString>

#include <cstdint>
#include <memory>

class QMenu;
class QStackedWidget;
class QToolButton;

namespace pryvane::ui {
class Navigation;
}

namespace pryvane {

class AppDelegate;
class Looks;
class MenuBar;
class TableViewController;
struct MenuActions;

/// Which Mac is looked at, in words that are always in sight.
struct VolumeWords {
    QString volume; ///< its name: the last part of the folder, or "This computer"
    QString folder; ///< the whole host folder
    QString user;   ///< short name, or "Everyone"
    QString whose;  ///< within a sentence: "user alice", "every user"
};

/// The main window: title bar with menu, navigation, the screens, and what is being looked at.
class MainWindow final : public FramedWindow {
    Q_OBJECT

public:
    /// Where its menus are: behind a button in the title bar, or in a bar of the system's.
    enum class Menus : std::uint8_t { Button, Bar };

    /// The stack holds the screens and is shown at the right; the window takes it over.
    MainWindow(AppDelegate& delegate, TableViewController& table, QStackedWidget* screens,
               const VolumeWords& volume, Looks& looks, Menus menus);
    ~MainWindow() override;

Q_SIGNALS:
    void openVolumeWanted();
    void filterWanted();

private:
    [[nodiscard]] QWidget* makeSidebar(const VolumeWords& volume);
    void makeMenu();
    void makeMenuBar();
    [[nodiscard]] MenuActions menuActions();
    void makeShortcuts();
    void showMenu();
    void followSelection();

    AppDelegate& m_delegate;
    TableViewController& m_table;
    Looks& m_looks;
    QStackedWidget* m_screens;
    ui::Navigation* m_navigation;
    QToolButton* m_menuButton = nullptr; ///< none where there is a bar
    QMenu* m_menu = nullptr;
    std::unique_ptr<MenuBar> m_menuBar;
};

} // namespace pryvane
