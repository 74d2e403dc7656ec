#include "app/views/OpeningWindow.h"

#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Style.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace pryvane {

OpeningWindow::OpeningWindow(const QString& file)
    : FramedWindow(QStringLiteral("Pryvane"), 0), m_bar(new QProgressBar), m_note(ui::makeNote()),
      m_password(new QLineEdit), m_unlock(new QPushButton(tr("Unlock")))
{
    setObjectName(QStringLiteral("openingWindow"));
    setMinimumSize(420, 260);
    startWith({560, 300});

    auto* badge = new QLabel;
    badge->setPixmap(ui::applicationIcon().pixmap(QSize(64, 64), devicePixelRatioF()));
    auto* place = new ui::ElidedLabel;
    ui::setTextRole(*place, ui::TextRole::Path);
    place->setText(file);
    m_bar->setRange(0, 0); // nobody knows how many there are
    m_bar->setTextVisible(false);
    m_bar->setAccessibleName(tr("Reading names"));
    m_note->setWordWrap(true);
    m_password->setObjectName(QStringLiteral("password"));
    m_password->setAccessibleName(tr("Password"));
    m_password->setPlaceholderText(tr("Password"));
    m_password->setEchoMode(QLineEdit::Password);
    m_password->setMinimumHeight(ui::kTarget);
    m_unlock->setObjectName(QStringLiteral("unlock"));
    ui::makePrimary(*m_unlock);
    auto* cancel = new QPushButton(tr("Cancel"));
    cancel->setObjectName(QStringLiteral("cancel"));
    connect(m_unlock, &QPushButton::clicked, this, &OpeningWindow::give);
    connect(m_password, &QLineEdit::returnPressed, this, &OpeningWindow::give);
    connect(cancel, &QPushButton::clicked, this, &OpeningWindow::cancelled);
    connect(this, &FramedWindow::closeAsked, this, &OpeningWindow::cancelled);

    auto* inside = new QVBoxLayout;
    inside->setContentsMargins(ui::kEdge, ui::kGroups, ui::kEdge, ui::kEdge);
    inside->setSpacing(ui::kGroups);
    inside->addWidget(badge, 0, Qt::AlignHCenter);
    inside->addWidget(place);
    inside->addWidget(m_bar);
    inside->addWidget(m_note);
    auto* locked = new QHBoxLayout;
    locked->setSpacing(ui::kRelated);
    locked->addWidget(m_password, 1);
    locked->addWidget(m_unlock);
    inside->addLayout(locked);
    inside->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancel);
    inside->addLayout(buttons);
    column()->addLayout(inside, 1);
    showProgress(QString());
    cancel->setFocus();
}

void OpeningWindow::showProgress(const QString& words)
{
    m_bar->setVisible(true);
    m_password->setVisible(false);
    m_unlock->setVisible(false);
    m_note->setText(words);
}

void OpeningWindow::askForPassword(bool isWrong)
{
    m_bar->setVisible(false);
    m_password->setVisible(true);
    m_unlock->setVisible(true);
    m_note->setText(isWrong ? tr("The password does not unlock this disk.")
                            : tr("The disk in this image is encrypted. Its password unlocks it."));
    m_password->selectAll();
    m_password->setFocus(Qt::OtherFocusReason);
}

void OpeningWindow::give()
{
    Q_EMIT passwordGiven(m_password->text());
}

} // namespace pryvane
