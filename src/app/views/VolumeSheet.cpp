#include "app/views/VolumeSheet.h"

#include "core/Escape.h"
#include "ui/Labels.h"
#include "ui/Style.h"
#include "words/Shown.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace pryvane {

VolumeSheet::VolumeSheet(QWidget* over, Asks asks, std::string place, std::string user)
    : Sheet(over, tr("Open")), m_asks(std::move(asks)), m_folder(std::move(place)),
      m_user(std::move(user)), m_place(new ui::ElidedLabel),
      m_choose(new QPushButton(tr("Choose Folder…"))),
      m_chooseFile(new QPushButton(tr("Choose File…"))), m_account(new QComboBox),
      m_passwordLabel(new QLabel(tr("Password"))), m_password(new QLineEdit),
      m_unlock(new QPushButton(tr("Unlock"))), m_bar(new QProgressBar), m_note(ui::makeNote()),
      m_open(new QPushButton(tr("Open")))
{
    setObjectName(QStringLiteral("volumeSheet"));
    m_choose->setObjectName(QStringLiteral("chooseFolder"));
    m_chooseFile->setObjectName(QStringLiteral("chooseFile"));
    m_account->setObjectName(QStringLiteral("account"));
    m_account->setAccessibleName(tr("User"));
    m_account->setEditable(true);
    m_account->lineEdit()->setAccessibleName(tr("User"));
    m_account->setMinimumHeight(ui::kTarget);
    m_password->setObjectName(QStringLiteral("password"));
    m_password->setAccessibleName(tr("Password"));
    m_password->setEchoMode(QLineEdit::Password);
    m_password->setMinimumHeight(ui::kTarget);
    m_unlock->setObjectName(QStringLiteral("unlock"));
    m_bar->setRange(0, 0); // nobody knows how many there are
    m_bar->setTextVisible(false);
    m_bar->setAccessibleName(tr("Reading names"));
    m_open->setObjectName(QStringLiteral("openChosen"));
    ui::makePrimary(*m_open);
    setDefault(m_open);
    ui::setTextRole(*m_place, ui::TextRole::Path);
    m_note->setWordWrap(true);

    auto* choices = new QHBoxLayout;
    choices->setSpacing(ui::kRelated);
    choices->addWidget(m_place, 1);
    choices->addWidget(m_choose);
    choices->addWidget(m_chooseFile);
    auto* locked = new QHBoxLayout;
    locked->setSpacing(ui::kRelated);
    locked->addWidget(m_password, 1);
    locked->addWidget(m_unlock);
    auto* form = new QFormLayout;
    form->setSpacing(ui::kRelated);
    form->addRow(tr("Disk"), choices);
    form->addRow(m_passwordLabel, locked);
    form->addRow(tr("User"), m_account);
    body()->addWidget(ui::makeNote(
        tr("A folder where a Mac's disk is mounted stands for that Mac's root, and what is found "
           "there can be removed. A file is an image of a disk, or a list of its names: it is only "
           "read.")));
    body()->addLayout(form);
    body()->addWidget(m_bar);
    body()->addWidget(m_note);
    auto* cancel = new QPushButton(tr("Cancel"));
    buttons()->addWidget(m_open);
    buttons()->addWidget(cancel);
    connect(cancel, &QPushButton::clicked, this, &Sheet::dismiss);
    connect(this, &Sheet::closed, this, [this] { m_asks.stop(); });
    connect(m_choose, &QPushButton::clicked, this, [this] { choose(m_asks.pickFolder); });
    connect(m_chooseFile, &QPushButton::clicked, this, [this] { choose(m_asks.pickFile); });
    connect(m_unlock, &QPushButton::clicked, this, &VolumeSheet::look);
    connect(m_password, &QLineEdit::returnPressed, this, &VolumeSheet::look);
    connect(m_open, &QPushButton::clicked, this, &VolumeSheet::accept);
    m_progress.setInterval(100);
    connect(&m_progress, &QTimer::timeout, this, &VolumeSheet::showProgress);
    showLooked(Looked());
    look();
}

void VolumeSheet::present()
{
    Sheet::present(m_choose);
}

void VolumeSheet::choose(const std::function<std::optional<std::string>(const std::string&)>& pick)
{
    if (const auto place = pick(m_folder)) {
        m_folder = *place;
        m_password->clear();
        m_account->setFocus(Qt::OtherFocusReason);
        look();
    }
}

void VolumeSheet::look()
{
    m_isLooking = true;
    m_place->setText(ui::text(forScreen(m_folder)));
    m_asks.look(m_folder, m_password->text().toStdString(),
                [sheet = QPointer(this)](const Looked& looked) {
                    if (sheet) {
                        sheet->m_isLooking = false;
                        sheet->showLooked(looked);
                    }
                });
    if (m_isLooking)
        showProgress();
}

/// While the names of a file are read nothing can be opened yet.
void VolumeSheet::showProgress()
{
    m_bar->setVisible(m_isLooking);
    if (!m_isLooking)
        return m_progress.stop();
    m_progress.start();
    m_open->setEnabled(false);
    m_note->setText(m_asks.progress());
    m_note->setVisible(true);
}

void VolumeSheet::showLooked(const Looked& looked)
{
    m_users = looked.users;
    const bool hasUsers = !m_users.empty();
    m_users.insert(m_users.begin(), std::string()); // everyone
    m_account->clear();
    for (const std::string& user : m_users)
        m_account->addItem(user.empty() ? tr("Everyone") : ui::text(forScreen(user)));
    const auto known = std::find(m_users.begin(), m_users.end(), m_user);
    if (known != m_users.end())
        m_account->setCurrentIndex(static_cast<int>(known - m_users.begin()));
    else if (!hasUsers)
        m_account->setEditText(ui::text(forScreen(m_user)));
    m_passwordLabel->setVisible(looked.isLocked);
    m_password->setVisible(looked.isLocked);
    m_unlock->setVisible(looked.isLocked);
    m_open->setEnabled(!looked.refusal);
    m_note->setText(looked.isLocked && m_password->text().isEmpty()
                        ? tr("The disk in this image is encrypted. Its password unlocks it.")
                    : looked.isLocked ? tr("The password does not unlock this disk.")
                    : looked.refusal  ? ui::shown(*looked.refusal)
                    : hasUsers
                        ? QString()
                        : tr("There is no folder \"Users\" with accounts here, so this may not be "
                             "the root of a Mac's disk."));
    m_note->setVisible(!m_note->text().isEmpty());
    showProgress();
    if (looked.isLocked)
        m_password->setFocus(Qt::OtherFocusReason);
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
    const std::string password = m_password->text().toStdString();
    dismiss();
    open(folder, user, password);
}

} // namespace pryvane
