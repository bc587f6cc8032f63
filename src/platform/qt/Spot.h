#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace plenair {

// Where the frame of a window belongs: the place of its top left corner, of its top right corner, or of its
// centre, in logical pixels of the desktop.
struct Spot {
    enum class Part { TopLeft, TopRight, Centre };

    QPoint Place;
    Part Of = Part::TopLeft;
};

// Where the top left corner of a frame of that size has to stand: on its spot, but not beyond an edge of the
// screen, from where nobody could drag it back. What is larger than the screen keeps its title bar there.
QPoint FrameCorner(const Spot& spot, QSize frame, const QRect& screen);

} // namespace plenair
