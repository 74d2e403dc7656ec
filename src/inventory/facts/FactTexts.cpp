#include "inventory/facts/FactTexts.h"

#include <algorithm>
#include <array>

namespace pryvane {

namespace {

constexpr std::array<FactKindWords, 3> kKinds = {{
    {"Who may watch", "permissions", "permissions"},
    {"What starts by itself", "startUp", "start-up"},
    {"Remote access and management", "remoteAccess", "remote-access"},
}};

constexpr std::array<GroupWords, kPermissionGroups> kGroups = {{
    {"Sees what you type",
     "A program that is allowed here can notice every key you press, passwords included. To take "
     "it back, open System Settings, Privacy & Security, Accessibility or Input Monitoring on the "
     "Mac and switch it off."},
    {"Sees the screen",
     "A program that is allowed here can take pictures of all that is on the screen. To take it "
     "back, open System Settings, Privacy & Security, Screen Recording on the Mac and switch it "
     "off."},
    {"Reads every file",
     "A program that is allowed here can open all files, mail and messages too. To take it back, "
     "open System Settings, Privacy & Security, Full Disk Access on the Mac and switch it off."},
    {"Listens or watches",
     "A program that is allowed here can use the microphone or the camera. To take it back, open "
     "System Settings, Privacy & Security, Microphone or Camera on the Mac and switch it off."},
    {"Acts for you",
     "A program that is allowed here can press keys and click as if it were you. To take it back, "
     "open System Settings, Privacy & Security, Accessibility on the Mac and switch it off."},
    {"Steers other programs",
     "A program that is allowed here can have another one do things, such as open a page or read "
     "mail. To take it back, open System Settings, Privacy & Security, Automation on the Mac and "
     "switch it off."},
    {"Other permissions",
     "These programs asked for single things, such as contacts, photos or one folder. To take "
     "one back, look for its name in System Settings, Privacy & Security on the Mac."},
}};

constexpr std::array<GroupWords, kStartUpKinds> kStartUp = {{
    {"Launch agents", "These run while somebody is logged in, mostly unseen. Ask whoever looks "
                      "after the Mac about those you do not know before you change anything."},
    {"Launch daemons", "These run from the Mac's start on, whoever is logged in. Ask whoever looks "
                       "after the Mac about those you do not know before you change anything."},
    {"Background items", "The system keeps this list of what may run in the background. On the "
                         "Mac it is in System Settings, General, Login Items."},
    {"Login items", "These are opened when somebody logs in. On the Mac they are in System "
                    "Settings, General, Login Items."},
    {"Login and logout hooks", "These run as the Mac's administrator at each login or logout, and "
                               "hardly anything honest still uses them. Ask whoever looks after "
                               "the Mac who set them."},
    {"Timed commands", "These run at set times without being asked. Ask whoever looks after the "
                       "Mac about those you do not know."},
    {"Rules of the event monitor", "These run a command when something happens, such as a start. "
                                   "Hardly anything honest uses them: ask who set them."},
    {"Scripts of the system", "These are run by the system itself at its start or each day, week "
                              "or month. A Mac comes with some of them."},
    {"Start-up items", "This is how very old programs started. A Mac of today ignores them."},
    {"Plug-ins of the login window", "These take part when somebody logs in and could see a "
                                     "password. Companies use them; ask who put them there."},
    {"Kernel and system extensions", "These become a part of the system and see more than a "
                                     "program does. On the Mac they are in System Settings, "
                                     "General, Login Items & Extensions."},
    {"Privileged helpers", "These do for an application what needs the administrator's rights. "
                           "Most belong to an application of the same name."},
    {"Files that a terminal runs", "Commands in these files run whenever a terminal is opened. "
                                   "Most Macs have some; only their names are listed here."},
}};

constexpr std::array<GroupWords, kRemoteKinds> kRemote = {{
    {"Ways in", "Somebody who knows a password or holds a key could use these from elsewhere. On "
                "the Mac they are switched in System Settings, General, Sharing."},
    {"Management", "A company, a school or a person may manage this Mac and see much of it. On the "
                   "Mac look in System Settings, General, Device Management."},
    {"Network", "Settings here can lead what you do on the network past somebody else. On the Mac "
                "they are in System Settings, Network."},
    {"Programs for remote access", "These well-known programs let somebody see and use the screen "
                                   "from elsewhere, and start by themselves. If you did not set "
                                   "one up, ask who did."},
}};

struct Service {
    std::string_view name; ///< without "kTCCService"
    PermissionGroup group;
    const char* words;
};

using enum PermissionGroup;
constexpr auto kServices = std::to_array<Service>({
    {"ListenEvent", SeesTyping, "keys and mouse"},
    {"Accessibility", SeesTyping, "control of programs"},
    {"ScreenCapture", SeesScreen, "the screen"},
    {"RemoteDesktop", SeesScreen, "the screen, from elsewhere"},
    {"SystemPolicyAllFiles", ReadsEveryFile, "all files"},
    {"SystemPolicySysAdminFiles", ReadsEveryFile, "files of the administration"},
    {"Microphone", ListensOrWatches, "the microphone"},
    {"Camera", ListensOrWatches, "the camera"},
    {"AudioCapture", ListensOrWatches, "the sound of other programs"},
    {"PostEvent", ActsForYou, "pressing keys and clicking"},
    {"AppleEvents", SteersPrograms, "another program"},
    {"AddressBook", Other, "contacts"},
    {"ContactsFull", Other, "contacts"},
    {"ContactsLimited", Other, "some contacts"},
    {"Calendar", Other, "calendar"},
    {"Reminders", Other, "reminders"},
    {"Photos", Other, "photos"},
    {"PhotosAdd", Other, "adding photos"},
    {"Location", Other, "the place where the Mac is"},
    {"SpeechRecognition", Other, "recognising speech"},
    {"MediaLibrary", Other, "music and films"},
    {"BluetoothAlways", Other, "Bluetooth"},
    {"Motion", Other, "movement"},
    {"Willow", Other, "the home's devices"},
    {"FocusStatus", Other, "whether you want no calls"},
    {"UserTracking", Other, "following you over programs"},
    {"SystemPolicyDesktopFolder", Other, "the Desktop folder"},
    {"SystemPolicyDocumentsFolder", Other, "the Documents folder"},
    {"SystemPolicyDownloadsFolder", Other, "the Downloads folder"},
    {"SystemPolicyNetworkVolumes", Other, "disks in the network"},
    {"SystemPolicyRemovableVolumes", Other, "disks that can be taken away"},
    {"SystemPolicyAppBundles", Other, "changing other applications"},
    {"SystemPolicyAppData", Other, "data of other applications"},
    {"FileProviderDomain", Other, "files that a service provides"},
    {"FileProviderPresence", Other, "noticing that files are used"},
    {"DeveloperTool", Other, "running programs that the system would not"},
    {"EndpointSecurityClient", Other, "what all programs do"},
    {"Ubiquity", Other, "iCloud"},
    {"Liverpool", Other, "iCloud (data of applications)"},
    {"ShareKit", Other, "sharing with others"},
});

[[nodiscard]] const Service* serviceOf(std::string_view name)
{
    constexpr std::string_view kPrefix = "kTCCService";
    if (!name.starts_with(kPrefix))
        return nullptr;
    name.remove_prefix(kPrefix.size());
    const auto found = std::find_if(kServices.begin(), kServices.end(),
                                    [&](const Service& service) { return service.name == name; });
    return found == kServices.end() ? nullptr : &*found;
}

template <typename Row, std::size_t Count, typename Key>
[[nodiscard]] const Row& at(const std::array<Row, Count>& rows, Key key)
{
    return rows.at(static_cast<std::size_t>(key));
}

} // namespace

const FactKindWords& words(FactKind kind)
{
    return at(kKinds, kind);
}

const GroupWords& words(PermissionGroup group)
{
    return at(kGroups, group);
}

const GroupWords& words(StartUpKind kind)
{
    return at(kStartUp, kind);
}

const GroupWords& words(RemoteKind kind)
{
    return at(kRemote, kind);
}

PermissionGroup groupOf(std::string_view service)
{
    const Service* const known = serviceOf(service);
    return known ? known->group : PermissionGroup::Other;
}

std::string serviceText(std::string_view service)
{
    const Service* const known = serviceOf(service);
    return known ? known->words : std::string(service);
}

const char* decisionText(Decision decision)
{
    constexpr std::array<const char*, 4> kTexts = {"not known", "denied", "allowed", "limited"};
    return at(kTexts, decision);
}

/// The system's numbers; where sources disagree about one, it is the number that tells.
std::string decidedByText(const Permission& permission)
{
    if (permission.managed)
        return "a management profile";
    if (!permission.reason)
        return {};
    const char* who = "not known";
    switch (*permission.reason) {
    case 2: // asked and agreed
    case 3: // set in the settings
        who = "you";
        break;
    case 4:  // set
    case 5:  // a service's rule
    case 11: // built into the program
    case 12: // by the program's kind
        who = "the system";
        break;
    case 6:
        who = "a management profile";
        break;
    default:
        break;
    }
    return std::string(who) + " (" + std::to_string(*permission.reason) + ")";
}

const char* onOffText(OnOff state)
{
    constexpr std::array<const char*, 3> kTexts = {"not known", "on", "off"};
    return at(kTexts, state);
}

std::string whereaboutsText(const ProgramOnDisk& program)
{
    constexpr std::array<const char*, 3> kTexts = {"not known", "still there", "missing"};
    std::string text = at(kTexts, program.whereabouts);
    switch (program.place) {
    case PlaceKind::HiddenFolder:
        return text + ", in a hidden folder";
    case PlaceKind::TemporaryFolder:
        return text + ", in a temporary folder";
    case PlaceKind::Shared:
        return text + ", in the folder shared by all";
    case PlaceKind::Home:
        return text + ", in the home of " + program.home;
    case PlaceKind::NotKnown:
    case PlaceKind::Usual:
        break;
    }
    return text;
}

std::string whoseText(const std::string& user)
{
    return user.empty() ? "whole Mac" : user;
}

const char* stateText(SourceNote::State state)
{
    constexpr std::array<const char*, 4> kTexts = {"", "not read", "not understood",
                                                   "only partly read"};
    return at(kTexts, state);
}

} // namespace pryvane
