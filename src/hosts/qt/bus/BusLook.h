#pragma once

#include "hosts/qt/DesktopHost.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

namespace pryvane {

/// Whether the desktop is dark, and whether it wants more contrast, as its portal tells and goes on
/// telling. Nothing waits for the answer; a desktop without a portal gives none. Main thread only.
class BusLook final : public QObject {
    Q_OBJECT

public:
    explicit BusLook(QDBusConnection bus);

    /// Asks, and tells what it is then and each time it changes.
    void follow(DesktopHost::LookTold told);

private Q_SLOTS:
    void heard(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask(const QString& key);
    void take(const QString& key, const QVariant& value);

    QDBusConnection m_bus;
    DesktopHost::LookTold m_told;
    std::optional<bool> m_dark;
    bool m_contrast = false;
};

} // namespace pryvane
