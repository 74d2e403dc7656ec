#include "removal/session/Browsers.h"

#include "signatures/Catalogue.h"

#include <algorithm>

namespace pryvane {

namespace {

// The blank behind Safari's folder is meant: only a path that holds it counts as Safari's data.
constexpr Browser kBrowsers[] = {
    {"Safari", "Safari", "/Users/%@/Library/Safari/ ", "/Applications/Safari.app"},
    {"Google Chrome", "Chrome", "/Users/%@/Library/Application Support/Google/Chrome",
     "/Applications/Google Chrome.app"},
    {"Firefox", "Firefox", "/Users/%@/Library/Application Support/Firefox/Profiles",
     "/Applications/Firefox.app"},
};

} // namespace

std::span<const Browser> browsers()
{
    return kBrowsers;
}

std::vector<BrowserEntry> browsersToQuit(std::span<const std::string> paths,
                                         std::span<const std::string> running,
                                         std::string_view user)
{
    std::vector<BrowserEntry> entries;
    for (const Browser& browser : kBrowsers) {
        if (std::ranges::find(running, browser.applicationName) == running.end())
            continue;
        const std::string location = catalogue::filled(browser.profileLocation, {user});
        const bool holdsFinding = std::ranges::any_of(paths, [&](const std::string& path) {
            return path.find(location) != std::string::npos;
        });
        if (holdsFinding)
            entries.push_back(
                {std::string(browser.displayName), std::string(browser.applicationPath)});
    }
    return entries;
}

} // namespace pryvane
