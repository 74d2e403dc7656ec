#include "removal/session/BrowsersToQuit.h"

#include "platform/Browsers.h"
#include "signatures/Catalogue.h"

#include <algorithm>

namespace pryvane {

namespace {

constexpr std::string_view kHome = "/Users/%@"; ///< begins every profile location

} // namespace

std::vector<BrowserEntry> browsersToQuit(std::span<const std::string> paths,
                                         std::span<const std::string> running,
                                         std::string_view user)
{
    std::vector<BrowserEntry> entries;
    for (const Browser& browser : kBrowsers) {
        if (std::ranges::find(running, browser.applicationName) == running.end())
            continue;
        // Of nobody named, whoever's it is.
        const std::string location = user.empty()
                                         ? std::string(browser.profileLocation.substr(kHome.size()))
                                         : catalogue::filled(browser.profileLocation, {user});
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
