#include "cli/ParserFacts.h"

#include <sstream>

namespace pryvane::cli {

namespace {

/// Plain text for roff: no line may look like a request, and dashes stay what they are.
std::string roff(const std::string& text)
{
    std::string out;
    bool atLineStart = true;
    for (const char c : text) {
        if (atLineStart && (c == '.' || c == '\''))
            out += "\\&";
        if (c == '\\')
            out += "\\\\";
        else if (c == '-')
            out += "\\-";
        else
            out += c;
        atLineStart = c == '\n';
    }
    return out;
}

std::string heading(const OptionFacts& option)
{
    if (option.names.empty())
        return "\\fI" + roff(option.positional) + "\\fR";
    std::string text;
    for (const std::string& name : option.names)
        text += (text.empty() ? "" : ", ") + std::string("\\fB") + roff(name) + "\\fR";
    if (!option.valueName.empty())
        text += " \\fI" + roff(option.valueName) + "\\fR";
    return text;
}

void writeOptions(std::ostringstream& out, const CommandFacts& command)
{
    for (const OptionFacts& option : command.options)
        out << ".TP\n" << heading(option) << "\n" << roff(option.description) << "\n";
}

/// Footers hold aligned lines, so they are set as they stand.
void writeFooter(std::ostringstream& out, const std::string& footer)
{
    if (!footer.empty())
        out << ".PP\n.nf\n" << roff(footer) << "\n.fi\n";
}

} // namespace

std::string manPage(const CLI::App& app)
{
    const std::vector<CommandFacts> commands = parserFacts(app);
    const CommandFacts& program = commands.front();
    std::ostringstream out;
    out << ".TH PRYVANE\\-CLI 1 \"\" \"Pryvane " PRYVANE_VERSION "\" \"User Commands\"\n"
        << ".SH NAME\npryvane\\-cli \\- look for known spyware on a Mac's disk\n"
        << ".SH SYNOPSIS\n.B pryvane\\-cli\n\\fICOMMAND\\fR [\\fIOPTIONS\\fR]\n"
        << ".SH DESCRIPTION\n"
        << roff(oneLineOf(program.description)) << "\n";
    writeOptions(out, program);
    out << ".SH COMMANDS\n";
    for (std::size_t i = 1; i < commands.size(); ++i) {
        const CommandFacts& command = commands[i];
        if (!command.subcommands.empty())
            continue;
        out << ".SS " << roff(command.words);
        for (const OptionFacts& option : command.options) {
            if (option.names.empty())
                out << ' '
                    << roff(option.required ? option.positional : "[" + option.positional + "...]");
        }
        out << "\n" << roff(oneLineOf(command.description)) << ".\n";
        writeOptions(out, command);
        writeFooter(out, command.footer);
    }
    out << ".SH NOTES\n";
    writeFooter(out, program.footer);
    return out.str();
}

} // namespace pryvane::cli
