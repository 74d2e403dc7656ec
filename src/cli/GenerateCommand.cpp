#include "cli/CommandLine.h"
#include "cli/ParserFacts.h"

#include <ostream>

namespace pryvane::cli {

void addGenerateCommand(CommandLine& line, CLI::App& app)
{
    const auto what = std::make_shared<std::string>();
    CLI::App* command =
        line.addCommand(app, "generate", "Print the man page or a shell's completion script",
                        [what, &line](const Console& console) {
                            if (*what == "man")
                                console.out << manPage(line.app());
                            else if (*what == "bash")
                                console.out << bashCompletion(line.app());
                            else if (*what == "zsh")
                                console.out << zshCompletion(line.app());
                            else
                                console.out << fishCompletion(line.app());
                            return int{kDone};
                        });
    command->add_option("WHAT", *what, "man, bash, zsh or fish")
        ->required()
        ->check(CLI::IsMember({"man", "bash", "zsh", "fish"}));
}

} // namespace pryvane::cli
