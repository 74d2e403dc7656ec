#include "cli/Console.h"

#include <iostream>

namespace pryvane::cli {

int Console::fail(std::string_view message) const
{
    say(message);
    return kFailed;
}

void Console::say(std::string_view message) const
{
    err << "pryvane-cli: " << message << std::endl;
}

bool Console::confirmed(std::string_view question, bool yes) const
{
    if (yes)
        return true;
    if (!inIsTerminal || !errIsTerminal) {
        say("this deletes; without a terminal to ask on, add --yes to confirm");
        return false;
    }
    err << question << " [y/N] " << std::flush;
    std::string answer;
    std::getline(in, answer);
    if (answer == "y" || answer == "Y" || answer == "yes")
        return true;
    say("nothing was changed");
    return false;
}

} // namespace pryvane::cli
