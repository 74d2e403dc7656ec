#include "app/views/AccessWindow.h"

#include "app/NotAccessVC.h"
#include "app/views/MainWindow.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Style.h"
#include "ui/Surfaces.h"

#include <QHBoxLayout>
#include <QPushButton>
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
    auto* looking =
        ui::makeNote(tr("It will look at %1, user %2.").arg(volume.volume, volume.user));
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
    auto* open = new QPushButton(tr("Open Volume…"));
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

} // namespace pryvane
