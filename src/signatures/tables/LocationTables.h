#pragma once

#include <string_view>

namespace pryvane::tables {

/// The folders whose entries make up the default locations, in the order in which they are listed.
inline constexpr std::string_view kDefaultFolders[] = {
    "/Library/Application Support",
    "/System/Library/LaunchAgents",
    "/System/Library/LaunchDaemons",
    "/Library/LaunchDaemons",
    "/Library/LaunchAgents",
    "/Library/Caches",
    "/Library/Preferences",
    "/Users/%@/Library/LaunchAgents",
    "/Users/%@/Library/Application Support",
    "/Users/%@/Library/Caches",
    "/Users/%@/Library/Containers",
    "/Users/%@/Library/Preferences",
};

/// Entries of those folders that the system itself puts there under a suspicious name.
inline constexpr std::string_view kKnownGoodFiles[] = {
    "/System/Library/LaunchDaemons/com.apple.logind.plist",
    "/System/Library/LaunchDaemons/com.apple.periodic-daily.plist",
    "/System/Library/LaunchDaemons/com.apple.periodic-monthly.plist",
    "/System/Library/LaunchDaemons/com.apple.periodic-weekly.plist",
    "/Users/%@/Library/Preferences/com.apple.AccessibilityInspector.plist",
};

/// The last "%@" is the location below the root. The first root is relative on purpose.
inline constexpr std::string_view kLibraryRoots[] = {
    "Library/%@",
    "/System/Library/%@",
    "/Users/%@/Library/%@",
};

/// Seven names, each in the user's Library and in its Application Support.
inline constexpr std::string_view kBackdoorPaths[] = {
    "/Users/%@/Library/App Store/storeuserd",
    "/Users/%@/Library/com.apple.spotlight/SpotlightHelper",
    "/Users/%@/Library/Dock/com.apple.dock.cache",
    "/Users/%@/Library/Skype/SkypeHelper",
    "/Users/%@/Library/Dropbox/DropboxCache",
    "/Users/%@/Library/Google/Chrome/nacld",
    "/Users/%@/Library/Firefox/Profiles/profiled",
    "/Users/%@/Library/Application Support/App Store/storeuserd",
    "/Users/%@/Library/Application Support/com.apple.spotlight/SpotlightHelper",
    "/Users/%@/Library/Application Support/Dock/com.apple.dock.cache",
    "/Users/%@/Library/Application Support/Skype/SkypeHelper",
    "/Users/%@/Library/Application Support/Dropbox/DropboxCache",
    "/Users/%@/Library/Application Support/Google/Chrome/nacld",
    "/Users/%@/Library/Application Support/Firefox/Profiles/profiled",
};

/// One finding stands for all five, and points at the first.
inline constexpr std::string_view kRemoteDesktopPaths[] = {
    "/Library/Preferences/com.apple.RemoteDesktop.plist",
    "/Users/%@/Library/Preferences/com.apple.RemoteDesktop.plist",
    "/Library/Application Support/Apple Remote Desktop/",
    "/Users/%@/Library/Application Support/Remote Desktop/",
    "/Users/%@/Library/Containers/com.apple.RemoteDesktop",
};

} // namespace pryvane::tables
