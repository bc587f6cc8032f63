#pragma once

#include <QRect>

class QScreen;

namespace plenair {

// What the desktop's panels leave of a screen, in logical pixels. Of several screens the toolkit doesn't know
// it.
QRect FreeArea(const QScreen& screen);

} // namespace plenair
