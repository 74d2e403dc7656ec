#pragma once

#include <array>
#include <string_view>

namespace pryvane {

/// A browser that keeps its profile's files open while it runs.
struct Browser {
    std::string_view applicationName; ///< as a running application, see Workspace
    std::string_view displayName;
    std::string_view profileLocation;         ///< "%@" stands for the user's short name
    std::string_view applicationPath;         ///< of a Mac's volume; its icon is shown
    std::array<std::string_view, 6> programs; ///< names of its program's file, as far as known
};

// The blank behind Safari's folder is meant: only a path that holds it counts as Safari's data.
inline constexpr Browser kSafari{
    "Safari", "Safari", "/Users/%@/Library/Safari/ ", "/Applications/Safari.app", {"Safari"}};
// Chromium keeps its profile elsewhere and is not in the way of Chrome's.
inline constexpr Browser kChrome{"Google Chrome",
                                 "Chrome",
                                 "/Users/%@/Library/Application Support/Google/Chrome",
                                 "/Applications/Google Chrome.app",
                                 {"chrome", "google-chrome", "google-chrome-stable",
                                  "google-chrome-beta", "google-chrome-unstable", "Google Chrome"}};
inline constexpr Browser kFirefox{
    "Firefox",
    "Firefox",
    "/Users/%@/Library/Application Support/Firefox/Profiles",
    "/Applications/Firefox.app",
    {"firefox", "firefox-esr", "firefox-bin", "firefox-beta", "firefox-nightly", "Firefox"}};

/// All of them, in the order in which they are looked at and listed.
inline constexpr std::array kBrowsers{kSafari, kChrome, kFirefox};

} // namespace pryvane
