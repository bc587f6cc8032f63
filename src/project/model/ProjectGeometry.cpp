#include "project/model/ProjectGeometry.h"

#include <algorithm>
#include <cmath>

namespace plenair {

namespace {

constexpr double kFarOff = 1E7;

double Drawable(double coordinate) {
    return std::isnan(coordinate) ? 0.0 : std::clamp(coordinate, -kFarOff, kFarOff);
}

Point WholeDrawable(Point place) {
    return {Whole(Drawable(place.X)), Whole(Drawable(place.Y))};
}

} // namespace

double GridPitch(double size, Axis axis) {
    return size / (axis == Axis::X ? kCellsAcross : kCellsDown);
}

float SnapToGrid(float value, double size, Axis axis) {
    const double exact = static_cast<double>(value);
    const double pitch = GridPitch(size, axis);
    const double wholePitch = Whole(pitch);
    if (wholePitch == 0.0) {
        return value; // a surface of a few units has no lines to snap to
    }
    const double remainder = std::fmod(Whole(exact), wholePitch);
    const double snapped = pitch / 2 > remainder ? exact - remainder : exact + (pitch - remainder);
    return static_cast<float>(snapped);
}

Crossing Moved(Crossing from, int columns, int rows) {
    return {std::clamp(from.Column + columns, 0, kCellsAcross), std::clamp(from.Row + rows, 0, kCellsDown)};
}

Point SnapToGrid(Point place, Extent surface) {
    return {static_cast<double>(SnapToGrid(static_cast<float>(place.X), surface.Width, Axis::X)),
            static_cast<double>(SnapToGrid(static_cast<float>(place.Y), surface.Height, Axis::Y))};
}

Point PlaceOf(Crossing crossing, Extent surface) {
    return SnapToGrid(Point{crossing.Column * GridPitch(surface.Width, Axis::X),
                            crossing.Row * GridPitch(surface.Height, Axis::Y)},
                      surface);
}

Crossing CrossingAt(Point place, Extent surface) {
    const Point snapped = SnapToGrid(place, surface);
    return Moved({}, static_cast<int>(std::lround(snapped.X / GridPitch(surface.Width, Axis::X))),
                 static_cast<int>(std::lround(snapped.Y / GridPitch(surface.Height, Axis::Y))));
}

Point StartOf(const DuctRecord& duct, Extent surface) {
    return WholeDrawable({surface.Width * duct.StartX, surface.Height * duct.StartY});
}

Point EndOf(const DuctRecord& duct, Extent surface) {
    return WholeDrawable({surface.Width * duct.EndX, surface.Height * duct.EndY});
}

Point LabelPlace(const DuctRecord& duct, Extent surface) {
    return WholeDrawable({(surface.Width * duct.EndX + surface.Width * duct.StartX) / 2,
                          (surface.Height * duct.EndY + surface.Height * duct.StartY) / 2});
}

Point Drawable(Point place) {
    return {Drawable(place.X), Drawable(place.Y)};
}

double Whole(double value) {
    return std::nearbyint(value);
}

} // namespace plenair
