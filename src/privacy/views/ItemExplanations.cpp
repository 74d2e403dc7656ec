#include "privacy/views/ItemExplanations.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace pryvane {

namespace {

struct Row {
    std::string_view name; ///< of the item, without a profile's name behind it
    const char* text;
};

// clang-format off
constexpr Row kRows[] = {
    {"Cookies", QT_TRANSLATE_NOOP("ItemExplanations", "What web sites use to recognise you. Clearing them signs you out of web sites.")},
    {"Browser Caches", QT_TRANSLATE_NOOP("ItemExplanations", "Copies of pages and pictures. Sites load a little slower the first time afterwards.")},
    {"History", QT_TRANSLATE_NOOP("ItemExplanations", "The pages that were visited.")},
    {"Visited Links", QT_TRANSLATE_NOOP("ItemExplanations", "Which links are drawn as visited.")},
    {"Downloads", QT_TRANSLATE_NOOP("ItemExplanations", "The list of downloads. The downloaded files stay.")},
    {"Login Data", QT_TRANSLATE_NOOP("ItemExplanations", "Passwords that the browser remembers. They are lost unless they are kept elsewhere too.")},
    {"LastSession", QT_TRANSLATE_NOOP("ItemExplanations", "The windows and tabs that were open last. They will not come back.")},
    {"User preferences", QT_TRANSLATE_NOOP("ItemExplanations", "The browser's settings. It starts with its defaults afterwards.")},
    {"Favicons", QT_TRANSLATE_NOOP("ItemExplanations", "The small pictures of web sites, which tell where you have been.")},
    {"TopSites", QT_TRANSLATE_NOOP("ItemExplanations", "The pages visited most often.")},
    {"Top Sites", QT_TRANSLATE_NOOP("ItemExplanations", "The pages visited most often.")},
    {"Local Storage", QT_TRANSLATE_NOOP("ItemExplanations", "What web sites and forms keep on this disk: drafts, settings, typed texts.")},
    {"Reading List", QT_TRANSLATE_NOOP("ItemExplanations", "Pages saved for reading offline. The list of their addresses stays.")},
    {"Form", QT_TRANSLATE_NOOP("ItemExplanations", "What was typed into forms.")},
    {"Recent Search", QT_TRANSLATE_NOOP("ItemExplanations", "Search services that web sites offered.")},
    {"WebFeeds", QT_TRANSLATE_NOOP("ItemExplanations", "The news feeds that were subscribed to.")},
    {"Crash Reports", QT_TRANSLATE_NOOP("ItemExplanations", "What was recorded when the browser crashed.")},
    {"Reset Browsers Preferences to Defaults", QT_TRANSLATE_NOOP("ItemExplanations", "The settings of all browsers, such as a start page that was changed for you. Each starts with its defaults afterwards.")},
    {"System Cache Files", QT_TRANSLATE_NOOP("ItemExplanations", "What applications keep to be quicker. They make it anew when they need it.")},
    {"Applications Cache Files", QT_TRANSLATE_NOOP("ItemExplanations", "The same of applications that live in a container of their own.")},
    {"System Log Files", QT_TRANSLATE_NOOP("ItemExplanations", "Records of what applications did. Useful only when looking for a fault.")},
    {"Applications Log Files", QT_TRANSLATE_NOOP("ItemExplanations", "The same of applications that live in a container of their own.")},
    {"System Downloads Log", QT_TRANSLATE_NOOP("ItemExplanations", "The system's list of everything that was downloaded, and from where.")},
    {"Trash Files", QT_TRANSLATE_NOOP("ItemExplanations", "What was put into the Trash. It cannot be put back afterwards.")},
    {"Mail Download", QT_TRANSLATE_NOOP("ItemExplanations", "Attachments that were opened. They stay in their messages.")},
    {"Mail Cache Files", QT_TRANSLATE_NOOP("ItemExplanations", "What Mail keeps to be quicker. Messages stay.")},
    {"Flash Cookies", QT_TRANSLATE_NOOP("ItemExplanations", "What web sites kept by way of the Flash player.")},
};
// clang-format on

} // namespace

QString explanationOf(const ToolItem& item)
{
    const auto said = [](const char* text) {
        return QCoreApplication::translate("ItemExplanations", text);
    };
    if (item.isExt)
        return said(QT_TRANSLATE_NOOP(
            "ItemExplanations",
            "A browser extension. Clearing removes it; the browser may say that it is damaged."));
    const std::string_view name = item.NameText;
    const auto row = std::find_if(std::begin(kRows), std::end(kRows), [&](const Row& each) {
        return name == each.name ||
               (name.starts_with(each.name) && name.substr(each.name.size()).starts_with(" ("));
    });
    return row == std::end(kRows) ? QString() : said(row->text);
}

} // namespace pryvane
