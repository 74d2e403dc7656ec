#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "core/Escape.h"
#include "hosts/posix/CurrentUser.h"
#include "signatures/FlaggedBy.h"
#include "volume/FoldedName.h"

#include <ostream>

namespace pryvane::cli {

namespace {

struct ExplainArguments {
    std::string path;
    std::string user;
};

const char* remark(const ExplainMatch& match)
{
    if (match.onlyAsFolder)
        return " (only if it is a folder)";
    if (match.onlyOnWholeDisk)
        return " (deep scan of the whole disk only)";
    return match.row.rule == RuleKind::FullSystemSubstring ? " (deep scan only)" : "";
}

int runExplain(const ExplainArguments& arguments, const Console& console)
{
    if (arguments.path.empty())
        return console.fail("the path is empty; give a path of the Mac, such as /Library/X.plist");
    ExplainQuestion question;
    question.path = arguments.path;
    question.user = arguments.user;
    if (question.user.empty())
        question.user = userOfPath(arguments.path);
    if (question.user.empty())
        question.user = loginUser();
    question.foldedName = [](std::string_view name) { return foldedName(name); };
    const Explanation explanation = explain(question);

    const std::string shown = forTerminal(explanation.path);
    if (explanation.matches.empty()) {
        console.out << shown << "\n  no rule flags this path for user "
                    << forTerminal(question.user) << "\n";
    } else {
        console.out << shown << "\n";
        using Align = TextTable::Align;
        TextTable table({Align::Left, Align::Left, Align::Left, Align::Left});
        for (const ExplainMatch& match : explanation.matches) {
            table.addRow({forTerminal(match.row.family), std::string(evidenceText(match.evidence)),
                          std::string(match.row.method),
                          std::string(ruleText(match.row.rule)) + ": " +
                              forTerminal(match.location) + remark(match)});
        }
        console.out << table.text("  ");
    }
    if (explanation.isKnownGood)
        console.out << "  a known-good file of the system: name searches leave it out\n";
    if (explanation.applicationRule == ApplicationRule::HeldBack)
        console.out << "  an application: a scan counts it in its coverage and does not list it\n";
    else if (explanation.applicationRule == ApplicationRule::DependsOnDisk)
        console.out << "  an application named like the maker's own: listed only if it is not\n";
    return explanation.matches.empty() ? kDone : kFindings;
}

} // namespace

void addExplainCommand(CommandLine& line, CLI::App& app)
{
    const auto arguments = std::make_shared<ExplainArguments>();
    CLI::App* command = line.addCommand(
        app, "explain", "Which rule would flag a path, and why; looks at no disk",
        [arguments](const Console& console) { return runExplain(*arguments, console); });
    command->add_option("PATH", arguments->path, "A path of the Mac, as a scan reports it")
        ->required();
    command
        ->add_option("--user", arguments->user,
                     "Short name of the Mac's user (default: the one whose home PATH is in, else "
                     "whoever runs this)")
        ->type_name("NAME");
    command->footer(
        "Exit code: 0 no rule flags it, 1 at least one does.\n"
        "Example: pryvane-cli explain --user alice /Library/LaunchAgents/com.refog.plist");
}

} // namespace pryvane::cli
