#include "app/views/VolumeSheet.h"

#include "core/Escape.h"
#include "ui/Labels.h"
#include "ui/Style.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace pryvane {

VolumeSheet::VolumeSheet(QWidget* over, Asks asks, std::string folder, std::string user)
    : Sheet(over, tr("Open Volume")), m_asks(std::move(asks)), m_folder(std::move(folder)),
      m_user(std::move(user)), m_place(new ui::ElidedLabel),
      m_choose(new QPushButton(tr("Choose Folder…"))), m_account(new QComboBox),
      m_note(ui::makeNote()), m_open(new QPushButton(tr("Open")))
{
    setObjectName(QStringLiteral("volumeSheet"));
    m_choose->setObjectName(QStringLiteral("chooseFolder"));
    m_account->setObjectName(QStringLiteral("account"));
    m_account->setAccessibleName(tr("User"));
    m_account->setEditable(true);
    m_account->lineEdit()->setAccessibleName(tr("User"));
    m_account->setMinimumHeight(ui::kTarget);
    m_open->setObjectName(QStringLiteral("openChosen"));
    ui::makePrimary(*m_open);
    ui::setTextRole(*m_place, ui::TextRole::Path);
    m_note->setWordWrap(true);

    auto* place = new QHBoxLayout;
    place->setSpacing(ui::kRelated);
    place->addWidget(m_place, 1);
    place->addWidget(m_choose);
    auto* form = new QFormLayout;
    form->setSpacing(ui::kRelated);
    form->addRow(tr("Folder"), place);
    form->addRow(tr("User"), m_account);
    body()->addWidget(ui::makeNote(
        tr("The folder where a Mac's disk is mounted stands for that Mac's root. Everything "
           "Pryvane looks at and removes then lies inside it.")));
    body()->addLayout(form);
    body()->addWidget(m_note);
    auto* cancel = new QPushButton(tr("Cancel"));
    buttons()->addWidget(m_open);
    buttons()->addWidget(cancel);
    connect(cancel, &QPushButton::clicked, this, &Sheet::dismiss);
    connect(m_choose, &QPushButton::clicked, this, &VolumeSheet::chooseFolder);
    connect(m_open, &QPushButton::clicked, this, &VolumeSheet::accept);
    look();
}

void VolumeSheet::present()
{
    Sheet::present(m_choose);
}

void VolumeSheet::chooseFolder()
{
    if (const auto folder = m_asks.pickFolder(m_folder)) {
        m_folder = *folder;
        look();
        m_account->setFocus(Qt::OtherFocusReason);
    }
}

void VolumeSheet::look()
{
    m_users.clear();
    const auto refusal = m_asks.users(m_folder, m_users);
    const bool hasUsers = !m_users.empty();
    m_users.insert(m_users.begin(), std::string()); // everyone
    m_place->setText(ui::text(forScreen(m_folder)));
    m_account->clear();
    for (const std::string& user : m_users)
        m_account->addItem(user.empty() ? tr("Everyone") : ui::text(forScreen(user)));
    const auto known = std::find(m_users.begin(), m_users.end(), m_user);
    if (known != m_users.end())
        m_account->setCurrentIndex(static_cast<int>(known - m_users.begin()));
    else if (!hasUsers)
        m_account->setEditText(ui::text(forScreen(m_user)));
    m_open->setEnabled(!refusal);
    m_note->setText(refusal ? ui::text(*refusal)
                    : !hasUsers
                        ? tr("There is no folder \"Users\" with accounts here, so this may not be "
                             "the root of a Mac's disk.")
                        : QString());
    m_note->setVisible(!m_note->text().isEmpty());
}

/// One of the list keeps its bytes; anything else is what was typed.
std::string VolumeSheet::chosenUser() const
{
    const int index = m_account->currentIndex();
    if (index >= 0 && m_account->itemText(index) == m_account->currentText())
        return m_users.at(static_cast<std::size_t>(index));
    if (m_account->currentText() == ui::text(forScreen(m_user)))
        return m_user;
    return m_account->currentText().toStdString();
}

void VolumeSheet::accept()
{
    const auto open = m_asks.open;
    const std::string folder = m_folder, user = chosenUser();
    dismiss();
    open(folder, user);
}

} // namespace pryvane
