#pragma once

#include <QMargins>
#include <QRect>
#include <QSize>

#include <cstdint>
#include <vector>

class QScreen;

namespace plenair {

// What the desktop's panels leave of a screen, in logical pixels. Of several screens the toolkit doesn't know
// it.
QRect FreeArea(const QScreen& screen);

// What a panel takes of a screen, in pixels. In twelve numbers it says how far it reaches from each edge of
// all screens together (left, right, top, bottom) and from where to where along that edge; it takes of that
// screen on which it ends.
QMargins TakenBy(const std::vector<std::uint32_t>& panel, const QRect& screen, QSize all);

} // namespace plenair
