#pragma once

#include "core/Files.h"
#include "hosts/posix/SingleInstance.h"

#include <QObject>
#include <QSocketNotifier>

#include <chrono>
#include <functional>

namespace pryvane {

/// Takes the requests of later starts on the socket of SingleInstance. Whoever sends garbage, sends
/// nothing or is another user is dropped; none of them holds anyone else up. Main thread only.
class InstanceServer final : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<void(const InstanceRequest&)>;

    /// The handler runs after the sender has been answered.
    InstanceServer(UniqueFd socket, Handler handler);

private:
    void acceptAll();

    UniqueFd m_socket;
    Handler m_handler;
    QSocketNotifier m_notifier;
};

} // namespace pryvane
