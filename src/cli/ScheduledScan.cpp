#include "cli/ScheduledScan.h"

#include "cli/Console.h"
#include "hosts/Host.h"
#include "hosts/posix/CurrentUser.h"
#include "scan/SchedulePlan.h"
#include "store/SqliteUserDefaults.h"

namespace pryvane::cli {

namespace {

VolumeArguments volumeOf(const ScheduledDisk& disk)
{
    VolumeArguments volume;
    volume.volume = disk.folder;
    volume.caseSensitive = disk.caseSensitive;
    volume.allUsers = disk.user.empty();
    // Whose homes are meant on the own disk is known without a name, which need not be a short one.
    if (!disk.user.empty() && !(disk.folder == "/" && disk.user == loginUser()))
        volume.users = {disk.user};
    return volume;
}

} // namespace

Result<std::optional<DueScan>> dueScan(const Console& console)
{
    ConsoleLog log(console);
    SystemClock clock;
    clock.pause(kForTheWindow, console.interrupted);
    const auto store = SqliteUserDefaults::openReadOnly(makeHost()->dataFolder(), log);
    if (!store)
        return store.error();
    UserDefaults& defaults = *store->defaults;
    const auto plan = storedSchedule(defaults);
    const auto moment = plan ? plan->latest(clock.now()) : std::nullopt;
    if (!moment || isScheduledTaken(defaults, *moment, clock.now())) {
        console.say(!plan     ? "no scan is scheduled"
                    : !moment ? "the first scan of the schedule is still to come"
                              : "the scan that was due has been done");
        return std::optional<DueScan>();
    }
    const auto disk = storedScheduledDisk(defaults);
    return std::optional(DueScan{*moment, disk ? volumeOf(*disk) : VolumeArguments()});
}

} // namespace pryvane::cli
