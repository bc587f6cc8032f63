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

// What a panel takes of a screen, in pixels. `panel` is its twelve numbers: first how far it reaches inwards
// from the left, right, top and bottom edge of all screens together, which measure `all`; then, for each of
// these edges, where along it the panel begins and ends. It takes something of a screen if its inner edge
// lies on that screen.
QMargins TakenBy(const std::vector<std::uint32_t>& panel, const QRect& screen, QSize all);

} // namespace plenair
