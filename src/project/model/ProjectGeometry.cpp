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
