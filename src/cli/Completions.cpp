#include "cli/ParserFacts.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <string_view>

namespace pryvane::cli {

namespace {

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

/// What may follow a command's words: its subcommands, its options, its positionals' fixed words.
std::string wordsAfter(const CommandFacts& command)
{
    std::vector<std::string> words = command.subcommands;
    for (const OptionFacts& option : command.options) {
        words.insert(words.end(), option.names.begin(), option.names.end());
        if (option.names.empty())
            words.insert(words.end(), option.choices.begin(), option.choices.end());
    }
    return joined(words);
}

/// The shared body of bash and zsh: picks the longest command in the words typed so far.
bool isFile(const OptionFacts& option)
{
    const std::string& value = option.names.empty() ? option.positional : option.valueName;
    return value == "DIR" || value == "FILE" || value == "DISK";
}

/// Whether a file or folder may stand there by itself.
bool takesFiles(const CommandFacts& command)
{
    return std::ranges::any_of(command.options, [](const OptionFacts& option) {
        return option.names.empty() && isFile(option);
    });
}

std::string caseTable(const std::vector<CommandFacts>& commands)
{
    std::ostringstream out;
    for (const CommandFacts& command : commands)
        out << "        \"" << command.words << "\") words=\"" << wordsAfter(command) << "\" ;;\n";
    return out.str();
}

std::string commandPattern(const std::vector<CommandFacts>& commands)
{
    std::string pattern;
    for (const CommandFacts& command : commands) {
        if (!command.words.empty())
            pattern += (pattern.empty() ? "\"" : "|\"") + command.words + "\"";
    }
    return pattern;
}

/// The options of any command whose value has that name, as a shell's pattern.
std::string optionsWith(const std::vector<CommandFacts>& commands, std::string_view value)
{
    std::set<std::string> names;
    for (const CommandFacts& command : commands) {
        for (const OptionFacts& option : command.options) {
            if (!option.names.empty() && option.valueName == value)
                names.insert(option.names.back());
        }
    }
    std::string pattern;
    for (const std::string& name : names)
        pattern += (pattern.empty() ? "" : "|") + name;
    return pattern;
}

std::string quotedForFish(const std::string& text)
{
    std::string out = "'";
    for (const char c : text) {
        if (c == '\'' || c == '\\')
            out += '\\';
        out += c;
    }
    return out + "'";
}

} // namespace

std::string bashCompletion(const CLI::App& app)
{
    const auto commands = parserFacts(app);
    std::ostringstream out;
    out << "# bash completion for pryvane-cli\n"
        << "_pryvane_cli() {\n"
        << "    local current=\"${COMP_WORDS[COMP_CWORD]}\" "
           "previous=\"${COMP_WORDS[COMP_CWORD-1]}\"\n"
        << "    local command=\"\" words=\"\" word\n"
        << "    case $previous in\n"
        << "        " << optionsWith(commands, "DIR")
        << ") mapfile -t COMPREPLY < <(compgen -d -- \"$current\"); return ;;\n"
        << "        " << optionsWith(commands, "FILE")
        << ") mapfile -t COMPREPLY < <(compgen -f -- \"$current\"); return ;;\n"
        << "    esac\n"
        << "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
        << "        case \"${command:+$command }$word\" in\n"
        << "            " << commandPattern(commands)
        << ") command=\"${command:+$command }$word\" ;;\n"
        << "        esac\n"
        << "    done\n"
        << "    case \"$command\" in\n"
        << caseTable(commands) << "    esac\n";
    for (const CommandFacts& command : commands) {
        for (const OptionFacts& option : command.options) {
            if (!option.names.empty() && !option.choices.empty()) {
                out << "    [[ $command == \"" << command.words
                    << "\" && $previous == " << option.names.back() << " ]] && words=\""
                    << joined(option.choices) << "\"\n";
            }
        }
    }
    out << "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
        << "}\n"
        << "complete -o default -F _pryvane_cli pryvane-cli\n";
    return out.str();
}

std::string zshCompletion(const CLI::App& app)
{
    const auto commands = parserFacts(app);
    std::ostringstream out;
    out << "#compdef pryvane-cli\n"
        << "# zsh completion for pryvane-cli\n"
        << "_pryvane_cli() {\n"
        << "    local command=\"\" word\n"
        << "    local words_before=(\"${(@)words[2,CURRENT-1]}\")\n"
        << "    case $words[CURRENT-1] in\n"
        << "        " << optionsWith(commands, "DIR") << ") _files -/; return ;;\n"
        << "        " << optionsWith(commands, "FILE") << ") _files; return ;;\n"
        << "    esac\n"
        << "    for word in $words_before; do\n"
        << "        case \"${command:+$command }$word\" in\n"
        << "            " << commandPattern(commands)
        << ") command=\"${command:+$command }$word\" ;;\n"
        << "        esac\n"
        << "    done\n"
        << "    case \"$command\" in\n";
    for (const CommandFacts& command : commands) {
        out << "        \"" << command.words << "\") compadd -- " << wordsAfter(command)
            << (takesFiles(command) ? "; _files" : "") << " ;;\n";
    }
    out << "    esac\n"
        << "}\n"
        << "_pryvane_cli \"$@\"\n";
    return out.str();
}

std::string fishCompletion(const CLI::App& app)
{
    const auto commands = parserFacts(app);
    std::ostringstream out;
    out << "# fish completion for pryvane-cli\ncomplete -c pryvane-cli -f\n";
    for (const CommandFacts& command : commands) {
        const std::string seen = command.words.empty()
                                     ? "__fish_use_subcommand"
                                     : "__fish_seen_subcommand_from " +
                                           command.words.substr(command.words.rfind(' ') + 1);
        const std::string prefix = "complete -c pryvane-cli -n " + quotedForFish(seen);
        for (const std::string& subcommand : command.subcommands)
            out << prefix << " -a " << subcommand << "\n";
        for (const OptionFacts& option : command.options) {
            if (option.names.empty()) {
                if (!option.choices.empty())
                    out << prefix << " -a " << quotedForFish(joined(option.choices)) << "\n";
                else if (isFile(option))
                    out << prefix << " -F\n";
                continue;
            }
            out << prefix;
            for (const std::string& name : option.names)
                out << (name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1));
            if (!option.valueName.empty())
                out << (isFile(option) ? " -r -F" : " -x");
            if (!option.choices.empty())
                out << " -a " << quotedForFish(joined(option.choices));
            out << " -d " << quotedForFish(option.description) << "\n";
        }
    }
    return out.str();
}

} // namespace pryvane::cli
