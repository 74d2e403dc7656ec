#include "app/views/MenuBar.h"

#include "ui/Keys.h"

#include <QMenu>
#include <gmock/gmock.h>

namespace pryvane {
namespace {

/// Each entry of the bar: menus, titles, keys, roles that a Mac gives a place of its own, and
/// "off".
std::vector<std::string> entriesOf(const MenuBar& bar)
{
    std::vector<std::string> entries;
    for (const QAction* top : bar.actions()) {
        for (const QAction* action : top->menu()->actions()) {
            QString text =
                top->text() + ": " + (action->isSeparator() ? QStringLiteral("-") : action->text());
            for (const QKeySequence& keys : action->shortcuts().mid(0, 1))
                text += " [" + keys.toString(QKeySequence::PortableText) + "]";
            if (action->menu()) {
                QStringList inside;
                for (const QAction* choice : action->menu()->actions())
                    inside += choice->text() + (choice->isChecked() ? " ticked" : "");
                text += " > " + inside.join(", ");
            }
            if (action->menuRole() == QAction::QuitRole)
                text += " quits";
            if (action->isChecked())
                text += " ticked";
            if (!action->isEnabled())
                text += " off";
            entries.push_back(text.toStdString());
        }
    }
    return entries;
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
    const auto expected = [](const char* print) {
        return std::vector<std::string>{"File: Open… [Ctrl+O]",
                                        print,
                                        "File: -",
                                        "File: Quit [Ctrl+Q] quits",
                                        "View: Dashboard [Ctrl+1]",
                                        "View: Scan [Ctrl+2]",
                                        "View: Tools [Ctrl+3]",
                                        "View: Reports [Ctrl+4]",
                                        "View: -",
                                        "View: Find in List [Ctrl+F]",
                                        "View: -",
                                        "View: Appearance > As the Desktop, Light, Dark ticked, "
                                        "More Contrast",
                                        "Window: A && B ticked",
                                        "Window: -",
                                        "Window: Other",
                                        "Help: Pryvane Help [F1]"};
    };
    EXPECT_EQ(entriesOf(bar), expected("File: Print… [Ctrl+P] off"));
    canPrint = true;
    bar.refresh();
    EXPECT_EQ(entriesOf(bar), expected("File: Print… [Ctrl+P]"));
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
