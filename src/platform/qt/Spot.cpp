#include "platform/qt/Spot.h"

#include <algorithm>

namespace plenair {

QPoint FrameCorner(const Spot& spot, QSize frame, const QRect& screen) {
    QPoint corner = spot.Place;
    if (spot.Of == Spot::Part::TopRight) {
        corner.rx() -= frame.width();
    } else if (spot.Of == Spot::Part::Centre) {
        corner -= QPoint(frame.width() / 2, frame.height() / 2);
    }
    const auto within = [](int wanted, int size, int from, int room) {
        return std::clamp(wanted, from, std::max(from, from + room - size));
    };
    return {within(corner.x(), frame.width(), screen.left(), screen.width()),
            within(corner.y(), frame.height(), screen.top(), screen.height())};
}

} // namespace plenair
