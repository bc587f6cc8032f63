#include "platform/qt/DevicePixels.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace plenair {

DevicePixels::DevicePixels(QPainter& painter) : m_painter(painter), m_toDevice(painter.deviceTransform()) {
    painter.setWorldTransform(m_toDevice.inverted() * painter.worldTransform());
}

QRect DevicePixels::Whole(const QRectF& area) const {
    const QPoint corner = Whole(area.topLeft());
    const QPoint opposite = Whole(area.bottomRight());
    return {corner, QSize(opposite.x() - corner.x(), opposite.y() - corner.y())};
}

QPoint DevicePixels::Whole(const QPointF& place) const {
    const QPointF device = m_toDevice.map(place);
    return {static_cast<int>(std::floor(device.x() + 0.5)), static_cast<int>(std::floor(device.y() + 0.5))};
}

int DevicePixels::Thickness(double width) const {
    return std::max(1, static_cast<int>(std::floor(width * m_toDevice.m22() + 0.5)));
}

void DevicePixels::DrawFrame(const QRectF& area, const QColor& colour) const {
    const QRect whole = Whole(area);
    const int thickness = Thickness(1);
    const QRect inner = whole.adjusted(thickness, thickness, -thickness, -thickness);
    m_painter.fillRect(QRect(whole.topLeft(), QSize(whole.width(), thickness)), colour);
    m_painter.fillRect(QRect(whole.left(), inner.bottom() + 1, whole.width(), thickness), colour);
    m_painter.fillRect(QRect(whole.left(), inner.top(), thickness, inner.height()), colour);
    m_painter.fillRect(QRect(inner.right() + 1, inner.top(), thickness, inner.height()), colour);
}

} // namespace plenair
