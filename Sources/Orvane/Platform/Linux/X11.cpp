#include "Platform/Linux/X11.h"

#include <QGuiApplication>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace orvane::x11 {
namespace {

template <class T>
std::unique_ptr<T, decltype(&std::free)> owned(T* reply) {
    return {reply, &std::free};
}

} // namespace

xcb_connection_t* connection() {
    if (QGuiApplication::platformName() != QLatin1String("xcb")) return nullptr;
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_window_t root() {
    return xcb_setup_roots_iterator(xcb_get_setup(connection())).data->root;
}

xcb_atom_t atom(const char* name) {
    const auto cookie = xcb_intern_atom(connection(), 0, std::uint16_t(std::strlen(name)), name);
    const auto reply = owned(xcb_intern_atom_reply(connection(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> property(xcb_window_t window, xcb_atom_t name, xcb_atom_t type) {
    constexpr std::uint32_t mostItems = 16384;
    const auto cookie = xcb_get_property(connection(), 0, window, name, type, 0, mostItems);
    const auto reply = owned(xcb_get_property_reply(connection(), cookie, nullptr));
    if (!reply || reply->format != 32) return {};
    const auto* items = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {items, items + reply->value_len};
}

std::optional<Pointer> pointer() {
    const auto cookie = xcb_query_pointer(connection(), root());
    const auto reply = owned(xcb_query_pointer_reply(connection(), cookie, nullptr));
    if (!reply) return std::nullopt;
    return Pointer{reply->root_x, reply->root_y, reply->mask};
}

} // namespace orvane::x11
