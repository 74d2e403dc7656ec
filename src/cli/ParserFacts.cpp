#include "cli/ParserFacts.h"

#include <algorithm>
#include <sstream>

namespace pryvane::cli {

namespace {

/// The words that an option's membership check accepts: the parser tells them as "TYPE:{one,two}".
std::vector<std::string> choicesIn(const std::string& typeName)
{
    std::vector<std::string> choices;
    const auto open = typeName.find('{');
    const auto close = typeName.find('}');
    if (open == std::string::npos || close == std::string::npos)
        return choices;
    std::istringstream words(typeName.substr(open + 1, close - open - 1));
    for (std::string word; std::getline(words, word, ',');)
        choices.push_back(word);
    return choices;
}

OptionFacts factsOf(const CLI::Option& option)
{
    OptionFacts facts;
    facts.description = oneLineOf(option.get_description());
    facts.required = option.get_required();
    const std::string typeName = option.get_type_name();
    facts.choices = choicesIn(typeName);
    if (option.get_positional()) {
        facts.positional = option.get_name(true);
        return facts;
    }
    for (const std::string& name : option.get_snames())
        facts.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames())
        facts.names.push_back("--" + name);
    if (option.get_items_expected_max() > 0 && option.get_type_size() > 0)
        facts.valueName = typeName.substr(0, typeName.find(':'));
    return facts;
}

void collect(const CLI::App& app, const std::string& words, std::vector<CommandFacts>& all)
{
    CommandFacts facts;
    facts.words = words;
    facts.description = app.get_description();
    facts.footer = app.get_footer();
    for (const CLI::Option* option : app.get_options())
        facts.options.push_back(factsOf(*option));
    const auto subcommands = app.get_subcommands([](const CLI::App*) { return true; });
    for (const CLI::App* subcommand : subcommands)
        facts.subcommands.push_back(subcommand->get_name());
    all.push_back(std::move(facts));
    for (const CLI::App* subcommand : subcommands) {
        const std::string below = (words.empty() ? "" : words + " ") + subcommand->get_name();
        collect(*subcommand, below, all);
    }
}

} // namespace

std::vector<CommandFacts> parserFacts(const CLI::App& app)
{
    std::vector<CommandFacts> all;
    collect(app, "", all);
    return all;
}

std::string oneLineOf(const std::string& text)
{
    std::string line = text;
    std::replace(line.begin(), line.end(), '\n', ' ');
    return line;
}

} // namespace pryvane::cli
