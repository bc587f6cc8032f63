#include "platform/qt/WindowPos.h"

#include "platform/qt/Form.h"
#include "platform/qt/Twips.h"

#include <QPoint>
#include <QRect>
#include <QWindow>

#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace plenair {

std::int16_t WholePixels(double twips, double twipsPerPixel) {
    return static_cast<std::int16_t>(std::clamp(std::nearbyint(twips / twipsPerPixel), -32768.0, 32767.0));
}

void SetWindowPos(Form& form, int insertAfter, std::int16_t x, std::int16_t y, std::int16_t, std::int16_t,
                  unsigned flags) {
    form.winId(); // makes the native window, should the form never have been shown
    // The widget's own setter would take the window off the screen to change it; the native window need not.
    const bool topmost = insertAfter == HWND_TOPMOST;
    form.overrideWindowFlags(form.windowFlags().setFlag(Qt::WindowStaysOnTopHint, topmost));
    form.windowHandle()->setFlag(Qt::WindowStaysOnTopHint, topmost);
    if (ToPixelsX(form.Left()) != x || ToPixelsY(form.Top()) != y) {
        form.MoveTo(x * TwipsPerPixelX(), y * TwipsPerPixelY());
    }
    if ((flags & SWP_SHOWWINDOW) != 0 && !form.isVisible()) {
        form.setAttribute(Qt::WA_ShowWithoutActivating, (flags & SWP_NOACTIVATE) != 0);
        form.show();
    }
}

bool CanStayOnTop() {
    return !QGuiApplication::platformName().startsWith("wayland");
}

} // namespace plenair
