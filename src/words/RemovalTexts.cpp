// Reports, and what a removal came to.
#include "words/EngineText.h"

#include <QtGlobal>

namespace pryvane {

namespace {

constexpr EngineText kTexts[] = {
    {.english = QT_TRANSLATE_NOOP("Engine", "The report cannot be opened: %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "The reports cannot be compared: %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "The report could not be deleted: %1")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "It cannot be told whether this report is of the disk in "
                                     "front, so what of it is still there is not known.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "This report is of another disk than the one in front, "
                                            "so what of it is still there is not known.")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine",
         "It cannot be told whether this report is of this disk, so there is nothing to show.")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "This report is of another volume, so there is nothing to show.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "The report was sent to the printer.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "The report was not printed: %1")},
    {.english = QT_TRANSLATE_NOOP("Engine", "The document %1 cannot be read.")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "It cannot be told whether these reports are of one disk: "
                                     "what is new or gone here may merely be elsewhere.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "These two are reports of different volumes: what is "
                                            "new or gone here may merely be elsewhere.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "These two are reports of different users: what is new "
                                            "or gone here may merely be elsewhere.")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine",
         "The later scan did not look at everything: what is gone here may still be there.")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "Only the earlier scan was a deep one: what is gone here may still be there.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 of %2 exported to %3."),
     .inner = "2",
     .digits = "1"},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "it cannot be told whether the report is of this disk")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the report is of another volume")},
    {.english = QT_TRANSLATE_NOOP("Engine", "its path is damaged")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "The document cannot be shown: it is damaged. Print or export it anew.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "All threats are Removed")},
    {.english = QT_TRANSLATE_NOOP("Engine", "One Threat Remaining")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Multiple Threats Remaining")},
    {.english = QT_TRANSLATE_NOOP("Engine", "  %1 Failed"), .digits = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 Failed"), .digits = "1"},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "%1 removed, %2 failed, %3 left as you chose; Apple Remote "
                                     "Desktop stays: it is switched off in the Mac's settings."),
     .inner = "1",
     .digits = "23"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 removed, %2 failed; Apple Remote Desktop stays: it "
                                            "is switched off in the Mac's settings."),
     .inner = "1",
     .digits = "2"},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "%1 removed, %2 left as you chose; Apple Remote Desktop "
                                     "stays: it is switched off in the Mac's settings."),
     .inner = "1",
     .digits = "2"},
    {.english = QT_TRANSLATE_NOOP(
         "Engine",
         "%1 removed; Apple Remote Desktop stays: it is switched off in the Mac's settings."),
     .inner = "1"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 removed, %2 failed, %3 left as you chose."),
     .inner = "1",
     .digits = "23"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 removed, %2 failed."), .inner = "1", .digits = "2"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 removed, %2 left as you chose."),
     .inner = "1",
     .digits = "2"},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 removed."), .inner = "1"},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "this folder is never removed; choose what lies inside it")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "a link on the way leads elsewhere than when it was found; look again first")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "it is no longer what it was when it was found; look again first")},
    {.english = QT_TRANSLATE_NOOP("Engine", "another disk is mounted there; eject it first")},
    {.english = QT_TRANSLATE_NOOP("Engine",
                                  "the volume is mounted read-only; mount it for writing first")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the folder that holds it may not be changed; ask its "
                                            "owner, or run this with the rights to")},
    {.english = QT_TRANSLATE_NOOP("Engine", "it is locked against changes; unlock it first")},
    {.english = QT_TRANSLATE_NOOP("Engine", "it is in use; close what uses it and try again")},
    {.english = QT_TRANSLATE_NOOP("Engine", "something keeps filling the folder; stop that first")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine",
         "its name or one in it is exchanged again and again; stop what does that first")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "its folder cannot be read; run this with the rights to")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the report is of another volume; connect that one")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "it cannot be told whether the report is of this disk; scan it again first")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "remote desktop is not removed; switch it off in the Mac's Sharing settings")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the system stopped a removal outside the volume")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "stopped before it was done; remove it again to finish")},
    {.english = QT_TRANSLATE_NOOP("Engine",
                                  "the system reports an error; check the disk, then try again")},
    {.english = QT_TRANSLATE_NOOP("Engine", "it was given up")},
    {.english = QT_TRANSLATE_NOOP("Engine", "in this folder only its owner may remove it")},
    {.english = QT_TRANSLATE_NOOP("Engine", "the system swaps to it")},
    {.english = QT_TRANSLATE_NOOP("Engine", "another one is there, spelled \"%1\"; scan again")},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 is running; close it and try again")},
    {.english = QT_TRANSLATE_NOOP("Engine", "a folder on the way cannot be searched")},
    {.english = QT_TRANSLATE_NOOP("Engine", "a folder on the way to it cannot be searched")},
    {.english = QT_TRANSLATE_NOOP("Engine", "it holds too many empty folders")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "This is an image or a list of names, which is only read and never changed. To "
                   "remove something, mount the disk itself and open its folder.")},
    {.english =
         QT_TRANSLATE_NOOP("Engine", "A scan is running. Stop it first, or wait for its end.")},
    {.english = QT_TRANSLATE_NOOP("Engine", "Something is being removed. Wait for its end.")},
    {.english = QT_TRANSLATE_NOOP(
         "Engine", "there are more accounts than any Mac has, and not all were read")},
    {.english = QT_TRANSLATE_NOOP("Engine", "there is no such home")},
    {.english = QT_TRANSLATE_NOOP("Engine", "it was found, and then could not be looked at")},
    {.english = QT_TRANSLATE_NOOP("Engine", "%1 more folders below it"), .digits = "1"},
};

} // namespace

std::span<const EngineText> removalTexts()
{
    return kTexts;
}

} // namespace pryvane
