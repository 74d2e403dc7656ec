#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/Host.h"
#include "platform/UserDefaults.h"

#include <ostream>

namespace pryvane::cli {

namespace {

struct RemoteDesktopArguments {
    bool ignore = false;
    bool show = false;
};

int runRemoteDesktop(const RemoteDesktopArguments& arguments, const Console& console)
{
    const bool writes = arguments.ignore || arguments.show;
    auto host = Host::open(console, {}, writes ? StoreUse::Write : StoreUse::Read);
    if (!host)
        return console.fail(host.error().message);
    UserDefaults& defaults = (*host)->defaults();
    if (writes) {
        if (const auto stored = defaults.set(preferences::kARD, arguments.show); !stored)
            return console.fail(stored.error().message);
    }
    const bool ignored = defaults.contains(preferences::kARD) && !defaults.get(preferences::kARD);
    console.out << "Apple Remote Desktop: "
                << (ignored ? "ignored (--show has scans tell it again)" : "told by scans") << "\n";
    return kDone;
}

} // namespace

void addSettingsCommand(CommandLine& line, CLI::App& app)
{
    CLI::App* parent = app.add_subcommand("settings", "Show and change what scans go by");
    parent->require_subcommand(1);
    const auto arguments = std::make_shared<RemoteDesktopArguments>();
    CLI::App* command = line.addCommand(
        *parent, "remote-desktop", "Whether scans tell that Apple Remote Desktop is set up",
        [arguments](const Console& console) { return runRemoteDesktop(*arguments, console); });
    auto* ignore = command->add_flag("--ignore", arguments->ignore, "From now on it is ignored");
    command->add_flag("--show", arguments->show, "From now on it is told (the default)")
        ->excludes(ignore);
    command->footer("Without an option it tells how it is set. The window goes by it, too.");
}

} // namespace pryvane::cli
