#include "cli/CommandLine.h"

#include "cli/Host.h"
#include "core/Escape.h"
#include "removal/disk/ConfinedWork.h"

#include <iostream>
#include <sstream>

namespace pryvane::cli {

namespace {

constexpr const char* kDescription =
    "Looks on a Mac's disk for the files, launch agents, extensions and applications that known\n"
    "spyware leaves behind. A scan looks at names only; nothing is uploaded or downloaded.";

constexpr const char* kFooter =
    "First steps:\n"
    "  pryvane-cli scan                                  look through this Mac\n"
    "  pryvane-cli scan --volume /mnt/mac --user alice   look through a mounted Mac disk\n"
    "  pryvane-cli scan --deep                           every file of the home as well\n"
    "  pryvane-cli report list                           earlier scans, newest first\n"
    "  pryvane-cli report show latest                    the last scan's findings\n"
    "  pryvane-cli privacy list                          private data, with its size\n"
    "  pryvane-cli remove latest --all --dry-run         what removing them would do\n"
    "  pryvane-cli explain /Library/LaunchAgents/x.plist why a path would be flagged\n"
    "\n"
    "Exit codes: 0 clean or done, 1 findings, 2 error or bad usage, 3 nothing found but not\n"
    "everything could be looked at, 130 interrupted.\n"
    "PRYVANE_DATA_DIR names the folder of the report store; NO_COLOR switches colour off.\n"
    "'pryvane-cli COMMAND --help' tells more about a command.";

/// The parser's messages, on one line and without raw bytes from the arguments.
std::string oneLine(const std::string& message)
{
    std::string text = message;
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    std::replace(text.begin(), text.end(), '\n', ' ');
    return forTerminal(text);
}

} // namespace

std::string versionText()
{
    return "pryvane-cli " PRYVANE_VERSION "\nRemoval is " + std::string(kernelConfinementText());
}

CommandLine::CommandLine() : m_app(kDescription, "pryvane-cli")
{
    m_app.footer(kFooter);
    m_app.require_subcommand(1);
    m_app.set_version_flag("--version", versionText);
    m_app.get_formatter()->column_width(34);
    addScanCommand(*this, m_app);
    addRemoveCommand(*this, m_app);
    addReportCommand(*this, m_app);
    addExplainCommand(*this, m_app);
    addInventoryCommand(*this, m_app);
    addPrivacyCommand(*this, m_app);
    addSettingsCommand(*this, m_app);
    addListingCommand(*this, m_app);
    addCatalogCommand(*this, m_app);
    addGenerateCommand(*this, m_app);
}

CLI::App* CommandLine::addCommand(CLI::App& parent, const std::string& name,
                                  const std::string& description, Action action)
{
    CLI::App* command = parent.add_subcommand(name, description);
    command->callback([this, action = std::move(action)] { m_chosen = action; });
    return command;
}

int CommandLine::run(std::vector<std::string> arguments, const Console& console)
{
    m_chosen = {};
    try {
        std::reverse(arguments.begin(), arguments.end()); // the order that the parser takes
        m_app.parse(arguments);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
            std::ostringstream ignored;
            m_app.exit(error, console.out, ignored); // help or version
            return kDone;
        }
        return console.fail(oneLine(error.what()) + "; see pryvane-cli --help");
    }
    return m_chosen ? m_chosen(console) : console.fail("no command given; see pryvane-cli --help");
}

void addVolumeOptions(CLI::App& command, VolumeArguments& arguments)
{
    auto* volume =
        command
            .add_option("--volume", arguments.volume,
                        "Folder at which the Mac's disk is mounted; it stands for / (default: /)")
            ->type_name("DIR");
    auto* listing =
        command
            .add_option("--listing", arguments.listing,
                        "A list of the disk's names in place of the disk, or - for standard input: "
                        "paths, find -ls, bodyfile, mtree or JSON Lines")
            ->type_name("FILE")
            ->excludes(volume);
    command
        .add_option("--strip", arguments.strip,
                    "With --listing: what every path begins with, to be taken off")
        ->type_name("PREFIX")
        ->needs(listing);
    auto* image = command
                      .add_option("--image", arguments.image,
                                  "A disk image (raw, split, E01, VMDK, VHD) or device in place "
                                  "of the disk; read without mounting")
                      ->type_name("FILE")
                      ->excludes(volume)
                      ->excludes(listing);
    command
        .add_option("--partition", arguments.partition,
                    "With --image: the partition's number, as listing --list shows it")
        ->type_name("N")
        ->check(CLI::Range(1U, 10'000U))
        ->needs(image);
    command
        .add_option("--apfs-volume", arguments.apfsVolume,
                    "With --image: name or number of the APFS volume")
        ->type_name("NAME|N")
        ->needs(image);
    command
        .add_option("--password-file", arguments.passwordFile,
                    "With --image: a file whose first line opens an encrypted volume")
        ->type_name("FILE")
        ->needs(image);
    command.add_flag("--hash", arguments.hash,
                     "Tell the SHA-256 of a list's or an image's bytes; a scan also that of each "
                     "finding that is a file, whose contents it reads for it");
    command
        .add_option("--user", arguments.users,
                    "Short name of a user of the Mac to look at; may be repeated (default: whoever "
                    "runs this on /, every user on any other disk)")
        ->type_name("NAME")
        ->allow_extra_args(false);
    command.add_flag("--all-users", arguments.allUsers, "Look at every user of the Mac")
        ->excludes("--user");
    command.add_flag("--case-sensitive", arguments.caseSensitive,
                     "Compare names exactly, not as a Mac's disk does");
}

void addLabelOptions(CLI::App& command, CaseLabels& labels)
{
    const CLI::Validator isLine(
        [](const std::string& text) {
            return text.size() > kLongestLabel
                       ? "is longer than " + std::to_string(kLongestLabel) + " bytes"
                       : std::string();
        },
        "");
    command.add_option("--label", labels.label, "What you call this disk; kept with the report")
        ->check(isLine)
        ->type_name("TEXT");
    command.add_option("--case", labels.caseName, "What it belongs to; kept likewise")
        ->check(isLine)
        ->type_name("TEXT");
    command.add_option("--examiner", labels.examiner, "Who looks at it; kept likewise")
        ->check(isLine)
        ->type_name("TEXT");
}

void addFormatOption(CLI::App& command, std::string& format,
                     const std::vector<std::string>& formats)
{
    format = formats.front();
    std::string words;
    for (std::size_t i = 0; i < formats.size(); ++i)
        words += (i == 0 ? "" : i + 1 < formats.size() ? ", " : " or ") + formats[i];
    command.add_option("--format", format, words)
        ->check(CLI::IsMember(formats))
        ->type_name("FORMAT");
}

} // namespace pryvane::cli
