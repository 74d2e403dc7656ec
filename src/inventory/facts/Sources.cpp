#include "inventory/facts/Sources.h"

#include <array>

namespace pryvane {

namespace {

using enum FactKind;
using enum FactReader;

constexpr auto kSources = std::to_array<FactSource>({
    // Who may watch.
    {Permissions, "/Library/Application Support/com.apple.TCC/TCC.db", PermissionDatabase,
     "permissions for the whole Mac", "10.10 to 27"},
    {Permissions, "~/Library/Application Support/com.apple.TCC/TCC.db", PermissionDatabase,
     "permissions of each account", "10.10 to 26"},
    {Permissions,
     "/private/var/containers/Data/ProtectedSystem/*/Data/Library/Application "
     "Support/com.apple.TCC/TCC.db",
     PermissionDatabase,
     "permissions of each account, without its name",
     "27",
     {},
     {},
     true},
    {Permissions, "/Applications/*.app/Contents/Info.plist", ApplicationNames,
     "which application an identifier belongs to", "all"},
    {Permissions, "/Applications/*/*.app/Contents/Info.plist", ApplicationNames,
     "which application an identifier belongs to", "all"},
    {Permissions, "/System/Applications/*.app/Contents/Info.plist", ApplicationNames,
     "which application an identifier belongs to", "10.15 to 27"},
    {Permissions, "/System/Applications/Utilities/*.app/Contents/Info.plist", ApplicationNames,
     "which application an identifier belongs to", "10.15 to 27"},
    {Permissions, "~/Applications/*.app/Contents/Info.plist", ApplicationNames,
     "which application an identifier belongs to", "all"},

    // What starts.
    {StartUp, "/private/var/db/dslocal/nodes/Default/users/*.plist", Accounts,
     "which account an identifier belongs to", "10.5 to 27"},
    {StartUp, "/private/var/db/com.apple.xpc.launchd/disabled.plist", DisabledJobs,
     "jobs that were switched off or on", "10.10 to 27"},
    {StartUp, "/private/var/db/com.apple.xpc.launchd/disabled.*.plist", DisabledJobs,
     "jobs that were switched off or on, by account", "10.10 to 27"},
    {StartUp, "/private/var/db/launchd.db/com.apple.launchd/overrides.plist", DisabledJobs,
     "jobs that were switched off or on", "10.6 to 10.9"},
    {StartUp, "/Library/LaunchDaemons/*", LaunchJob, "jobs of the whole Mac", "10.4 to 27",
     StartUpKind::LaunchDaemon},
    {StartUp, "/Library/LaunchAgents/*", LaunchJob, "jobs for whoever logs in", "10.4 to 27"},
    {StartUp, "~/Library/LaunchAgents/*", LaunchJob, "jobs of each account", "10.4 to 27"},
    {StartUp, "/System/Library/LaunchDaemons/*", LaunchJob, "jobs of the system", "10.4 to 27",
     StartUpKind::LaunchDaemon},
    {StartUp, "/System/Library/LaunchAgents/*", LaunchJob, "jobs of the system", "10.4 to 27"},
    {StartUp, "/Applications/*.app/Contents/Library/LaunchAgents/*", LaunchJob,
     "jobs inside applications", "13 to 27"},
    {StartUp, "/Applications/*.app/Contents/Library/LaunchDaemons/*", LaunchJob,
     "jobs inside applications", "13 to 27", StartUpKind::LaunchDaemon},
    {StartUp, "/Applications/*.app/Contents/Library/LoginItems/*", Names,
     "login items inside applications", "10.6 to 27", StartUpKind::LoginItem},
    {StartUp, "~/Applications/*.app/Contents/Library/LaunchAgents/*", LaunchJob,
     "jobs inside applications", "13 to 27"},
    {StartUp, "~/Applications/*.app/Contents/Library/LaunchDaemons/*", LaunchJob,
     "jobs inside applications", "13 to 27", StartUpKind::LaunchDaemon},
    {StartUp, "~/Applications/*.app/Contents/Library/LoginItems/*", Names,
     "login items inside applications", "10.6 to 27", StartUpKind::LoginItem},
    {StartUp, "/private/var/db/com.apple.backgroundtaskmanagement/BackgroundItems-v*.btm",
     BackgroundItems, "background items, the newest file of them", "13 to 27",
     StartUpKind::BackgroundItem},
    {StartUp,
     "~/Library/Application Support/com.apple.backgroundtaskmanagementagent/backgrounditems.btm",
     BackgroundItems, "login items", "10.13 to 12", StartUpKind::BackgroundItem},
    {StartUp, "~/Library/Preferences/com.apple.loginitems.plist", LoginItems, "login items",
     "10.5 to 10.12", StartUpKind::LoginItem},
    {StartUp, "/Library/Preferences/com.apple.loginwindow.plist", LoginHooks,
     "login and logout hooks", "10.3 to 27", StartUpKind::Hook},
    {StartUp, "~/Library/Preferences/com.apple.loginwindow.plist", LoginHooks,
     "login and logout hooks", "10.3 to 27", StartUpKind::Hook},
    {StartUp, "/private/var/at/tabs/*", UserCrontab, "timed commands (cron) of an account",
     "10.4 to 27", StartUpKind::Scheduled},
    {StartUp, "/private/etc/crontab", SystemCrontab, "timed commands (cron) of the system",
     "10.0 to 27", StartUpKind::Scheduled},
    {StartUp, "/private/var/at/jobs/*", Names, "commands to be run once (at)", "10.4 to 27",
     StartUpKind::Scheduled},
    {StartUp, "/private/etc/periodic/*/*", Names, "scripts run each day, week or month",
     "10.0 to 27", StartUpKind::Script},
    {StartUp, "/usr/local/etc/periodic/*/*", Names, "scripts run each day, week or month",
     "10.0 to 27", StartUpKind::Script},
    {StartUp, "/private/etc/emond.d/rules/*.plist", EventRules, "rules of the event monitor",
     "10.5 to 12", StartUpKind::EventRule},
    {StartUp, "/private/etc/rc.common", Names, "script of the system's start", "10.0 to 27",
     StartUpKind::Script},
    {StartUp, "/private/etc/rc.local", Names, "script of the system's start", "10.0 to 10.9",
     StartUpKind::Script},
    {StartUp, "/private/etc/launchd.conf", Names, "commands of the system's start", "10.4 to 10.9",
     StartUpKind::Script},
    {StartUp, "/Library/StartupItems/*", Names, "start-up items", "10.0 to 10.10",
     StartUpKind::StartupItem},
    {StartUp, "/Library/Security/SecurityAgentPlugins/*", Names, "plug-ins of the login window",
     "10.4 to 27", StartUpKind::LoginPlugIn},
    {StartUp, "/Library/Extensions/*.kext", Names, "kernel extensions", "10.9 to 27",
     StartUpKind::Extension},
    {StartUp, "/Library/SystemExtensions/db.plist", SystemExtensions, "system extensions",
     "10.15 to 27", StartUpKind::Extension},
    {StartUp, "/Library/PrivilegedHelperTools/*", Names, "helpers that run as root", "10.6 to 27",
     StartUpKind::Helper},
    {StartUp, "/private/etc/profile", Names, "file that a terminal runs", "10.0 to 27",
     StartUpKind::ShellFile},
    {StartUp, "/private/etc/bashrc", Names, "file that a terminal runs", "10.2 to 27",
     StartUpKind::ShellFile},
    {StartUp, "/private/etc/zshenv", Names, "file that a terminal runs", "10.2 to 27",
     StartUpKind::ShellFile},
    {StartUp, "/private/etc/zprofile", Names, "file that a terminal runs", "10.2 to 27",
     StartUpKind::ShellFile},
    {StartUp, "/private/etc/zshrc", Names, "file that a terminal runs", "10.2 to 27",
     StartUpKind::ShellFile},
    {StartUp, "~/.profile", Names, "file that a terminal runs", "10.0 to 27",
     StartUpKind::ShellFile},
    {StartUp, "~/.bash_profile", Names, "file that a terminal runs", "10.2 to 27",
     StartUpKind::ShellFile},
    {StartUp, "~/.bashrc", Names, "file that a terminal runs", "10.2 to 27",
     StartUpKind::ShellFile},
    {StartUp, "~/.zshenv", Names, "file that a terminal runs", "10.2 to 27",
     StartUpKind::ShellFile},
    {StartUp, "~/.zprofile", Names, "file that a terminal runs", "10.2 to 27",
     StartUpKind::ShellFile},
    {StartUp, "~/.zshrc", Names, "file that a terminal runs", "10.2 to 27", StartUpKind::ShellFile},
    {StartUp, "~/.zlogin", Names, "file that a terminal runs", "10.2 to 27",
     StartUpKind::ShellFile},

    // Who may come in from elsewhere. The lists of switched jobs and what starts are read for it
    // too.
    {RemoteAccess, "/Library/Application Support/Apple/Remote Desktop/RemoteManagement.launchd",
     Switch, "Remote management", "10.3 to 27"},
    {RemoteAccess, "/Library/Preferences/com.apple.RemoteManagement.plist", RemoteManagement,
     "switches of remote management", "10.3 to 27"},
    {RemoteAccess, "/Library/Preferences/com.apple.VNCSettings.txt", Switch,
     "Screen sharing with a password of its own", "10.3 to 27"},
    {RemoteAccess, "~/.ssh/authorized_keys", AuthorisedKeys, "keys that may log in", "all"},
    {RemoteAccess, "~/.ssh/authorized_keys2", AuthorisedKeys, "keys that may log in", "all"},
    {RemoteAccess, "/private/etc/sudoers.d/*", Names, "File of rules for acting as root", "all"},
    {RemoteAccess,
     "/private/var/db/ConfigurationProfiles/Settings/.cloudConfigProfileInstalled",
     Switch,
     "Enrolled with an organisation",
     "10.9 to 27",
     {},
     RemoteKind::Management},
    {RemoteAccess,
     "/private/var/db/ConfigurationProfiles/Settings/.cloudConfigRecordFound",
     Switch,
     "Assigned to an organisation",
     "10.9 to 27",
     {},
     RemoteKind::Management},
    {RemoteAccess,
     "/private/var/db/ConfigurationProfiles/Settings/.profilesAreInstalled",
     Switch,
     "Configuration profiles are installed",
     "10.9 to 27",
     {},
     RemoteKind::Management},
    {RemoteAccess,
     "/Library/Managed Preferences/*.plist",
     Names,
     "Settings made by a profile",
     "10.7 to 27",
     {},
     RemoteKind::Management},
    {RemoteAccess,
     "/Library/Managed Preferences/*/*.plist",
     Names,
     "Settings made by a profile",
     "10.7 to 27",
     {},
     RemoteKind::Management},
    {RemoteAccess,
     "/private/etc/hosts",
     Hosts,
     "names beyond the default",
     "all",
     {},
     RemoteKind::Network},
    {RemoteAccess,
     "/private/etc/resolver/*",
     Names,
     "Name servers for a domain",
     "all",
     {},
     RemoteKind::Network},
    {RemoteAccess,
     "/Library/Preferences/SystemConfiguration/preferences.plist",
     NetworkSettings,
     "name servers and proxies",
     "10.1 to 27",
     {},
     RemoteKind::Network},
});

constexpr auto kTools = std::to_array<RemoteTool>({
    {"teamviewer", "TeamViewer"},
    {"anydesk", "AnyDesk"},
    {"rustdesk", "RustDesk"},
    {"logmein", "LogMeIn"},
    {"gotomypc", "GoToMyPC"},
    {"splashtop", "Splashtop"},
    {"screenconnect", "ScreenConnect"},
    {"connectwisecontrol", "ConnectWise Control"},
    {"bomgar", "Bomgar"},
    {"beyondtrust", "BeyondTrust Remote Support"},
    {"chromoting", "Chrome Remote Desktop"},
    {"chromeremotedesktop", "Chrome Remote Desktop"},
    {"realvnc", "RealVNC"},
    {"vncserver", "a VNC server"},
    {"vineserver", "Vine Server (VNC)"},
    {"zohoassist", "Zoho Assist"},
    {"dwagent", "DWService agent"},
    {"parsecd", "Parsec"},
    {"nomachine", "NoMachine"},
    {"supremo", "Supremo"},
    {"ultraviewer", "UltraViewer"},
    {"meshagent", "MeshCentral agent"},
    {"isllight", "ISL Light"},
    {"dameware", "Dameware"},
});

constexpr auto kServices = std::to_array<RemoteService>({
    {"com.openssh.sshd", "Remote login (SSH)"},
    {"com.apple.screensharing", "Screen sharing"},
    {"com.apple.AEServer", "Remote Apple events"},
    {"com.apple.smbd", "File sharing"},
});

} // namespace

std::span<const FactSource> factSources()
{
    return kSources;
}

bool fitsPattern(std::string_view name, std::string_view pattern)
{
    const std::size_t star = pattern.find('*');
    if (star == std::string_view::npos)
        return name == pattern;
    const std::string_view before = pattern.substr(0, star);
    const std::string_view after = pattern.substr(star + 1);
    return name.size() >= before.size() + after.size() && name.starts_with(before) &&
           name.ends_with(after);
}

std::span<const RemoteTool> remoteTools()
{
    return kTools;
}

std::span<const RemoteService> remoteServices()
{
    return kServices;
}

} // namespace pryvane
