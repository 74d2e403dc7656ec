#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace pryvane {

/// The lists of the inventory, in the order in which a window gathers and shows them.
enum class InventoryKind : std::uint8_t {
    LaunchAgents,
    LaunchDaemons,
    ChromeExtensions,
    FirefoxAddOns,
    SafariExtensions,
    ApplicationSupport,
    Applications,
};

inline constexpr std::array kInventoryHeadings = {
    "Launch agents",   "Launch daemons",    "Google Chrome extensions",
    "Firefox add-ons", "Safari extensions", "Application support",
    "Applications"};

[[nodiscard]] constexpr const char* heading(InventoryKind kind)
{
    return kInventoryHeadings[static_cast<std::size_t>(kind)];
}

} // namespace pryvane
