#include "hosts/linux/helper/TerminationWatch.h"

#include "core/Escape.h"
#include "hosts/linux/LoginHelper.h"
#include "platform/DesktopPrograms.h"

#include <chrono>
#include <cstdlib>
#include <dbus/dbus.h>
#include <string>
#include <string_view>
#include <unistd.h>

namespace pryvane {

namespace {

constexpr int kPatience = 1000; // ms for each step

struct Unref {
    void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};
using Message = std::unique_ptr<DBusMessage, Unref>;

class BusError {
public:
    BusError() { dbus_error_init(&m_error); }
    ~BusError() { dbus_error_free(&m_error); }
    BusError(const BusError&) = delete;
    BusError& operator=(const BusError&) = delete;
    DBusError* get() { return &m_error; }
    [[nodiscard]] Error told(const std::string& what) const
    {
        return Error{what + ": " +
                     forScreen(m_error.message ? m_error.message : "no reason given")};
    }

private:
    DBusError m_error{};
};

/// Empty where the session has no bus. Nothing is launched: a helper that started one would be
/// alone on it.
std::string sessionBusAddress()
{
    const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    if (address && *address)
        return std::string_view(address).starts_with("autolaunch:") ? "" : address;
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    const std::string socket = std::string(runtime ? runtime : "") + "/bus";
    return socket.starts_with("//") || access(socket.c_str(), F_OK) != 0 || !runtime
               ? ""
               : "unix:path=" + socket;
}

/// libdbus waits forever for a bus that takes the connection and then says nothing, unless the
/// introduction is over before the first call.
bool isIntroduced(DBusConnection* bus)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kPatience);
    while (!dbus_connection_get_is_authenticated(bus)) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        if (left.count() <= 0 || !dbus_connection_read_write(bus, static_cast<int>(left.count())))
            return false;
    }
    return true;
}

/// One call of the bus itself; false with the error set where it fails or takes too long.
bool callBus(DBusConnection* bus, const char* member, const char* argument, BusError& error)
{
    const Message call(dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS,
                                                    DBUS_INTERFACE_DBUS, member));
    if (!call || (argument && !dbus_message_append_args(call.get(), DBUS_TYPE_STRING, &argument,
                                                        DBUS_TYPE_INVALID)))
        return false;
    const Message reply(
        dbus_connection_send_with_reply_and_block(bus, call.get(), kPatience, error.get()));
    return reply != nullptr;
}

bool isTermination(DBusMessage* message)
{
    const char* name = nullptr;
    const char* object = nullptr;
    return dbus_message_is_signal(message, bus::kMessageInterface, bus::kMessageMember) &&
           dbus_message_get_args(message, nullptr, DBUS_TYPE_STRING, &name, DBUS_TYPE_STRING,
                                 &object, DBUS_TYPE_INVALID) &&
           name == kTerminateHelper;
}

} // namespace

void TerminationWatch::Close::operator()(DBusConnection* bus) const
{
    dbus_connection_close(bus);
    dbus_connection_unref(bus);
}

Result<TerminationWatch> TerminationWatch::start()
{
    const std::string address = sessionBusAddress();
    if (address.empty())
        return Error{"this session has no bus"};
    BusError error;
    Bus bus(dbus_connection_open_private(address.c_str(), error.get()));
    if (!bus)
        return error.told("the session bus cannot be reached");
    const std::string rule = std::string("type='signal',interface='") + bus::kMessageInterface +
                             "',member='" + bus::kMessageMember + "',arg0='" +
                             std::string(kTerminateHelper) + "'";
    if (!isIntroduced(bus.get()) || !callBus(bus.get(), "Hello", nullptr, error) ||
        !callBus(bus.get(), "AddMatch", rule.c_str(), error))
        return error.told("the session bus does not answer");
    return TerminationWatch(std::move(bus));
}

int TerminationWatch::descriptor() const
{
    int fd = -1;
    return dbus_connection_get_unix_fd(m_bus.get(), &fd) ? fd : -1;
}

TerminationWatch::News TerminationWatch::read()
{
    const bool connected = dbus_connection_read_write(m_bus.get(), 0);
    while (const Message message{dbus_connection_pop_message(m_bus.get())}) {
        if (isTermination(message.get()))
            return News::Terminate;
    }
    return connected ? News::None : News::BusGone;
}

} // namespace pryvane
