#pragma once

#include "core/Result.h"
#include "core/tasks/BoundQueue.h"
#include "platform/FileURL.h"
#include "platform/PlatformServices.h"

#include <QObject>

namespace pryvane {

class AppDelegate;
class GrantTokens;

/// The access window without its widgets: asks for the home folder, then opens the main window.
/// Main thread only.
class NotAccessVC final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NotAccessVC)

public:
    NotAccessVC(const PlatformServices& services, GrantTokens& tokens, AppDelegate& delegate,
                QObject* parent = nullptr);

    void confirmAccessAction();
    void closeAppAction();
    [[nodiscard]] bool panelShouldEnableURL(const FileURL& url) const;

    /// Whether the access was granted and the main window is about to open.
    [[nodiscard]] bool isGranted() const { return m_isGranted; }

Q_SIGNALS:
    void stateChanged();

private:
    PlatformServices m_services;
    GrantTokens& m_tokens;
    AppDelegate& m_delegate;
    bool m_isGranted = false;
    BoundQueue m_later;
};

} // namespace pryvane
