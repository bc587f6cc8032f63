#include "extras/AboutShow.h"

#include "platform/desktop/RandomNumbers.h"
#include "platform/drawing/QBColor.h"
#include "platform/plane/Point.h"

#include <cmath>

namespace plenair {

namespace {

constexpr int kLines = 2000;
constexpr double kWipeStep = 5;
constexpr double kBorder = 128;

void Scribble(DrawingSurface& surface, const std::function<void()>& refresh) {
    Point from;
    for (int i = 0; i < kLines; ++i) {
        const double x = NextRandom() * surface.Size().Width;
        const double y = NextRandom() * surface.Size().Height;
        const int colour = static_cast<int>(std::nearbyint(NextRandom() * 15));
        surface.Line(from, {x, y}, QBColor(colour));
        from = {x, y};
        refresh();
    }
}

// The outlines lie closer than pixels, so that they merge into a panel in the proportions of the surface.
void Wipe(DrawingSurface& surface, const std::function<void()>& refresh) {
    const double halfWidth = surface.Size().Width / 2;
    const double halfHeight = surface.Size().Height / 2;
    double left = halfWidth;
    double top = halfHeight;
    do {
        surface.Box({left, top}, {halfWidth + (halfWidth - left), halfHeight + (halfHeight - top)},
                    QBColor(0));
        left -= kWipeStep;
        top -= kWipeStep * surface.Size().Height / surface.Size().Width;
        refresh();
    } while (left > kBorder);
}

} // namespace

void PlayShow(DrawingSurface& surface, const std::function<void()>& refresh) {
    SeedRandom(static_cast<float>(SecondsSinceMidnight() * 128.0));
    Scribble(surface, refresh);
    Wipe(surface, refresh);
}

} // namespace plenair
