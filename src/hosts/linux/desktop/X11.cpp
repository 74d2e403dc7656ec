#include "hosts/linux/desktop/X11.h"

#include <QGuiApplication>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace pryvane::x11 {

namespace {

/// Replies are the C library's memory.
struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Answer = std::unique_ptr<Reply, Free>;

} // namespace

xcb_connection_t* connection()
{
    auto* native =
        qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return native ? native->connection() : nullptr;
}

xcb_atom_t atom(const char* name)
{
    const auto cookie =
        xcb_intern_atom(connection(), 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Answer<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_window_t selectionOwner(xcb_atom_t selection)
{
    const auto cookie = xcb_get_selection_owner(connection(), selection);
    const Answer<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection(), cookie, nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
}

void setSkipTaskbar(xcb_window_t window, bool skip)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom("_NET_WM_STATE");
    event.data.data32[0] = skip ? 1 : 0;
    event.data.data32[1] = atom("_NET_WM_STATE_SKIP_TASKBAR");
    event.data.data32[2] = atom("_NET_WM_STATE_SKIP_PAGER");
    event.data.data32[3] = 1; // an ordinary application asks
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection())).data->root;
    xcb_send_event(connection(), 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(connection());
}

bool isOverlooked(xcb_window_t window)
{
    const auto attributesCookie = xcb_get_window_attributes(connection(), window);
    const auto stateCookie = xcb_get_property(connection(), 0, window, atom("WM_STATE"),
                                              XCB_GET_PROPERTY_TYPE_ANY, 0, 2);
    const Answer<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection(), attributesCookie, nullptr));
    const Answer<xcb_get_property_reply_t> state(
        xcb_get_property_reply(connection(), stateCookie, nullptr));
    if (!attributes || attributes->map_state != XCB_MAP_STATE_UNMAPPED || !state)
        return false;
    constexpr std::uint32_t kWithdrawn = 0;
    return xcb_get_property_value_length(state.get()) < 4 ||
           *static_cast<const std::uint32_t*>(xcb_get_property_value(state.get())) == kWithdrawn;
}

void map(xcb_window_t window)
{
    xcb_map_window(connection(), window);
    xcb_flush(connection());
}

void watchEndOf(xcb_window_t window)
{
    const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection(), window, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(connection());
}

} // namespace pryvane::x11
