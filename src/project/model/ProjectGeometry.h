#pragma once

#include "platform/plane/Point.h"
#include "project/model/DuctRecord.h"

// Where things stand on the grid and on a page. Pure functions; units are those of the drawing surface.
namespace plenair {

constexpr int kCellsAcross = 40;
constexpr int kCellsDown = 30;

enum class Axis { X = 1, Y = 2 };

// Distance of the grid lines on a surface that is `size` wide or high.
double GridPitch(double size, Axis axis);

// The grid line nearest to `value`; half-way goes up. The remainder is taken with the pitch as a whole number
// and the step up with the exact one, so the result can lie a little off the line drawn. Not limited to the
// surface.
float SnapToGrid(float value, double size, Axis axis);
Point SnapToGrid(Point place, Extent surface);

// A crossing of the grid lines, those of the surface's edges included, counted from its top left corner.
struct Crossing {
    int Column = 0; // 0 to kCellsAcross
    int Row = 0;    // 0 to kCellsDown
    bool operator==(const Crossing&) const = default;
};

// The crossing that is so many columns and rows away, or the last one before the edge.
Crossing Moved(Crossing from, int columns, int rows);

// Where a click near a crossing snaps to, and the crossing that a click snaps to.
Point PlaceOf(Crossing crossing, Extent surface);
Crossing CrossingAt(Point place, Extent surface);

// A duct's ends, or the place of its label in the middle between them, on a surface of that size, as whole
// numbers.
Point StartOf(const DuctRecord& duct, Extent surface);
Point EndOf(const DuctRecord& duct, Extent surface);
Point LabelPlace(const DuctRecord& duct, Extent surface);

// `place` as it can be drawn. What lies 10 million units off any surface, or nowhere, as in a damaged file,
// comes back to that distance, or to 0.
Point Drawable(Point place);

// To the nearest whole number, halves to even.
double Whole(double value);

} // namespace plenair
