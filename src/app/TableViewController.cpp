#include "app/TableViewController.h"

namespace pryvane {

TableViewController::TableViewController(NotificationCenter& notifications, QObject* parent)
    : QObject(parent), m_notifications(notifications),
      m_changed(notifications.observe(
          NotificationName::MainTableChangedManually, [this](const Notification& note) {
              if (const auto* row = std::get_if<std::int64_t>(&note.object))
                  selectionChangeManually(*row);
          }))
{
}

void TableViewController::selectRow(int row)
{
    if (!isRow(row) || row == rowIndex(m_selected))
        return;
    selectionChangeManually(row);
    m_notifications.post(NotificationName::MainTableSelectionChange,
                         SelectionChange{row, false, false});
}

void TableViewController::selectionChangeManually(std::int64_t row)
{
    if (!isRow(row) || row == rowIndex(m_selected))
        return;
    m_selected = static_cast<Row>(row);
    Q_EMIT stateChanged();
}

} // namespace pryvane
