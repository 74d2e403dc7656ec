#pragma once

#include "core/Result.h"
#include "core/tasks/BoundQueue.h"
#include "platform/FileURL.h"
#include "platform/PlatformServices.h"

#include <QObject>

#include <vector>

namespace pryvane {

class AppDelegate;
class GrantTokens;

/// How much of a disk is looked at.
enum class AccessScope : std::uint8_t { ThisHome, EveryHome, WholeDisk };

struct AccessChoice {
    AccessScope scope;
    FileURL folder;
    bool isThere = false;
};

/// The access window without its widgets: asks for the home folder, then opens the main window.
/// Main thread only.
class NotAccessVC final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NotAccessVC)

public:
    NotAccessVC(const PlatformServices& services, GrantTokens& tokens, AppDelegate& delegate,
                QObject* parent = nullptr);

    /// What can be given access to, from the least to the most, and whether there is such a folder
    /// on the disk.
    [[nodiscard]] std::vector<AccessChoice> choices() const;
    /// Gives access to that without any panel; `granted` is told, and the main window follows.
    void grant(AccessScope scope);
    /// Has a panel ask for the folder.
    void confirmAccessAction();
    void closeAppAction();
    [[nodiscard]] bool panelShouldEnableURL(const FileURL& url) const;

    /// Whether the access was granted and the main window is about to open.
    [[nodiscard]] bool isGranted() const { return m_isGranted; }

Q_SIGNALS:
    void stateChanged();
    /// Somebody has chosen this much, and access to it is kept.
    void granted(pryvane::AccessScope scope);

private:
    PlatformServices m_services;
    GrantTokens& m_tokens;
    AppDelegate& m_delegate;
    void open();

    bool m_isGranted = false;
    BoundQueue m_later;
};

} // namespace pryvane
