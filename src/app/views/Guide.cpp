#include "app/views/Guide.h"

#include "ui/Icons.h"
#include "ui/Keys.h"
#include "ui/Labels.h"
#include "ui/Surfaces.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace pryvane {

namespace {

constexpr int kIcon = 32;
constexpr int kPictureWidth = 600;
constexpr char kContext[] = "Help";

struct Chapter {
    const char* icon;
    const char* title;
    const char* words;
    const char* picture;     ///< of a screen; empty: none
    const char* pictureName; ///< for a screen reader
};

constexpr Chapter kGuide[] = {
    {"volume", QT_TRANSLATE_NOOP("Help", "Choose what to look at"),
     QT_TRANSLATE_NOOP("Help", "The button at the foot of the navigation names the disk and the "
                               "user. Click it, or press Ctrl+O, to look at another mounted Mac "
                               "disk, at an image of one, or at a list of its names."),
     "", ""},
    {"help", QT_TRANSLATE_NOOP("Help", "Is it safe to look?"),
     QT_TRANSLATE_NOOP(
         "Help", "Looking changes nothing on the disk. A scan reads the names of files and "
                 "folders, never opens what it finds, and starts none of it. One thing leaves this "
                 "computer: a request for the settings file of the maker, which says nothing about "
                 "you or the disk. Whoever may watch a Mac notices nothing when you look at its "
                 "disk from another computer; on the Mac itself they may see that Pryvane runs."),
     "dashboard", QT_TRANSLATE_NOOP("Help", "The dashboard")},
    {"scan", QT_TRANSLATE_NOOP("Help", "Scan"),
     QT_TRANSLATE_NOOP("Help",
                       "A quick scan looks in the places that known spyware uses. A deep scan "
                       "looks there and at the name of every file you gave access to. The line "
                       "under the result says what was looked at and what could not be; its button "
                       "lists each place. Only a scan that could look everywhere says “Clean”."),
     "scan", QT_TRANSLATE_NOOP("Help", "Findings of a scan")},
    {"found", QT_TRANSLATE_NOOP("Help", "When something was found"),
     QT_TRANSLATE_NOOP(
         "Help", "A finding is a name that is known, not proof. Press Return on it to see why it "
                 "was found, and look at the chip beside it: an exact path speaks strongly, a bare "
                 "substring may be a harmless file with an unlucky name. Nothing has to be done at "
                 "once. Keep a record first: the report can be saved as a PDF and as JSON. If the "
                 "Mac belongs to a company or a school, ask who looks after it."),
     "", ""},
    {"attention", QT_TRANSLATE_NOOP("Help", "If somebody may be watching you"),
     QT_TRANSLATE_NOOP(
         "Help",
         "Use another device to ask for help, one that this person has never had in their hands: "
         "what you do on the watched Mac may be seen, this program too. Do not confront them, and "
         "do not remove anything yet: whoever installed it may notice that it is gone, and it is "
         "evidence. Write down what you see, or keep the report on a disk that you alone have. A "
         "local advice centre, a support line for victims of violence or stalking, or the police "
         "can help you plan what comes next; find the number on the safer device. If you are in "
         "danger now, call your emergency number."),
     "", ""},
    {"btn_trash", QT_TRANSLATE_NOOP("Help", "Remove"),
     QT_TRANSLATE_NOOP(
         "Help", "Tick what is to go with Space, or everything shown with Ctrl+A, then choose "
                 "Remove. A plan shows what would be deleted before anything is. Removal is "
                 "permanent. What could not be removed is listed with the reason."),
     "", ""},
    {"application", QT_TRANSLATE_NOOP("Help", "Who may watch"),
     QT_TRANSLATE_NOOP("Help",
                       "Under Tools, “Who May Watch” lists which programs were allowed to see the "
                       "screen, the keys or all files, what starts by itself, and who may come in "
                       "from elsewhere. These are facts that the Mac itself keeps, without a "
                       "verdict; each group says what it means and where it is changed."),
     "facts", QT_TRANSLATE_NOOP("Help", "Who may watch, by group")},
    {"tools", QT_TRANSLATE_NOOP("Help", "Clear traces"),
     QT_TRANSLATE_NOOP("Help",
                       "Privacy lists what browsers and the system keep, with the space it takes. "
                       "The sum above the list is what could be cleared; a place that two groups "
                       "share, such as a browser’s cache inside the system’s, counts only once in "
                       "it. Nothing is ticked for you, and a preview shows each location first."),
     "tools", QT_TRANSLATE_NOOP("Help", "Privacy, with its groups")},
    {"reports", QT_TRANSLATE_NOOP("Help", "Keep the history"),
     QT_TRANSLATE_NOOP("Help",
                       "Every scan leaves a report. Reports can be compared, printed, exported and "
                       "deleted, and what they list can still be removed later."),
     "reports", QT_TRANSLATE_NOOP("Help", "The list of reports")},
    {"clock", QT_TRANSLATE_NOOP("Help", "Scan on a schedule"),
     QT_TRANSLATE_NOOP(
         "Help",
         "While Pryvane is running it can scan every 30 minutes, and at a time of day of "
         "your choice between two dates. It never raises its window for that.\nWith “Also when "
         "Pryvane is closed” your system starts a quick scan at the times of the schedule "
         "while you are logged in and Pryvane is not running. Its report is kept with the "
         "others. When you switch it off, or the schedule, nothing of it stays behind."),
     "", ""},
    {"info", QT_TRANSLATE_NOOP("Help", "What the words mean"),
     QT_TRANSLATE_NOOP(
         "Help",
         "Finding: a file or folder whose place or name is known.\nEvidence: how strongly that "
         "speaks; from exact path over known name in a launch folder and name fragment to bare "
         "substring.\nRule: what a place or name is compared with.\nLaunch folder: what lies in it "
         "starts by itself.\nDeep scan: looks at every name, not in known places only.\nCannot be "
         "told, not known: Pryvane could not look, so it says neither yes nor no.\nIncomplete: "
         "nothing was found, but not every place could be read."),
     "", ""},
    {"dashboard", QT_TRANSLATE_NOOP("Help", "Keys"),
     QT_TRANSLATE_NOOP("Help", "Ctrl+1 to Ctrl+4 choose the screens, Ctrl+F the filter, Ctrl+P "
                               "prints, F1 opens this guide, Esc closes a sheet."),
     "", ""},
};

QString translated(const char* english)
{
    return QCoreApplication::translate(kContext, english);
}

/// The screen as scripts/screenshots took it, as sharp as this display can show it.
QLabel* makePicture(const Chapter& chapter)
{
    auto* picture = new QLabel;
    const QImage whole(QStringLiteral(":/guide/%1.png").arg(QLatin1String(chapter.picture)));
    const qreal density = picture->devicePixelRatioF();
    QImage shown = whole.convertToFormat(QImage::Format_RGB32)
                       .scaledToWidth(qRound(kPictureWidth * density), Qt::SmoothTransformation);
    shown.setDevicePixelRatio(density);
    picture->setPixmap(QPixmap::fromImage(shown));
    picture->setAccessibleName(translated(chapter.pictureName));
    return picture;
}

QWidget* makeChapter(const Chapter& chapter)
{
    auto* icon = new QLabel;
    icon->setPixmap(ui::icon(QLatin1String(chapter.icon)).pixmap(QSize(kIcon, kIcon)));
    auto* words = new QVBoxLayout;
    words->setSpacing(4);
    auto* body = ui::makeLabel(ui::TextRole::Body, ui::withKeys(translated(chapter.words)));
    body->setWordWrap(true);
    body->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    words->addWidget(ui::makeLabel(ui::TextRole::GroupTitle, translated(chapter.title)));
    words->addWidget(body);
    if (*chapter.picture) {
        words->addSpacing(ui::kRelated);
        words->addWidget(makePicture(chapter));
    }
    auto* card = new ui::Card;
    auto* row = new QHBoxLayout;
    row->setSpacing(ui::kGroups);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addLayout(words, 1);
    card->column()->addLayout(row);
    return card;
}

} // namespace

QWidget* makeGuide()
{
    auto* pages = new QWidget;
    auto* list = new QVBoxLayout(pages);
    list->setContentsMargins(ui::kEdge, ui::kRelated, ui::kEdge, ui::kEdge);
    list->setSpacing(ui::kRelated);
    list->addWidget(ui::makeLabel(ui::TextRole::Statement,
                                  translated(QT_TRANSLATE_NOOP("Help", "How Pryvane works"))));
    for (const Chapter& chapter : kGuide)
        list->addWidget(makeChapter(chapter));
    list->addStretch(1);
    return pages;
}

} // namespace pryvane
