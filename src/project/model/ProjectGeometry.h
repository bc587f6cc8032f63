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
