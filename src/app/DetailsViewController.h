#pragma once

#include "app/Navigation.h"
#include "core/NotificationCenter.h"
#include "core/tasks/BoundQueue.h"
#include "platform/PlatformServices.h"

#include <QObject>

#include <array>
#include <memory>

namespace pryvane {

class AppDelegate;

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

/// One screen of the main window.
class Screen {
public:
    virtual ~Screen() = default;

    /// It has come to the front; the print command is disabled until the screen gives it an action.
    virtual void viewWillAppear() {}

    /// Only the scan screen does something.
    virtual void SpywareScanStart() {}
};

/// Makes the screens, each together with its widgets.
class ScreenFactory {
public:
    virtual ~ScreenFactory() = default;

    /// Called once for each row, when it is first shown. Never none.
    [[nodiscard]] virtual std::unique_ptr<Screen> makeScreen(Row row) = 0;
};

/// The content of the main window without its widgets: which screen is shown, and when a requested
/// scan starts. Screens are made on first use and then kept. Main thread only.
class DetailsViewController final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DetailsViewController)

public:
    DetailsViewController(const PlatformServices& services, AppDelegate& delegate,
                          ScreenFactory& factory, QObject* parent = nullptr);
    ~DetailsViewController() override;

    /// Shows the dashboard, which applies the preferences.
    void viewDidLoad();

    [[nodiscard]] Row currentRow() const { return m_current; }

Q_SIGNALS:
    /// Another screen is shown.
    void stateChanged();

private:
    void selectionChange(const SelectionChange& change);
    Screen& show(Row row);

    AppDelegate& m_delegate;
    ScreenFactory& m_factory;
    Row m_current = Row::Dashboard;
    std::array<std::unique_ptr<Screen>, kRowTitles.size()> m_screens;
    NotificationCenter::Observation m_selectionChange;
    BoundQueue m_later;
};

} // namespace pryvane
