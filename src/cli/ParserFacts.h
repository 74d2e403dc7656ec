#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace pryvane::cli {

/// One option as documentation and completions see it.
struct OptionFacts {
    std::vector<std::string> names; ///< with their dashes; empty for a positional
    std::string positional;         ///< the positional's name
    std::string valueName;          ///< empty for a flag
    std::string description;
    std::vector<std::string> choices; ///< the words it accepts, when they are fixed
    bool required = false;
};

/// One command as documentation and completions see it.
struct CommandFacts {
    std::string words; ///< "report show"
    std::string description;
    std::string footer;
    std::vector<OptionFacts> options;
    std::vector<std::string> subcommands;
};

/// The whole parser, the program itself first, then every command in order, nested ones behind
/// theirs.
[[nodiscard]] std::vector<CommandFacts> parserFacts(const CLI::App& app);

/// A text without its line breaks.
[[nodiscard]] std::string oneLineOf(const std::string& text);

// Completion scripts made from the parser.
[[nodiscard]] std::string bashCompletion(const CLI::App& app);
[[nodiscard]] std::string zshCompletion(const CLI::App& app);
[[nodiscard]] std::string fishCompletion(const CLI::App& app);

/// The manual page of the whole program, in roff, made from the parser.
[[nodiscard]] std::string manPage(const CLI::App& app);

} // namespace pryvane::cli
