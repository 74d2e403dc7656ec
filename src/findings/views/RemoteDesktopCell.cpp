#include "findings/views/RemoteDesktopCell.h"

#include "ui/Icons.h"
#include "ui/Labels.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace pryvane {

RemoteDesktopCell::RemoteDesktopCell(bool canIgnore, QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("ARDCell"));
    auto* picture = new QLabel;
    picture->setPixmap(ui::icon(QStringLiteral("attention"), ui::Meaning::Attention)
                           .pixmap(QSize(20, 20), devicePixelRatioF()));
    auto* name = ui::makeLabel(ui::TextRole::GroupTitle, tr("Apple Remote Desktop is set up"));
    auto* sentence = ui::makeNote(tr("Somebody may see and control this Mac from afar. If that is "
                                     "not wanted, switch it off in the Mac's settings."));
    auto* instructions = new QPushButton(tr("How to switch it off"));
    instructions->setObjectName(QStringLiteral("removeARD"));
    instructions->setToolTip(tr("Opens Apple's article in the web browser"));
    auto* ignore = new QCheckBox(tr("Ignore from now on"));
    ignore->setObjectName(QStringLiteral("ignoreARD"));
    ignore->setVisible(canIgnore);
    connect(instructions, &QPushButton::clicked, this, &RemoteDesktopCell::removeARD);
    connect(ignore, &QCheckBox::clicked, this, &RemoteDesktopCell::ignoreARD);

    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    words->addWidget(name);
    words->addWidget(sentence);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(ui::kRelated);
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addLayout(words, 1);
    row->addWidget(ignore);
    row->addWidget(instructions);
}

} // namespace pryvane
