#include "app/program/Arguments.h"

#include "core/Escape.h"
#include "hosts/posix/CurrentUser.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iostream>

namespace pryvane {

namespace {

constexpr int kMistake = 2;

int complain(const std::string& what)
{
    std::cerr << "pryvane: " << forTerminal(what) << "\n";
    return kMistake;
}

/// The desktop may hand the call over to a program that runs in another folder.
std::string absolute(const std::string& folder)
{
    std::error_code ignored;
    const auto path = std::filesystem::absolute(folder, ignored).lexically_normal();
    return ignored ? folder : path.string();
}

} // namespace

VolumeChoice Arguments::choice() const
{
    const std::string folder = volume.value_or("/");
    return {folder, user.value_or(usualUser(folder)), caseSensitive, {}};
}

std::string usualUser(const std::string& folder)
{
    return folder == "/" ? loginUser() : std::string();
}

ParsedArguments parseArguments(int argc, char** argv)
{
    Arguments arguments;
    std::string volume, user;
    bool allUsers = false;
    CLI::App app("Looks for spyware on a Mac's disk, in a window.", "pryvane");
    app.set_version_flag("--version", "pryvane " PRYVANE_VERSION " (" PRYVANE_BUILD ")");
    app.add_option("--volume", volume,
                   "Folder that stands for the Mac's root, an image of its disk, or a list of "
                   "its names; default /")
        ->type_name("DIR|FILE");
    app.add_option("--user", user,
                   "Short name of the user on that Mac; default: yours on /, every user elsewhere")
        ->type_name("NAME");
    app.add_flag("--all-users", allUsers, "Look at every user of that Mac")->excludes("--user");
    app.add_flag("--case-sensitive", arguments.caseSensitive,
                 "The disk tells upper from lower case");
    app.add_flag("--scan", arguments.scan, "Start a scan at once");
    app.footer(
        "The command line is pryvane-cli. PRYVANE_DATA_DIR moves the store; PRYVANE_APPEARANCE\n"
        "(light, dark, light-contrast, dark-contrast) and PRYVANE_FRAME=desktop change the "
        "looks.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        std::cout << app.help();
        return {};
    } catch (const CLI::CallForVersion&) {
        std::cout << app.version() << "\n";
        return {};
    } catch (const CLI::ParseError& error) {
        return {{}, complain(std::string(error.what()) + "; see pryvane --help")};
    }
    if (app.count("--volume") > 0)
        arguments.volume = absolute(volume);
    if (app.count("--user") > 0) {
        if (!isShortName(user))
            return {{}, complain(notAShortName(user))};
        arguments.user = user;
    }
    if (allUsers)
        arguments.user = "";
    return {arguments, 0};
}

} // namespace pryvane
