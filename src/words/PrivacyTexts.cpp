// The items of the privacy tools.
#include "words/EngineText.h"

#include <QtGlobal>

namespace pryvane {

namespace {

constexpr EngineText kTexts[] = {
    {.english = QT_TRANSLATE_NOOP("Engine", "Cookies")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine",
         "What web sites use to recognise you. Clearing them signs you out of web sites.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Browser Caches")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "Copies of pages, pictures and programs of web sites. Sites "
                                     "load a little slower the first time afterwards.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "History")},
    {.english = QT_TRANSLATE_NOOP("Engine", "The pages that were visited.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Visited Links")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Which links are drawn as visited.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Downloads")},
    {.english = QT_TRANSLATE_NOOP("Engine", "The list of downloads. The downloaded files stay.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Login Data")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Passwords that the browser remembers. They are lost "
                                            "unless they are kept elsewhere too.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "LastSession")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "The windows and tabs that were open last. They will not come back.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "User preferences")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "The browser's settings. It starts with its defaults afterwards.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Favicons")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "The small pictures of web sites, which tell where you have been.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "TopSites")},
    {.english = QT_TRANSLATE_NOOP("Engine", "The pages visited most often.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Top Sites")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Local Storage")},
    {.english = QT_TRANSLATE_NOOP("Engine",
                                  "What web sites and forms keep on this disk: drafts, settings, "
                                  "typed texts, addresses and cards that are filled in.")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "What was made or accepted by hand: certificates, words of "
                                     "the dictionary, search services, which program opens what.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Reading List")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "Pages saved for reading offline. The list of their addresses stays.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Form")},
    {.english = QT_TRANSLATE_NOOP("Engine", "What was typed into forms.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Recent Search")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Search services that web sites offered.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "WebFeeds")},
    {.english = QT_TRANSLATE_NOOP("Engine", "The news feeds that were subscribed to.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Tabs and Tab Groups")},
    {.english = QT_TRANSLATE_NOOP("Engine", "One file with the open tabs, the tab groups and the "
                                            "list of profiles. They are lost together.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Crash Reports")},
    {.english = QT_TRANSLATE_NOOP("Engine", "What was recorded when the browser crashed.")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine",
         "Firefox keeps all three in one file. Whoever clears it loses the bookmarks too.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Reset Browsers Preferences to Defaults")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "The settings of all browsers, such as a start page that was "
                                     "changed for you. Each starts with its defaults afterwards.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "System Cache Files")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "What applications keep to be quicker. They make it anew when they need it.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Applications Cache Files")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "The same of applications that live in a container of their own.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "System Log Files")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "Records of what applications did. Useful only when looking for a fault.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Applications Log Files")},
    {.english = QT_TRANSLATE_NOOP("Engine", "System Downloads Log")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "The system's list of everything that was downloaded, and from where.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Trash Files")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "What was put into the Trash. It cannot be put back afterwards.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Quick Look Thumbnails")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "Small pictures of documents that were looked at, of deleted "
                                     "ones and those on other disks too. They are made anew.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Recent Items")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine",
         "Which documents, applications and servers were opened last. They themselves stay.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Saved Application States")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "The windows that applications open again. They start with none afterwards.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Terminal Histories")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "The commands typed into terminals, and now and then a password among them.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Diagnostic Reports")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "What was recorded when applications crashed or hung.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Mail Download")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "Attachments that were opened. They stay in their messages.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Mail Cache Files")},
    {.english = QT_TRANSLATE_NOOP("Engine", "What Mail keeps to be quicker. Messages stay.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Mail Index")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "Senders and subjects of all messages. Mail makes it anew at "
                                     "its next start, which takes a while; messages stay.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Flash Cookies")},
    {.english = QT_TRANSLATE_NOOP("Engine", "What web sites kept by way of the Flash player.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "History, Downloads and Bookmarks")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Cookies (%1)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Visited Links (%1)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "History (%1)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Login Data (%1)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "LastSession (%1)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "User preferences (%1)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Favicons (%1)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Top Sites (%1)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Local Storage (%1)")},
    {.english = QT_TRANSLATE_NOOP("Engine", "System")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Browser Extensions")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine",
         "A browser extension. Clearing removes it; the browser may say that it is damaged.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 Extensions")},
    {.english = QT_TRANSLATE_NOOP("Engine", "largest: %1")},
};

} // namespace

std::span<const EngineText> privacyTexts()
{
    return kTexts;
}

} // namespace pryvane
