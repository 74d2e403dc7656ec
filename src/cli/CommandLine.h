#pragma once

#include "cli/Console.h"
#include "findings/CaseLabels.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <string>
#include <vector>

namespace pryvane::cli {

struct VolumeArguments;

/// What --version prints: the version, and how far the kernel holds a removal to its volume.
[[nodiscard]] std::string versionText();

/// What a parsed command does. It returns the exit code and writes to the console only.
using Action = std::function<int(const Console&)>;

/// The parser with every command in it. The man page and the completions are made from it too.
class CommandLine {
public:
    CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// Parses the arguments (without the program's name) and runs the command.
    int run(std::vector<std::string> arguments, const Console& console);

    [[nodiscard]] const CLI::App& app() const { return m_app; }

    /// Adds a command below `parent` that runs `action` when it is the one given.
    CLI::App* addCommand(CLI::App& parent, const std::string& name, const std::string& description,
                         Action action);

private:
    CLI::App m_app;
    Action m_chosen;
};

/// --volume, --user and --case-sensitive.
void addVolumeOptions(CLI::App& command, VolumeArguments& arguments);

/// Bytes of a label; enough for a sentence, and no more than a line of a report has room for.
inline constexpr std::size_t kLongestLabel = 200;

/// --label, --case and --examiner.
void addLabelOptions(CLI::App& command, CaseLabels& labels);

/// --format with these words, of which the first stands where none is given.
void addFormatOption(CLI::App& command, std::string& format,
                     const std::vector<std::string>& formats);

// One function a command; each adds itself to the parser.
void addScanCommand(CommandLine& line, CLI::App& app);
void addReportCommand(CommandLine& line, CLI::App& app);
void addRemoveCommand(CommandLine& line, CLI::App& app);
void addExplainCommand(CommandLine& line, CLI::App& app);
void addInventoryCommand(CommandLine& line, CLI::App& app);
void addPrivacyCommand(CommandLine& line, CLI::App& app);
void addSettingsCommand(CommandLine& line, CLI::App& app);
void addListingCommand(CommandLine& line, CLI::App& app);
void addCatalogCommand(CommandLine& line, CLI::App& app);
void addGenerateCommand(CommandLine& line, CLI::App& app);

} // namespace pryvane::cli
