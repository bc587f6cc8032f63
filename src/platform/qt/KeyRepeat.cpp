#include "platform/qt/KeyRepeat.h"

#include <QGuiApplication>

#ifdef PLENAIR_X11
#include <X11/XKBlib.h>
#endif

namespace plenair {

void TellRepeatFromRelease() {
#ifdef PLENAIR_X11
    if (QGuiApplication::platformName() == "xcb") {
        const auto* server = qApp->nativeInterface<QNativeInterface::QX11Application>();
        XkbSetDetectableAutoRepeat(server->display(), 1, nullptr);
    }
#endif
}

} // namespace plenair
