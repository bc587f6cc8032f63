#pragma once

#include <QGuiApplication>
#include <QtGui/qguiapplication_platform.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include <xcb/xcb.h>

namespace plenair {

// The toolkit's connection to the X server; null on a desktop of another kind.
inline xcb_connection_t* Server() {
    auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

inline xcb_atom_t AtomOf(xcb_connection_t* server, const char* name) {
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    auto* reply = xcb_intern_atom_reply(server, xcb_intern_atom(server, 0, length, name), nullptr);
    const xcb_atom_t atom = reply != nullptr ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    std::free(reply);
    return atom;
}

} // namespace plenair
