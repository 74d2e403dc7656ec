#pragma once

#include <cstdint>
#include <string_view>

/// What the items of the privacy tools hold, and what it costs to lose it.
namespace pryvane {

/// What it costs a person when an item is cleared.
enum class Cost : std::uint8_t {
    Little, ///< it is made anew, or nobody misses it
    Felt,   ///< its loss is noticed: signed out, no history, a typed text gone
    Dear,   ///< cannot be had back: passwords, preferences, bookmarks; ticked one by one only
};

} // namespace pryvane

namespace pryvane::tables {

struct PrivacyMeaning {
    std::string_view item; ///< its name, without a profile's name behind it
    Cost cost;
    const char* text; ///< for a person, in a sentence or two
};

/// Stands for what of an item is dear although the item is not.
inline constexpr std::string_view kDearLocations = "dear locations";

// clang-format off
inline constexpr PrivacyMeaning kPrivacyMeanings[] = {
    {"Cookies", Cost::Felt, "What web sites use to recognise you. Clearing them signs you out of web sites."},
    {"Browser Caches", Cost::Little, "Copies of pages, pictures and programs of web sites. Sites load a little slower the first time afterwards."},
    {"History", Cost::Felt, "The pages that were visited."},
    {"Visited Links", Cost::Little, "Which links are drawn as visited."},
    {"Downloads", Cost::Little, "The list of downloads. The downloaded files stay."},
    {"Login Data", Cost::Dear, "Passwords that the browser remembers. They are lost unless they are kept elsewhere too."},
    {"LastSession", Cost::Felt, "The windows and tabs that were open last. They will not come back."},
    {"User preferences", Cost::Dear, "The browser's settings. It starts with its defaults afterwards."},
    {"Favicons", Cost::Little, "The small pictures of web sites, which tell where you have been."},
    {"TopSites", Cost::Little, "The pages visited most often."},
    {"Top Sites", Cost::Little, "The pages visited most often."},
    {"Local Storage", Cost::Felt, "What web sites and forms keep on this disk: drafts, settings, typed texts, addresses and cards that are filled in."},
    {kDearLocations, Cost::Dear, "What was made or accepted by hand: certificates, words of the dictionary, search services, which program opens what."},
    {"Reading List", Cost::Felt, "Pages saved for reading offline. The list of their addresses stays."},
    {"Form", Cost::Felt, "What was typed into forms."},
    {"Recent Search", Cost::Little, "Search services that web sites offered."},
    {"WebFeeds", Cost::Felt, "The news feeds that were subscribed to."},
    {"Tabs and Tab Groups", Cost::Dear, "One file with the open tabs, the tab groups and the list of profiles. They are lost together."},
    {"Crash Reports", Cost::Little, "What was recorded when the browser crashed."},
    {"History, Downloads and Bookmarks", Cost::Dear, "Firefox keeps all three in one file. Whoever clears it loses the bookmarks too."},
    {"Reset Browsers Preferences to Defaults", Cost::Dear, "The settings of all browsers, such as a start page that was changed for you. Each starts with its defaults afterwards."},
    {"System Cache Files", Cost::Little, "What applications keep to be quicker. They make it anew when they need it."},
    {"Applications Cache Files", Cost::Little, "The same of applications that live in a container of their own."},
    {"System Log Files", Cost::Little, "Records of what applications did. Useful only when looking for a fault."},
    {"Applications Log Files", Cost::Little, "The same of applications that live in a container of their own."},
    {"System Downloads Log", Cost::Little, "The system's list of everything that was downloaded, and from where."},
    {"Trash Files", Cost::Felt, "What was put into the Trash. It cannot be put back afterwards."},
    {"Quick Look Thumbnails", Cost::Little, "Small pictures of documents that were looked at, of deleted ones and those on other disks too. They are made anew."},
    {"Recent Items", Cost::Little, "Which documents, applications and servers were opened last. They themselves stay."},
    {"Saved Application States", Cost::Felt, "The windows that applications open again. They start with none afterwards."},
    {"Terminal Histories", Cost::Felt, "The commands typed into terminals, and now and then a password among them."},
    {"Diagnostic Reports", Cost::Little, "What was recorded when applications crashed or hung."},
    {"Mail Download", Cost::Little, "Attachments that were opened. They stay in their messages."},
    {"Mail Cache Files", Cost::Little, "What Mail keeps to be quicker. Messages stay."},
    {"Mail Index", Cost::Felt, "Senders and subjects of all messages. Mail makes it anew at its next start, which takes a while; messages stay."},
    {"Flash Cookies", Cost::Little, "What web sites kept by way of the Flash player."},
};
// clang-format on

} // namespace pryvane::tables
