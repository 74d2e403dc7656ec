#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

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

// Of those below, the names on a Mac are as their makers publish them and were not checked on one.
inline constexpr Browser kEdge{
    "Microsoft Edge",
    "Edge",
    "/Users/%@/Library/Application Support/Microsoft Edge",
    "/Applications/Microsoft Edge.app",
    {"msedge", "microsoft-edge", "microsoft-edge-stable", "microsoft-edge-beta", "Microsoft Edge"}};
inline constexpr Browser kBrave{
    "Brave Browser",
    "Brave",
    "/Users/%@/Library/Application Support/BraveSoftware/Brave-Browser",
    "/Applications/Brave Browser.app",
    {"brave", "brave-browser", "brave-browser-stable", "Brave Browser"}};
inline constexpr Browser kChromium{"Chromium",
                                   "Chromium",
                                   "/Users/%@/Library/Application Support/Chromium",
                                   "/Applications/Chromium.app",
                                   {"chromium", "chromium-browser", "Chromium"}};
inline constexpr Browser kVivaldi{"Vivaldi",
                                  "Vivaldi",
                                  "/Users/%@/Library/Application Support/Vivaldi",
                                  "/Applications/Vivaldi.app",
                                  {"vivaldi", "vivaldi-bin", "vivaldi-stable", "Vivaldi"}};
inline constexpr Browser kOpera{"Opera",
                                "Opera",
                                "/Users/%@/Library/Application Support/com.operasoftware.Opera",
                                "/Applications/Opera.app",
                                {"opera", "opera-stable", "opera-beta", "Opera"}};
inline constexpr Browser kArc{"Arc",
                              "Arc",
                              "/Users/%@/Library/Application Support/Arc/User Data",
                              "/Applications/Arc.app",
                              {"Arc"}};

/// All of them, in the order in which they are looked at and listed.
inline constexpr std::array kBrowsers{kSafari,   kChrome,  kFirefox, kEdge, kBrave,
                                      kChromium, kVivaldi, kOpera,   kArc};

/// As running applications, those that are marked, in the order of the table.
[[nodiscard]] inline std::vector<std::string>
applicationNames(const std::array<bool, kBrowsers.size()>& marked)
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < marked.size(); ++i) {
        if (marked[i])
            names.emplace_back(kBrowsers[i].applicationName);
    }
    return names;
}

} // namespace pryvane
