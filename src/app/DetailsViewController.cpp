#include "app/DetailsViewController.h"

#include "app/AppDelegate.h"

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

namespace {

constexpr std::chrono::milliseconds kScanStart{500};

} // namespace

DetailsViewController::DetailsViewController(const PlatformServices& services,
                                             AppDelegate& delegate, ScreenFactory& factory,
                                             QObject* parent)
    : QObject(parent), m_delegate(delegate), m_factory(factory),
      m_selectionChange(services.notifications.observe(
          NotificationName::MainTableSelectionChange,
          [this](const Notification& note) {
              if (const auto* change = std::get_if<SelectionChange>(&note.object))
                  selectionChange(*change);
          })),
      m_later(services.mainQueue)
{
}

DetailsViewController::~DetailsViewController() = default;

void DetailsViewController::viewDidLoad()
{
    show(Row::Dashboard);
}

void DetailsViewController::selectionChange(const SelectionChange& change)
{
    if (!isRow(change.row))
        return;
    Screen& screen = show(static_cast<Row>(change.row));
    if (change.scan)
        m_later.postAfter(kScanStart, [&screen] { screen.SpywareScanStart(); });
}

Screen& DetailsViewController::show(Row row)
{
    auto& screen = m_screens.at(static_cast<std::size_t>(row));
    if (!screen)
        screen = m_factory.makeScreen(row);
    m_current = row;
    m_delegate.setPrintAction({});
    screen->viewWillAppear();
    Q_EMIT stateChanged();
    return *screen;
}

} // namespace pryvane
