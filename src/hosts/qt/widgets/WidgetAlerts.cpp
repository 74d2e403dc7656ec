#include "hosts/qt/widgets/WidgetAlerts.h"

#include "hosts/qt/Text.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace pryvane {

namespace {

constexpr int kLeastWidth = 360, kPicture = 48;

/// A box shows its first text large and the second small; one without a first must not be empty.
void setTexts(QMessageBox& box, const Alert& alert)
{
    box.setTextFormat(Qt::PlainText);
    const bool both = !alert.messageText.empty();
    box.setText(qt::text(both ? alert.messageText : alert.informativeText));
    if (both)
        box.setInformativeText(qt::text(alert.informativeText));
    if (both) {
        if (auto* title = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
            QFont font = title->font();
            font.setWeight(QFont::DemiBold);
            title->setFont(font);
        }
    }
    // The box guesses the format of its second text whatever it was told.
    for (QLabel* label : box.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
}

/// A short text is still read in one line, and the title is seen whole.
void giveRoom(QMessageBox& box)
{
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(kLeastWidth, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

bool declines(const std::string& button)
{
    return button == "No" || button == "Cancel";
}

} // namespace

int WidgetAlerts::runModal(const Alert& alert)
{
    QMessageBox box(QApplication::activeWindow());
    box.setObjectName(QStringLiteral("alert"));
    box.setWindowTitle(QStringLiteral("Pryvane"));
    box.setIconPixmap(QApplication::windowIcon().pixmap(kPicture));
    setTexts(box, alert);
    const std::vector<std::string> titles =
        alert.buttons.empty() ? std::vector<std::string>{"OK"} : alert.buttons;
    std::vector<QAbstractButton*> buttons;
    for (const std::string& title : titles) {
        QPushButton* button = box.addButton(qt::buttonText(title), QMessageBox::ActionRole);
        if (buttons.empty())
            box.setDefaultButton(button);
        buttons.push_back(button);
        if (declines(title) || titles.size() == 1)
            box.setEscapeButton(button);
    }
    giveRoom(box);
    box.exec();
    const auto chosen = std::find(buttons.begin(), buttons.end(), box.clickedButton());
    // Only the program's own end closes a box without a button; nothing is agreed to by that.
    const auto index = chosen == buttons.end() ? std::ssize(buttons) - 1 : chosen - buttons.begin();
    return kAlertFirstButton + static_cast<int>(index);
}

} // namespace pryvane
