#pragma once

#include "platform/DesktopWindows.h"

#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <memory>

namespace pryvane {

/// Whether the desktop has a place for status items now. Told by events; nothing is polled.
class TrayPlaces : public QObject {
    Q_OBJECT

public:
    [[nodiscard]] virtual bool present() const = 0;

Q_SIGNALS:
    void changed();
};

/// For a desktop that always has one.
class AlwaysAPlace final : public TrayPlaces {
    Q_OBJECT

public:
    [[nodiscard]] bool present() const override { return true; }
};

/// The status item as a tray icon. Qt decides once which kind of tray there is, so the icon is made
/// only when one has been seen, and anew for each that comes.
class TrayStatusItem final : public QObject, public StatusItem {
    Q_OBJECT

public:
    /// Draws the named image of the image set in that size.
    using DrawIcon = std::function<QIcon(std::string_view image, int points)>;

    TrayStatusItem(std::unique_ptr<TrayPlaces> places, DrawIcon drawIcon);
    ~TrayStatusItem() override;

    void create(std::string_view image, int points) override;
    [[nodiscard]] bool available() const override;
    void whenAvailabilityChanges(std::function<void()> changed) override;
    void setMenu(std::vector<StatusMenuEntry> entries) override;

    /// As it is shown now.
    [[nodiscard]] QMenu& menu() { return m_menu; }

private:
    void followPlaces();

    DrawIcon m_drawIcon;
    std::function<QIcon()> m_image; ///< drawn when there is a place for it; none: not created yet
    const std::unique_ptr<TrayPlaces> m_places;
    QMenu m_menu;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    std::function<void()> m_changed;
};

} // namespace pryvane
