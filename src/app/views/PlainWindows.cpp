#include "app/views/PlainWindows.h"

#include "app/NotAccessVC.h"
#include "app/views/Guide.h"
#include "app/views/MainWindow.h"
#include "core/Escape.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Style.h"
#include "ui/Surfaces.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace pryvane {

using ui::TextRole;

AccessWindow::AccessWindow(NotAccessVC& controller, const VolumeWords& volume)
    : FramedWindow(QStringLiteral("Pryvane"), 0)
{
    setObjectName(QStringLiteral("NotAccessWindowID"));
    setMinimumSize(600, 480);
    startWith({660, 720});

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
    auto* other = new QPushButton(tr("Other…"));
    other->setObjectName(QStringLiteral("otherFolder"));
    auto* open = new QPushButton(tr("Open an Image…"));
    open->setObjectName(QStringLiteral("openVolume"));
    auto* quit = new QPushButton(tr("Quit"));
    quit->setObjectName(QStringLiteral("closeApp"));
    connect(confirm, &QPushButton::clicked, &controller, [this, &controller] {
        controller.grant(static_cast<AccessScope>(m_choices->checkedId()));
    });
    connect(other, &QPushButton::clicked, &controller, &NotAccessVC::confirmAccessAction);
    connect(open, &QPushButton::clicked, this, &AccessWindow::openVolumeWanted);
    connect(quit, &QPushButton::clicked, &controller, &NotAccessVC::closeAppAction);
    connect(this, &FramedWindow::closeAsked, &controller, &NotAccessVC::closeAppAction);

    auto* page = new QWidget;
    auto* words = new QVBoxLayout(page);
    words->setContentsMargins(ui::kEdge, ui::kGroups, ui::kEdge, ui::kRelated);
    words->setSpacing(ui::kGroups);
    words->addWidget(badge, 0, Qt::AlignHCenter);
    words->addWidget(welcome, 0, Qt::AlignHCenter);
    words->addWidget(looking, 0, Qt::AlignHCenter);
    words->addWidget(makeChoices(controller));
    words->addWidget(card);
    words->addStretch();
    auto* scroll = new QScrollArea; // on a low screen
    scroll->setWidget(page);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(ui::kRelated);
    buttons->addWidget(quit);
    buttons->addStretch();
    buttons->addWidget(other);
    buttons->addWidget(open);
    buttons->addWidget(confirm);
    buttons->setContentsMargins(ui::kEdge, ui::kRelated, ui::kEdge, ui::kEdge);
    column()->addWidget(scroll, 1);
    column()->addLayout(buttons);
    confirm->setFocus();
}

namespace {

/// Title and line of a choice.
std::pair<QString, QString> wordsFor(const AccessChoice& choice)
{
    const QString folder = ui::text(forScreen(choice.folder.absolutePath()));
    if (!choice.isThere)
        return {choice.scope == AccessScope::ThisHome ? AccessWindow::tr("This home")
                                                      : AccessWindow::tr("Every home"),
                AccessWindow::tr("There is no folder %1 on this disk.").arg(folder)};
    switch (choice.scope) {
    case AccessScope::ThisHome:
        return {AccessWindow::tr("This home"),
                AccessWindow::tr("%1, and the places that all users share.").arg(folder)};
    case AccessScope::EveryHome:
        return {AccessWindow::tr("Every home"),
                AccessWindow::tr("All of %1, and the places that all users share.").arg(folder)};
    case AccessScope::WholeDisk:
        break;
    }
    return {AccessWindow::tr("The whole disk"),
            AccessWindow::tr("Every home; a deep scan goes through every folder there is.")};
}

} // namespace

/// The least that there is to look at is chosen at first.
QWidget* AccessWindow::makeChoices(const NotAccessVC& controller)
{
    m_choices = new QButtonGroup(this);
    auto* card = new ui::Card;
    card->column()->addWidget(ui::makeLabel(TextRole::GroupTitle, tr("What may it look at?")));
    for (const AccessChoice& choice : controller.choices()) {
        const auto [title, line] = wordsFor(choice);
        auto* button = new QRadioButton(title);
        button->setMinimumHeight(ui::kTarget);
        button->setAccessibleDescription(line);
        button->setEnabled(choice.isThere);
        auto* words = ui::makeNote(line);
        words->setContentsMargins(26, 0, 0, 0);
        m_choices->addButton(button, static_cast<int>(choice.scope));
        if (choice.isThere && !m_choices->checkedButton())
            button->setChecked(true);
        auto* row = new QVBoxLayout;
        row->setSpacing(0);
        row->addWidget(button, 0, Qt::AlignLeft);
        row->addWidget(words);
        card->column()->addLayout(row);
    }
    return card;
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
    startWith({790, 720});
    auto* scroll = new QScrollArea;
    scroll->setWidget(makeGuide());
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
