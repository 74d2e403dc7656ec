// Who may watch, what starts and who may come in.
#include "words/EngineText.h"

#include <QtGlobal>

namespace pryvane {

namespace {

constexpr EngineText kTexts[] = {
    {.english = QT_TRANSLATE_NOOP("Engine", "%1: not read, %2"), .inner = "2"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1: not understood, %2"), .inner = "2"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1: only partly read, %2"), .inner = "2"},
    {.english = QT_TRANSLATE_NOOP("Engine", "Who may watch")},
    {.english = QT_TRANSLATE_NOOP("Engine", "What starts by itself")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Remote access and management")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Sees what you type")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "A program that is allowed here can notice every key you press, passwords "
                   "included. To take it back, open System Settings, Privacy & Security, "
                   "Accessibility or Input Monitoring on the Mac and switch it off.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Sees the screen")},
    {.english = QT_TRANSLATE_NOOP("Engine",
                                  "A program that is allowed here can take pictures of all that is "
                                  "on the screen. To take it back, open System Settings, Privacy & "
                                  "Security, Screen Recording on the Mac and switch it off.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Reads every file")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "A program that is allowed here can open all files, mail and "
                                     "messages too. To take it back, open System Settings, Privacy "
                                     "& Security, Full Disk Access on the Mac and switch it off.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Listens or watches")},
    {.english = QT_TRANSLATE_NOOP("Engine",
                                  "A program that is allowed here can use the microphone or the "
                                  "camera. To take it back, open System Settings, Privacy & "
                                  "Security, Microphone or Camera on the Mac and switch it off.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Acts for you")},
    {.english = QT_TRANSLATE_NOOP("Engine",
                                  "A program that is allowed here can press keys and click as if "
                                  "it were you. To take it back, open System Settings, Privacy & "
                                  "Security, Accessibility on the Mac and switch it off.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Steers other programs")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "A program that is allowed here can have another one do things, such as open a "
                   "page or read mail. To take it back, open System Settings, Privacy & Security, "
                   "Automation on the Mac and switch it off.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Other permissions")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine",
         "These programs asked for single things, such as contacts, photos or one folder. To take "
         "one back, look for its name in System Settings, Privacy & Security on the Mac.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Launch agents")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "These run while somebody is logged in, mostly unseen. Ask whoever looks after "
                   "the Mac about those you do not know before you change anything.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Launch daemons")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "These run from the Mac's start on, whoever is logged in. Ask whoever looks "
                   "after the Mac about those you do not know before you change anything.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Background items")},
    {.english = QT_TRANSLATE_NOOP("Engine",
                                  "The system keeps this list of what may run in the background. "
                                  "On the Mac it is in System Settings, General, Login Items.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Login items")},
    {.english = QT_TRANSLATE_NOOP("Engine", "These are opened when somebody logs in. On the Mac "
                                            "they are in System Settings, General, Login Items.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Login and logout hooks")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine",
         "These run as the Mac's administrator at each login or logout, and hardly anything honest "
         "still uses them. Ask whoever looks after the Mac who set them.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Timed commands")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "These run at set times without being asked. Ask whoever "
                                     "looks after the Mac about those you do not know.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Rules of the event monitor")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "These run a command when something happens, such as a start. "
                                     "Hardly anything honest uses them: ask who set them.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Scripts of the system")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "These are run by the system itself at its start or each day, "
                                     "week or month. A Mac comes with some of them.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Start-up items")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "This is how very old programs started. A Mac of today ignores them.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Plug-ins of the login window")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "These take part when somebody logs in and could see a "
                                     "password. Companies use them; ask who put them there.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Kernel and system extensions")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "These become a part of the system and see more than a program does. On the Mac "
                   "they are in System Settings, General, Login Items & Extensions.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Privileged helpers")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "These do for an application what needs the administrator's "
                                     "rights. Most belong to an application of the same name.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Files that a terminal runs")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "Commands in these files run whenever a terminal is opened. "
                                     "Most Macs have some; only their names are listed here.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Ways in")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "Somebody who knows a password or holds a key could use these from elsewhere. "
                   "On the Mac they are switched in System Settings, General, Sharing.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Management")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "A company, a school or a person may manage this Mac and see much of it. On the "
                   "Mac look in System Settings, General, Device Management.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Network")},
    {.english = QT_TRANSLATE_NOOP("Engine",
                                  "Settings here can lead what you do on the network past somebody "
                                  "else. On the Mac they are in System Settings, Network.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Programs for remote access")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "These well-known programs let somebody see and use the screen from elsewhere, "
                   "and start by themselves. If you did not set one up, ask who did.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "keys and mouse")},
    {.english = QT_TRANSLATE_NOOP("Engine", "control of programs")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the screen")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the screen, from elsewhere")},
    {.english = QT_TRANSLATE_NOOP("Engine", "all files")},
    {.english = QT_TRANSLATE_NOOP("Engine", "files of the administration")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the microphone")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the camera")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the sound of other programs")},
    {.english = QT_TRANSLATE_NOOP("Engine", "pressing keys and clicking")},
    {.english = QT_TRANSLATE_NOOP("Engine", "another program")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the disk does not say")},
    {.english = QT_TRANSLATE_NOOP("Engine", "account not known (%1)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "another program: %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "contacts")},
    {.english = QT_TRANSLATE_NOOP("Engine", "some contacts")},
    {.english = QT_TRANSLATE_NOOP("Engine", "calendar")},
    {.english = QT_TRANSLATE_NOOP("Engine", "reminders")},
    {.english = QT_TRANSLATE_NOOP("Engine", "photos")},
    {.english = QT_TRANSLATE_NOOP("Engine", "adding photos")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the place where the Mac is")},
    {.english = QT_TRANSLATE_NOOP("Engine", "recognising speech")},
    {.english = QT_TRANSLATE_NOOP("Engine", "music and films")},
    {.english = QT_TRANSLATE_NOOP("Engine", "movement")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the home's devices")},
    {.english = QT_TRANSLATE_NOOP("Engine", "whether you want no calls")},
    {.english = QT_TRANSLATE_NOOP("Engine", "following you over programs")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the Desktop folder")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the Documents folder")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the Downloads folder")},
    {.english = QT_TRANSLATE_NOOP("Engine", "disks in the network")},
    {.english = QT_TRANSLATE_NOOP("Engine", "disks that can be taken away")},
    {.english = QT_TRANSLATE_NOOP("Engine", "changing other applications")},
    {.english = QT_TRANSLATE_NOOP("Engine", "data of other applications")},
    {.english = QT_TRANSLATE_NOOP("Engine", "files that a service provides")},
    {.english = QT_TRANSLATE_NOOP("Engine", "noticing that files are used")},
    {.english = QT_TRANSLATE_NOOP("Engine", "running programs that the system would not")},
    {.english = QT_TRANSLATE_NOOP("Engine", "what all programs do")},
    {.english = QT_TRANSLATE_NOOP("Engine", "iCloud (data of applications)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "sharing with others")},
    {.english = QT_TRANSLATE_NOOP("Engine", "denied")},
    {.english = QT_TRANSLATE_NOOP("Engine", "allowed")},
    {.english = QT_TRANSLATE_NOOP("Engine", "limited")},
    {.english = QT_TRANSLATE_NOOP("Engine", "a management profile")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the system")},
    {.english = QT_TRANSLATE_NOOP("Engine", "on")},
    {.english = QT_TRANSLATE_NOOP("Engine", "off")},
    {.english = QT_TRANSLATE_NOOP("Engine", "still there")},
    {.english = QT_TRANSLATE_NOOP("Engine", "missing")},
    {.english = QT_TRANSLATE_NOOP("Engine", "whole Mac")},
    {.english = QT_TRANSLATE_NOOP("Engine", "you")},
    {.english = QT_TRANSLATE_NOOP("Engine", "not known, in a hidden folder")},
    {.english = QT_TRANSLATE_NOOP("Engine", "not known, in a temporary folder")},
    {.english = QT_TRANSLATE_NOOP("Engine", "not known, in the folder shared by all")},
    {.english = QT_TRANSLATE_NOOP("Engine", "not known, in the home of %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "still there, in a hidden folder")},
    {.english = QT_TRANSLATE_NOOP("Engine", "still there, in a temporary folder")},
    {.english = QT_TRANSLATE_NOOP("Engine", "still there, in the folder shared by all")},
    {.english = QT_TRANSLATE_NOOP("Engine", "still there, in the home of %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "missing, in a hidden folder")},
    {.english = QT_TRANSLATE_NOOP("Engine", "missing, in a temporary folder")},
    {.english = QT_TRANSLATE_NOOP("Engine", "missing, in the folder shared by all")},
    {.english = QT_TRANSLATE_NOOP("Engine", "missing, in the home of %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "you (%1)"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "the system (%1)"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "a management profile (%1)"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "not known (%1)"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "Program")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Decision")},
    {.english = QT_TRANSLATE_NOOP("Engine", "What for")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Decided by")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Since")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Whose")},
    {.english = QT_TRANSLATE_NOOP("Engine", "On the disk")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Path or identifier")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Source")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Name")},
    {.english = QT_TRANSLATE_NOOP("Engine", "State")},
    {.english = QT_TRANSLATE_NOOP("Engine", "When")},
    {.english = QT_TRANSLATE_NOOP("Engine", "As")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Application")},
    {.english = QT_TRANSLATE_NOOP("Engine", "What")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Detail")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Group")},
    {.english = QT_TRANSLATE_NOOP("Engine",
                                  "This disk holds more than any Mac's: not all of it is listed.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "reading it took too long")},
    {.english = QT_TRANSLATE_NOOP("Engine", "it could not be looked for")},
    {.english = QT_TRANSLATE_NOOP("Engine", "it holds more than any Mac's; the rest was left out")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "what was last written to the database and waits here is not read")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the disk holds more than is read of any")},
    {.english = QT_TRANSLATE_NOOP("Engine", "it does not begin like one")},
    {.english = QT_TRANSLATE_NOOP("Engine", "it is no dictionary")},
    {.english = QT_TRANSLATE_NOOP("Engine", "it is no list of rules")},
    {.english = QT_TRANSLATE_NOOP("Engine", "it is not understood: %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the database is not understood: %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the background items are not understood: %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Starts by itself: %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Assigned to an organisation")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Configuration profiles are installed")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Enrolled with an organisation")},
    {.english = QT_TRANSLATE_NOOP("Engine", "File of rules for acting as root")},
    {.english = QT_TRANSLATE_NOOP("Engine", "File sharing")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Name servers for a domain")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Remote Apple events")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Remote login (SSH)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Remote management")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Screen sharing")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Screen sharing with a password of its own")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Settings made by a profile")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Proxy for web pages")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Proxy for secure web pages")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Proxy for all connections (SOCKS)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Proxy settings from a file")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Keys that may log in")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Line of the hosts file")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Lines of the hosts file")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Name servers (DNS) set by hand")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Remote management: every account may be used")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "Remote management: viewers with a password of their own")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "Remote management: asking for leave to share the screen")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Remote management: shown in the menu bar")},
    {.english = QT_TRANSLATE_N_NOOP("Engine", "%n keys"), .one = "%n key"},
    {.english = QT_TRANSLATE_N_NOOP("Engine", "%n more lines"), .one = "%n more line"},
    {.english = QT_TRANSLATE_NOOP("Engine", "when loaded")},
    {.english = QT_TRANSLATE_NOOP("Engine", "kept running")},
    {.english = QT_TRANSLATE_NOOP("Engine", "kept running under conditions")},
    {.english = QT_TRANSLATE_NOOP("Engine", "when asked for")},
    {.english = QT_TRANSLATE_NOOP("Engine", "when a disk is mounted")},
    {.english = QT_TRANSLATE_NOOP("Engine", "at login")},
    {.english = QT_TRANSLATE_NOOP("Engine", "at every login")},
    {.english = QT_TRANSLATE_NOOP("Engine", "at every logout")},
    {.english = QT_TRANSLATE_NOOP("Engine", "every minute")},
    {.english = QT_TRANSLATE_N_NOOP("Engine", "every %n seconds")},
    {.english = QT_TRANSLATE_NOOP("Engine", "at the event %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "when %1 changes")},
    {.english = QT_TRANSLATE_NOOP("Engine", "while something lies in %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "switched off for %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "switched on for %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 (hidden)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "at %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Google Chrome extensions")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Firefox add-ons")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Safari extensions")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Application support")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Applications")},
    {.english = QT_TRANSLATE_NOOP("Engine", "What extensions may do")},
    {.english = QT_TRANSLATE_NOOP("Engine", "reads and changes all web sites")},
    {.english = QT_TRANSLATE_NOOP("Engine", "talks to programs on this Mac")},
    {.english = QT_TRANSLATE_NOOP("Engine", "controls pages as a debugger does")},
    {.english = QT_TRANSLATE_NOOP("Engine", "redirects all traffic")},
    {.english = QT_TRANSLATE_NOOP("Engine", "switches other extensions on and off")},
    {.english = QT_TRANSLATE_NOOP("Engine", "reads and sets cookies")},
    {.english = QT_TRANSLATE_NOOP("Engine", "reads the history")},
    {.english = QT_TRANSLATE_NOOP("Engine", "sees the addresses and titles of all tabs")},
    {.english = QT_TRANSLATE_NOOP("Engine", "sees each page that is opened")},
    {.english = QT_TRANSLATE_NOOP("Engine", "sees what pages load")},
    {.english = QT_TRANSLATE_NOOP("Engine", "changes what pages load")},
    {.english = QT_TRANSLATE_NOOP("Engine", "blocks or redirects what pages load")},
    {.english = QT_TRANSLATE_NOOP("Engine", "runs programs in pages")},
    {.english = QT_TRANSLATE_NOOP("Engine", "records the screen")},
    {.english = QT_TRANSLATE_NOOP("Engine", "records pages")},
    {.english = QT_TRANSLATE_NOOP("Engine", "saves pages")},
    {.english = QT_TRANSLATE_NOOP("Engine", "reads the clipboard")},
    {.english = QT_TRANSLATE_NOOP("Engine", "reads and changes bookmarks")},
    {.english = QT_TRANSLATE_NOOP("Engine", "sees and starts downloads")},
    {.english = QT_TRANSLATE_NOOP("Engine", "opens downloaded files")},
    {.english = QT_TRANSLATE_NOOP("Engine", "sees the pages visited most often")},
    {.english = QT_TRANSLATE_NOOP("Engine", "sees closed tabs and those of other devices")},
    {.english = QT_TRANSLATE_NOOP("Engine", "clears the browser's data")},
    {.english = QT_TRANSLATE_NOOP("Engine", "changes privacy settings")},
    {.english = QT_TRANSLATE_NOOP("Engine", "changes what sites are allowed")},
    {.english = QT_TRANSLATE_NOOP("Engine", "changes the browser's settings")},
    {.english = QT_TRANSLATE_NOOP("Engine", "sees where this Mac is")},
    {.english = QT_TRANSLATE_NOOP("Engine", "sees the account of the browser")},
    {.english = QT_TRANSLATE_NOOP("Engine", "sees the account's address")},
    {.english = QT_TRANSLATE_NOOP("Engine", "shows notifications")},
    {.english = QT_TRANSLATE_NOOP("Engine", "from the browser's store")},
    {.english = QT_TRANSLATE_NOOP("Engine", "put there by another program or from a file")},
    {.english = QT_TRANSLATE_NOOP("Engine", "put there by a policy")},
    {.english = QT_TRANSLATE_NOOP("Engine", "loaded from a folder")},
    {.english = QT_TRANSLATE_NOOP("Engine", "came with the browser")},
    {.english = QT_TRANSLATE_NOOP("Engine", "where it came from is not known")},
    {.english = QT_TRANSLATE_N_NOOP("Engine", "reads and changes %n web sites"),
     .one = "reads and changes %n web site"},
    {.english = QT_TRANSLATE_N_NOOP("Engine", "%n other permissions"),
     .one = "%n other permission"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1; %2"), .inner = "12"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1, %2"), .inner = "12"},
};

} // namespace

std::span<const EngineText> factTexts()
{
    return kTexts;
}

} // namespace pryvane
