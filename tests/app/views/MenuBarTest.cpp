#include "app/views/MenuBar.h"

#include "ui/Keys.h"

#include <QMenu>
#include <gmock/gmock.h>

namespace pryvane {
namespace {

/// A line for each menu of the bar: its entries with their keys, what they hold, roles that a Mac
/// gives a place of its own, and "off".
std::string entriesOf(const MenuBar& bar)
{
    QString lines;
    for (const QAction* top : bar.actions()) {
        lines += top->text() + ":";
        for (const QAction* action : top->menu()->actions()) {
            lines += " " + (action->isSeparator() ? QStringLiteral("-") : action->text());
            for (const QKeySequence& keys : action->shortcuts().mid(0, 1))
                lines += " [" + keys.toString(QKeySequence::PortableText) + "]";
            if (action->menu()) {
                for (const QAction* choice : action->menu()->actions())
                    lines += " >" + choice->text() + (choice->isChecked() ? " ticked" : "");
            }
            lines += action->menuRole() == QAction::QuitRole ? " quits" : "";
            lines += action->isChecked() ? " ticked" : "";
            lines += action->isEnabled() ? ";" : " off;";
        }
        lines += "\n";
    }
    return lines.toStdString();
}

TEST(MenuBarTest, HoldsWhatTheMenuHoldsAndTheKeysOfTheWindow)
{
    std::string did;
    bool canPrint = false;
    const auto note = [&did](const char* what) { return [&did, what] { did += what; }; };
    MenuBar bar(
        {.openVolume = note("open "),
         .print = note("print "),
         .quit = note("quit "),
         .help = note("help "),
         .findInList = note("find "),
         .perform =
             [&did](WindowCommand command) {
                 did += "command" + std::to_string(static_cast<int>(command)) + " ";
             },
         .showScreen = [&did](int row) { did += std::to_string(row) + " "; },
         .canPrint = [&canPrint] { return canPrint; },
         .windows =
             [] {
                 return std::vector<WindowMenuEntry>{
                     {"A & B", WindowCommand::Minimise, true}, {}, {"Other", WindowCommand::Zoom}};
             },
         .setAppearance =
             [&did](ui::AppearanceSetting to) {
                 did += "look" + std::to_string(static_cast<int>(to)) + " ";
             },
         .appearance = [] { return ui::AppearanceSetting::Dark; }});
    const auto expected = [](const std::string& print) {
        return "File: Open… [Ctrl+O]; " + print + "; -; Quit [Ctrl+Q] quits;\n" +
               "View: Dashboard [Ctrl+1]; Scan [Ctrl+2]; Tools [Ctrl+3]; Reports [Ctrl+4]; -; "
               "Find in List [Ctrl+F]; -; "
               "Appearance >As the Desktop >Light >Dark ticked >More Contrast;\n"
               "Window: A && B ticked; -; Other;\n"
               "Help: Pryvane Help [F1];\n";
    };
    EXPECT_EQ(entriesOf(bar), expected("Print… [Ctrl+P] off"));
    canPrint = true;
    bar.refresh();
    EXPECT_EQ(entriesOf(bar), expected("Print… [Ctrl+P]"));
    for (const QAction* top : bar.actions())
        for (QAction* action : top->menu()->actions())
            action->menu() ? action->menu()->actions().back()->trigger() : action->trigger();
    EXPECT_EQ(did, "open print quit 0 1 2 3 find look3 command1 command2 help ");
}

TEST(Keys, StandInTheWordsOfTheSystem)
{
    const QString text = "Ctrl+1 to Ctrl+4, Shift+Alt+F1; F10 and Control stay";
    EXPECT_EQ(ui::withKeys(text, ui::KeyWords::Plain), text);
    EXPECT_EQ(ui::withKeys(text, ui::KeyWords::Mac), "⌘1 to ⌘4, ⇧⌥⌘?; F10 and Control stay");
}

} // namespace
} // namespace pryvane
