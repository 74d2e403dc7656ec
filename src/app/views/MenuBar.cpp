#include "app/views/MenuBar.h"

#include "app/Navigation.h"
#include "ui/Icons.h"
#include "words/Shown.h"

#include <QActionGroup>
#include <QMenu>

#include <utility>

namespace pryvane {

void fillFileMenu(QMenu& menu, const MenuActions& actions)
{
    menu.addAction(MenuBar::tr("Open…"), QKeySequence::Open, &menu, actions.openVolume);
    QAction* print = menu.addAction(ui::icon(QStringLiteral("print")), MenuBar::tr("Print…"),
                                    QKeySequence::Print, &menu, actions.print);
    print->setEnabled(actions.canPrint());
    menu.addSeparator();
    // A Mac has it in the menu that bears the program's name.
    menu.addAction(MenuBar::tr("Quit"), QKeySequence::Quit, &menu, actions.quit)
        ->setMenuRole(QAction::QuitRole);
}

void fillWindowMenu(QMenu& menu, const MenuActions& actions)
{
    for (const WindowMenuEntry& entry : actions.windows()) {
        if (entry.title.empty()) {
            menu.addSeparator();
            continue;
        }
        QAction* action =
            menu.addAction(ui::shownOnButton(entry.title), &menu,
                           [perform = actions.perform, does = entry.command] { perform(does); });
        action->setMenuRole(QAction::NoRole);
        action->setCheckable(entry.checked);
        action->setChecked(entry.checked);
    }
}

void fillAppearanceMenu(QMenu& menu, const MenuActions& actions)
{
    using ui::AppearanceSetting;
    const std::pair<AppearanceSetting, QString> choices[] = {
        {AppearanceSetting::System, MenuBar::tr("As the Desktop")},
        {AppearanceSetting::Light, MenuBar::tr("Light")},
        {AppearanceSetting::Dark, MenuBar::tr("Dark")},
        {AppearanceSetting::MoreContrast, MenuBar::tr("More Contrast")}};
    auto* const oneOf = new QActionGroup(&menu);
    for (const auto& [setting, title] : choices) {
        QAction* action = menu.addAction(
            title, &menu, [set = actions.setAppearance, chosen = setting] { set(chosen); });
        action->setMenuRole(QAction::NoRole);
        action->setCheckable(true);
        action->setChecked(actions.appearance() == setting);
        oneOf->addAction(action);
    }
}

QAction* addHelp(QMenu& menu, const MenuActions& actions)
{
    QAction* help = menu.addAction(ui::icon(QStringLiteral("help")), MenuBar::tr("Pryvane Help"),
                                   QKeySequence::HelpContents, &menu, actions.help);
    help->setMenuRole(QAction::NoRole); // stays where it stands
    return help;
}

MenuBar::MenuBar(MenuActions actions) : m_actions(std::move(actions)), m_file(addMenu(tr("File")))
{
    QMenu* view = addMenu(tr("View"));
    for (int row = 0; row < int(kRowTitles.size()); ++row)
        view->addAction(ui::shownOnButton(kRowTitles[static_cast<std::size_t>(row)]),
                        QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + row)), this,
                        [this, row] { m_actions.showScreen(row); });
    view->addSeparator();
    view->addAction(tr("Find in List"), QKeySequence::Find, this, m_actions.findInList);
    view->addSeparator();
    fillAppearanceMenu(*view->addMenu(tr("Appearance")), m_actions);
    m_window = addMenu(tr("Window"));
    addHelp(*addMenu(tr("Help")), m_actions);
    for (QAction* action : view->actions())
        action->setMenuRole(QAction::NoRole);
    refresh();
}

void MenuBar::refresh()
{
    m_file->clear();
    fillFileMenu(*m_file, m_actions);
    m_window->clear();
    fillWindowMenu(*m_window, m_actions);
}

} // namespace pryvane
