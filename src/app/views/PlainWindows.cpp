#include "app/views/PlainWindows.h"

#include "app/NotAccessVC.h"
#include "app/views/MainWindow.h"
#include "ui/Icons.h"
#include "ui/Keys.h"
#include "ui/Labels.h"
#include "ui/Style.h"
#include "ui/Surfaces.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace pryvane {

using ui::TextRole;

AccessWindow::AccessWindow(NotAccessVC& controller, const VolumeWords& volume)
    : FramedWindow(QStringLiteral("Pryvane"), 0)
{
    setObjectName(QStringLiteral("NotAccessWindowID"));
    setMinimumSize(560, 480);
    startWith({640, 540});

    auto* badge = new QLabel;
    badge->setPixmap(ui::applicationIcon().pixmap(QSize(64, 64), devicePixelRatioF()));
    auto* welcome = ui::makeLabel(TextRole::Statement, tr("Welcome to Pryvane"));
    auto* looking = ui::makeNote(tr("It will look at %1, %2.").arg(volume.volume, volume.whose));
    looking->setWordWrap(false);
    looking->setToolTip(QStringLiteral("<qt>") + volume.folder.toHtmlEscaped() +
                        QStringLiteral("</qt>"));
    auto* card = new ui::Card;
    card->column()->setSpacing(ui::kGroups);
    card->column()->addWidget(makePromise(
        QStringLiteral("scan"), tr("What it looks at"),
        tr("The names and places of files, launch agents, extensions and applications. Contents "
           "are never read to find spyware.")));
    card->column()->addWidget(makePromise(
        QStringLiteral("export"), tr("What leaves this computer"),
        tr("One request for the maker's settings file, which carries nothing about you or this "
           "disk. Nothing else.")));
    card->column()->addWidget(makePromise(
        QStringLiteral("btn_trash"), tr("What it changes"),
        tr("Nothing, unless you select a finding and confirm that it is to be removed.")));

    auto* confirm = new QPushButton(tr("Confirm Access"));
    confirm->setObjectName(QStringLiteral("confirmAccess"));
    confirm->setDefault(true);
    ui::makePrimary(*confirm);
    auto* open = new QPushButton(tr("Open…"));
    open->setObjectName(QStringLiteral("openVolume"));
    auto* quit = new QPushButton(tr("Quit"));
    quit->setObjectName(QStringLiteral("closeApp"));
    connect(confirm, &QPushButton::clicked, &controller, &NotAccessVC::confirmAccessAction);
    connect(open, &QPushButton::clicked, this, &AccessWindow::openVolumeWanted);
    connect(quit, &QPushButton::clicked, &controller, &NotAccessVC::closeAppAction);
    connect(this, &FramedWindow::closeAsked, &controller, &NotAccessVC::closeAppAction);

    auto* inside = new QVBoxLayout;
    inside->setContentsMargins(ui::kEdge, ui::kGroups, ui::kEdge, ui::kEdge);
    inside->setSpacing(ui::kGroups);
    inside->addWidget(badge, 0, Qt::AlignHCenter);
    inside->addWidget(welcome, 0, Qt::AlignHCenter);
    inside->addWidget(looking, 0, Qt::AlignHCenter);
    inside->addWidget(card);
    inside->addStretch();
    inside->addWidget(ui::makeNote(
        tr("Pryvane may not see your home folder yet. Confirm it once; the choice is kept.")));
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(ui::kRelated);
    buttons->addWidget(quit);
    buttons->addStretch();
    buttons->addWidget(open);
    buttons->addWidget(confirm);
    inside->addLayout(buttons);
    column()->addLayout(inside, 1);
    confirm->setFocus();
}

QWidget* AccessWindow::makePromise(const QString& iconName, const QString& title,
                                   const QString& words)
{
    auto* picture = new QLabel;
    picture->setPixmap(ui::icon(iconName).pixmap(QSize(24, 24), devicePixelRatioF()));
    auto* text = new QVBoxLayout;
    text->setSpacing(2);
    text->addWidget(ui::makeLabel(TextRole::GroupTitle, title));
    text->addWidget(ui::makeNote(words));
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(ui::kGroups);
    layout->addWidget(picture, 0, Qt::AlignTop);
    layout->addLayout(text, 1);
    return row;
}

using ui::TextRole;

namespace {

struct Chapter {
    const char* icon;
    const char* title;
    const char* words;
};

constexpr Chapter kGuide[] = {
    {"volume", QT_TRANSLATE_NOOP("Help", "Choose what to look at"),
     QT_TRANSLATE_NOOP(
         "Help",
         "The button at the foot of the navigation names the volume and the user. Click "
         "it, or press Ctrl+O, to look at another mounted Mac disk, at an image of one, or at "
         "a list of its names.")},
    {"scan", QT_TRANSLATE_NOOP("Help", "Scan"),
     QT_TRANSLATE_NOOP(
         "Help", "A quick scan looks in the places that known spyware uses. A deep scan looks "
                 "there and at the name of every file of the user. Neither reads contents, "
                 "and neither changes anything.")},
    {"exact-path", QT_TRANSLATE_NOOP("Help", "Weigh the evidence"),
     QT_TRANSLATE_NOOP(
         "Help", "Each finding tells how strongly it speaks: an exact path is known from real "
                 "spyware; a bare substring can be a harmless file with an unlucky name. "
                 "Press Return on a finding to see the rule that found it.")},
    {"btn_trash", QT_TRANSLATE_NOOP("Help", "Remove"),
     QT_TRANSLATE_NOOP(
         "Help", "Tick what is to go with Space, or everything shown with Ctrl+A, then choose "
                 "Remove. A plan shows what would be deleted before anything is. Removal is "
                 "permanent. What could not be removed is listed with the reason.")},
    {"reports", QT_TRANSLATE_NOOP("Help", "Keep the history"),
     QT_TRANSLATE_NOOP("Help",
                       "Every scan leaves a report. Reports can be compared, printed, exported and "
                       "deleted, and what they list can still be removed later.")},
    {"clock", QT_TRANSLATE_NOOP("Help", "Scan on a schedule"),
     QT_TRANSLATE_NOOP(
         "Help", "While Pryvane is running it can scan every 30 minutes, and at a time of day "
                 "of your choice between two dates. It never raises its window for that.")},
    {"dashboard", QT_TRANSLATE_NOOP("Help", "Keys"),
     QT_TRANSLATE_NOOP("Help",
                       "Ctrl+1 to Ctrl+4 choose the screens, Ctrl+F the filter, Ctrl+P prints, F1 "
                       "opens this guide, Esc closes a sheet.")},
};

QWidget* makeChapter(const Chapter& chapter)
{
    auto* picture = new QLabel;
    picture->setPixmap(ui::icon(QLatin1String(chapter.icon)).pixmap(QSize(32, 32)));
    auto* words = new QVBoxLayout;
    words->setSpacing(4);
    auto* title =
        ui::makeLabel(TextRole::GroupTitle, QCoreApplication::translate("Help", chapter.title));
    auto* body = ui::makeLabel(TextRole::Body,
                               ui::withKeys(QCoreApplication::translate("Help", chapter.words)));
    body->setWordWrap(true);
    body->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    words->addWidget(title);
    words->addWidget(body);
    auto* card = new ui::Card;
    auto* row = new QHBoxLayout;
    row->setSpacing(ui::kGroups);
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addLayout(words, 1);
    card->column()->addLayout(row);
    return card;
}

} // namespace

void HelpWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        FramedWindow::keyPressEvent(event);
}

HelpWindow::HelpWindow() : FramedWindow(tr("Pryvane Help"), 1)
{
    setObjectName(QStringLiteral("helpWindow"));
    startWith({620, 640});
    auto* pages = new QWidget;
    auto* list = new QVBoxLayout(pages);
    list->setContentsMargins(ui::kEdge, ui::kRelated, ui::kEdge, ui::kEdge);
    list->setSpacing(ui::kRelated);
    list->addWidget(ui::makeLabel(TextRole::Statement, tr("How Pryvane works")));
    for (const Chapter& chapter : kGuide)
        list->addWidget(makeChapter(chapter));
    list->addStretch();
    auto* scroll = new QScrollArea;
    scroll->setWidget(pages);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setAccessibleName(tr("Guide"));
    auto* inside = new QVBoxLayout;
    inside->setContentsMargins(ui::kRelated, ui::kRelated, ui::kRelated, ui::kRelated);
    inside->addWidget(scroll);
    column()->addLayout(inside, 1);
    scroll->setFocus(Qt::OtherFocusReason); // so that the arrow keys read on
}

} // namespace pryvane
