#include "hosts/qt/InstanceServer.h"

#include "hosts/posix/CurrentUser.h"
#include "hosts/posix/SingleInstance.h"

#include <QTimer>

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/socket.h>

namespace pryvane {

namespace {

/// More than a person starts at once; any more are dropped.
constexpr qsizetype kSenders = 32;

/// One later start, from its connection to its answer. Ends itself.
class Sender final : public QObject {
public:
    Sender(UniqueFd socket, const InstanceServer::Handler& handler, QObject* parent)
        : QObject(parent), m_socket(std::move(socket)), m_handler(handler),
          m_notifier(m_socket.get(), QSocketNotifier::Read)
    {
        connect(&m_notifier, &QSocketNotifier::activated, this, &Sender::read);
        QTimer::singleShot(SingleInstance::kPatience, this, &Sender::end);
    }

private:
    void read()
    {
        char buffer[kInstanceMessageLimit + 1];
        const ssize_t count = recv(m_socket.get(), buffer, sizeof buffer, 0);
        if (count < 0 && (errno == EAGAIN || errno == EINTR))
            return;
        if (count > 0 &&
            m_message.size() + static_cast<std::size_t>(count) <= kInstanceMessageLimit)
            m_message.append(buffer, static_cast<std::size_t>(count));
        else if (count == 0)
            finish();
        else
            end();
    }

    void finish()
    {
        const auto request = decodedRequest(m_message);
        end();
        if (!request)
            return;
        // A sender that has lost patience is gone; its request stands.
        sendOnSocket(m_socket.get(), kInstanceAnswer);
        m_socket.reset();
        const auto handler = m_handler; // which may end the server, and this with it
        handler(*request);
    }

    void end()
    {
        m_notifier.setEnabled(false);
        deleteLater();
    }

    UniqueFd m_socket;
    const InstanceServer::Handler& m_handler;
    QSocketNotifier m_notifier;
    std::string m_message;
};

} // namespace

InstanceServer::InstanceServer(UniqueFd socket, Handler handler)
    : m_socket(std::move(socket)), m_handler(std::move(handler)),
      m_notifier(m_socket.get(), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &InstanceServer::acceptAll);
}

void InstanceServer::acceptAll()
{
    while (true) {
        UniqueFd sender(accept(m_socket.get(), nullptr, nullptr));
        if (!sender)
            return;
        fcntl(sender.get(), F_SETFD, FD_CLOEXEC);
        fcntl(sender.get(), F_SETFL, O_NONBLOCK);
        if (peerUser(sender.get()) == geteuid() && children().size() < kSenders)
            new Sender(std::move(sender), m_handler, this);
    }
}

} // namespace pryvane
