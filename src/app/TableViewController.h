#pragma once

#include "app/Navigation.h"
#include "core/NotificationCenter.h"

#include <QObject>

namespace pryvane {

/// The navigation table without its widgets. Main thread only.
class TableViewController final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TableViewController)

public:
    explicit TableViewController(NotificationCenter& notifications, QObject* parent = nullptr);

    /// The user chose that row: its screen is asked for. The row that is selected already, or none,
    /// changes nothing.
    void selectRow(int row);

    /// Another part chose the row; only the selection follows. A row that does not exist is
    /// ignored.
    void selectionChangeManually(std::int64_t row);

    [[nodiscard]] Row selectedRow() const { return m_selected; }

Q_SIGNALS:
    void stateChanged();

private:
    NotificationCenter& m_notifications;
    Row m_selected = Row::Dashboard;
    NotificationCenter::Observation m_changed;
};

} // namespace pryvane
