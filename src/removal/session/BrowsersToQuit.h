#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// A browser that must be quit before removal may go on.
struct BrowserEntry {
    std::string NameBrowser;
    std::string iconBrowser; ///< the application whose icon to show: a path of the volume
    friend bool operator==(const BrowserEntry&, const BrowserEntry&) = default;
};

/// Which browsers must be quit: those that run while at least one of the paths contains their
/// profile location, by a plain substring test. Without a user it may be in anyone's home. Pure.
[[nodiscard]] std::vector<BrowserEntry> browsersToQuit(std::span<const std::string> paths,
                                                       std::span<const std::string> running,
                                                       std::string_view user);

} // namespace pryvane
