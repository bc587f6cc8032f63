#pragma once

#include <cstdint>

namespace plenair {

class Form;

constexpr int HWND_TOPMOST = -1;
constexpr int HWND_NOTOPMOST = -2;
constexpr unsigned SWP_NOACTIVATE = 16;
constexpr unsigned SWP_SHOWWINDOW = 64;

// `twips` in pixels, to the nearest, at most as far as 16 bits go.
std::int16_t WholePixels(double twips, double twipsPerPixel);

// Holds a window above all others (HWND_TOPMOST) or lets it go again (HWND_NOTOPMOST), without hiding it and
// without giving it the keyboard. `x` and `y` are the place of its frame in pixels; the size of a form is
// fixed, so `cx` and `cy` change nothing. Shows the window if SWP_SHOWWINDOW is among the flags. A desktop
// that has no such thing ignores it.
void SetWindowPos(Form& form, int insertAfter, std::int16_t x, std::int16_t y, std::int16_t cx,
                  std::int16_t cy, unsigned flags);

// Whether this desktop lets a program hold a window above those of other programs.
bool CanStayOnTop();

} // namespace plenair
