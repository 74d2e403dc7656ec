#pragma once

#include "platform/Browsers.h"

#include <cstdint>
#include <string_view>

/// Which groups the privacy tools have and where browsers keep their data, as tables. The rows of
/// their items are in PrivacyRows.h, what clearing an item costs in PrivacyMeanings.h.
namespace pryvane {

enum class ToolGroupKind : std::uint8_t {
    Safari,
    Chrome,
    Firefox,
    Edge,
    Brave,
    Chromium,
    Vivaldi,
    Opera,
    Arc,
    BrowserExtensions,
    System,
    Mail,
    Flash
};

} // namespace pryvane

namespace pryvane::tables {

/// Which rows make a group's items: the browsers made from Chromium share theirs.
enum class RowSet : std::uint8_t {
    Safari,
    Chromium,
    Firefox,
    BrowserExtensions,
    System,
    Mail,
    Flash
};

struct PrivacyGroup {
    ToolGroupKind kind;
    RowSet rows;
    std::string_view name;
    std::string_view browser;     ///< as a running application, see Workspace; empty: none
    std::string_view application; ///< one of two reasons to show the group; empty: always shown
    std::string_view icon;
};

constexpr PrivacyGroup browserGroup(ToolGroupKind kind, RowSet rows, const Browser& browser)
{
    return {kind,
            rows,
            browser.displayName,
            browser.applicationName,
            browser.applicationPath,
            browser.applicationPath};
}

/// In the order in which they are shown. A group is shown when its application or its data is
/// there: those that come with the system are not on every disk that holds a user's files.
inline constexpr PrivacyGroup kPrivacyGroups[] = {
    browserGroup(ToolGroupKind::Safari, RowSet::Safari, kSafari),
    browserGroup(ToolGroupKind::Chrome, RowSet::Chromium, kChrome),
    browserGroup(ToolGroupKind::Firefox, RowSet::Firefox, kFirefox),
    browserGroup(ToolGroupKind::Edge, RowSet::Chromium, kEdge),
    browserGroup(ToolGroupKind::Brave, RowSet::Chromium, kBrave),
    browserGroup(ToolGroupKind::Chromium, RowSet::Chromium, kChromium),
    browserGroup(ToolGroupKind::Vivaldi, RowSet::Chromium, kVivaldi),
    browserGroup(ToolGroupKind::Opera, RowSet::Chromium, kOpera),
    browserGroup(ToolGroupKind::Arc, RowSet::Chromium, kArc),
    // There when one of the browsers before is.
    {ToolGroupKind::BrowserExtensions, RowSet::BrowserExtensions, "Browser_ext", "", "", ""},
    {ToolGroupKind::System, RowSet::System, "System", "", "",
     "/System/Library/CoreServices/Finder.app"},
    {ToolGroupKind::Mail, RowSet::Mail, "Mail", "", "/Applications/Mail.app",
     "/Applications/Mail.app"},
    {ToolGroupKind::Flash, RowSet::Flash, "Flash", "",
     "/Applications/Utilities/Adobe Flash Player Install Manager.app",
     "/Applications/Utilities/Adobe Flash Player Install Manager.app"},
};

/// What a browser keeps at a place.
enum class Holds : std::uint8_t {
    Profiles, ///< Chromium's: "Local State" there names the profiles, folders beside it
    Caches,   ///< goes whole with the browser's caches
    Other,
};

/// A place below the home that a browser keeps open while it runs.
struct BrowserPlace {
    ToolGroupKind browser;
    Holds holds;
    std::string_view path;
};

// clang-format off
inline constexpr BrowserPlace kBrowserPlaces[] = {
    {ToolGroupKind::Safari, Holds::Other, "Library/Safari"},
    {ToolGroupKind::Safari, Holds::Other, "Library/Cookies"},
    {ToolGroupKind::Safari, Holds::Other, "Library/Caches/com.apple.Safari"},
    {ToolGroupKind::Safari, Holds::Other, "Library/Containers/com.apple.Safari"},
    {ToolGroupKind::Safari, Holds::Other, "Library/Saved Application State/com.apple.Safari.savedState"},
    {ToolGroupKind::Chrome, Holds::Profiles, "Library/Application Support/Google/Chrome"},
    {ToolGroupKind::Chrome, Holds::Caches, "Library/Caches/Google/Chrome"},
    {ToolGroupKind::Firefox, Holds::Other, "Library/Application Support/Firefox"},
    {ToolGroupKind::Firefox, Holds::Other, "Library/Caches/Firefox"},
    {ToolGroupKind::Firefox, Holds::Other, "Library/Caches/Mozilla"},
    // The places from here on are as published for Macs; none could be checked on one.
    {ToolGroupKind::Edge, Holds::Profiles, "Library/Application Support/Microsoft Edge"},
    {ToolGroupKind::Edge, Holds::Caches, "Library/Caches/Microsoft Edge"},
    {ToolGroupKind::Brave, Holds::Profiles, "Library/Application Support/BraveSoftware/Brave-Browser"},
    {ToolGroupKind::Brave, Holds::Caches, "Library/Caches/BraveSoftware/Brave-Browser"},
    {ToolGroupKind::Chromium, Holds::Profiles, "Library/Application Support/Chromium"},
    {ToolGroupKind::Chromium, Holds::Caches, "Library/Caches/Chromium"},
    {ToolGroupKind::Vivaldi, Holds::Profiles, "Library/Application Support/Vivaldi"},
    {ToolGroupKind::Vivaldi, Holds::Caches, "Library/Caches/Vivaldi"},
    // Older versions keep one profile, which is the folder itself.
    {ToolGroupKind::Opera, Holds::Profiles, "Library/Application Support/com.operasoftware.Opera"},
    {ToolGroupKind::Opera, Holds::Caches, "Library/Caches/com.operasoftware.Opera"},
    {ToolGroupKind::Arc, Holds::Profiles, "Library/Application Support/Arc/User Data"},
    {ToolGroupKind::Arc, Holds::Caches, "Library/Caches/Arc"},
    {ToolGroupKind::Arc, Holds::Caches, "Library/Caches/company.thebrowser.Browser"},
};
// clang-format on

} // namespace pryvane::tables
