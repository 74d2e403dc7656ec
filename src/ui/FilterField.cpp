#include "ui/FilterField.h"

#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QAction>

namespace pryvane::ui {

QLineEdit* makeFilterField(const QString& placeholder)
{
    auto* field = new QLineEdit;
    field->setObjectName(QStringLiteral("filter"));
    field->setPlaceholderText(placeholder);
    field->setAccessibleName(QObject::tr("Filter"));
    field->setMinimumHeight(kTarget);
    field->setClearButtonEnabled(true);
    if (auto* clear = field->findChild<QAction*>(QStringLiteral("_q_qlineeditclearaction")))
        clear->setText(QObject::tr("Clear the filter"));
    QAction* picture = field->addAction(icon(QStringLiteral("filter")), QLineEdit::LeadingPosition);
    picture->setText(QObject::tr("Filter"));
    return field;
}

} // namespace pryvane::ui
