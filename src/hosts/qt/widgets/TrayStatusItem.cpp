#include "hosts/qt/widgets/TrayStatusItem.h"

#include "words/Shown.h"

#include <QCursor>
#include <QGuiApplication>

namespace pryvane {

TrayStatusItem::TrayStatusItem(std::unique_ptr<TrayPlaces> places, DrawIcon drawIcon)
    : m_drawIcon(std::move(drawIcon)), m_places(std::move(places))
{
    m_menu.setToolTipsVisible(false);
    connect(m_places.get(), &TrayPlaces::changed, this, &TrayStatusItem::followPlaces);
}

TrayStatusItem::~TrayStatusItem() = default;

void TrayStatusItem::create(std::string_view image, int points)
{
    m_image = [this, name = std::string(image), points] { return m_drawIcon(name, points); };
    if (m_places->present())
        QMetaObject::invokeMethod(this, &TrayStatusItem::followPlaces, Qt::QueuedConnection);
}

bool TrayStatusItem::available() const
{
    return m_icon && m_places->present();
}

void TrayStatusItem::whenAvailabilityChanges(std::function<void()> changed)
{
    m_changed = std::move(changed);
}

void TrayStatusItem::followPlaces()
{
    const bool shown = m_icon != nullptr;
    if (!m_image || shown == m_places->present())
        return;
    m_icon.reset();
    if (m_places->present()) {
        m_icon = std::make_unique<QSystemTrayIcon>(m_image());
        m_icon->setToolTip(QStringLiteral("Pryvane"));
        m_icon->setContextMenu(&m_menu);
        // Not every tray opens the menu on the main button; only X11 lets a program do so itself.
        connect(m_icon.get(), &QSystemTrayIcon::activated, this, [this](auto reason) {
            if (reason == QSystemTrayIcon::Trigger &&
                QGuiApplication::platformName() == QLatin1String("xcb"))
                m_menu.popup(QCursor::pos());
        });
        m_icon->show();
    }
    const auto changed = m_changed;
    if (changed)
        changed();
}

void TrayStatusItem::setMenu(std::vector<StatusMenuEntry> entries)
{
    // One of the old actions may be the caller.
    for (QAction* old : m_menu.actions()) {
        m_menu.removeAction(old);
        old->deleteLater();
    }
    for (StatusMenuEntry& entry : entries) {
        if (entry.title.empty()) {
            m_menu.addSeparator();
            continue;
        }
        QAction* action = m_menu.addAction(ui::shownOnButton(entry.title));
        action->setCheckable(entry.checked.has_value());
        action->setChecked(entry.checked.value_or(false));
        connect(action, &QAction::triggered, this, [run = std::move(entry.action)] {
            const auto copy = run; // outlives a menu that it replaces
            if (copy)
                copy();
        });
    }
}

} // namespace pryvane
