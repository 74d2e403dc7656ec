// The schedule, and the days that it names.
#include "words/EngineText.h"

#include <QtGlobal>

namespace pryvane {

namespace {

constexpr EngineText kTexts[] = {
    {.english = QT_TRANSLATE_NOOP("Engine", "next: %1 %2 %3, %4"), .inner = "13", .digits = "2"},
    {.english = QT_TRANSLATE_NOOP("Engine", "Sun")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Mon")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Tue")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Wed")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Thu")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Fri")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Sat")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Jan")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Feb")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Mar")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Apr")},
    {.english = QT_TRANSLATE_NOOP("Engine", "May")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Jun")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Jul")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Aug")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Sep")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Oct")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Nov")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Dec")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Sunday")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Monday")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Tuesday")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Wednesday")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Thursday")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Friday")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Saturday")},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 January %2"), .digits = "12"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 February %2"), .digits = "12"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 March %2"), .digits = "12"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 April %2"), .digits = "12"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 May %2"), .digits = "12"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 June %2"), .digits = "12"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 July %2"), .digits = "12"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 August %2"), .digits = "12"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 September %2"), .digits = "12"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 October %2"), .digits = "12"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 November %2"), .digits = "12"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 December %2"), .digits = "12"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 January"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 February"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 March"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 April"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 May"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 June"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 July"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 August"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 September"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 October"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 November"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 December"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "Every day")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Every 7 days")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Every 30 days")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Every 365 days")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Once, on %1, %2, at %3."), .inner = "12"},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "Every day at %1, next on %2, %3, the last time on %4."),
     .inner = "234"},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "Every 30 days at %1, next on %2, %3, the last time on %4."),
     .inner = "234"},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "Every 365 days at %1, next on %2, %3, the last time on %4."),
     .inner = "234"},
    {.english = QT_TRANSLATE_NOOP("Engine", "No scan is scheduled.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "The last day is before the first one.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "That time has passed, so nothing would be scanned.")},
    {.english = QT_TRANSLATE_NOOP("Engine",
                                  "While you are logged in, a quick scan of this computer starts "
                                  "at these times without a window. Its report is kept with the "
                                  "others.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "While you are logged in, a quick scan of %1 starts at "
                                            "these times without a window. Its report is kept "
                                            "with the others.")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "Once a scan is scheduled, it can also start while Pryvane is closed.")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "An image or a list of names is only read while Pryvane is running.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Not possible here: %1"), .inner = "1"},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "Scans while Pryvane is closed could not be changed: %1"),
     .inner = "1"},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "this session is not run by systemd, which would have to start these scans.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 was written or changed by somebody else and is "
                                            "left as it is. Move it away first.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "pryvane-cli, which does these scans, is not installed "
                                            "beside Pryvane; install it")},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 cannot be written: %2")},
    {.english = QT_TRANSLATE_NOOP("Engine", "systemd refuses: %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Today, %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Yesterday, %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Every %1 at %2, next on %3, %4, the last time on %5."),
     .inner = "1345"},
};

} // namespace

std::span<const EngineText> scheduleTexts()
{
    return kTexts;
}

} // namespace pryvane
