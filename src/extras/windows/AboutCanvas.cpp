#include "extras/windows/AboutCanvas.h"

#include "platform/qt/SurfacePainter.h"
#include "platform/qt/Twips.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace plenair {

namespace {

// Pixels that the line between two points in twips may touch: a chain of small rectangles, since one around
// the whole of a slanting line is mostly empty.
QRegion PixelsAlong(double x1, double y1, double x2, double y2) {
    constexpr double kPiece = 32;
    constexpr int kMargin = 2; // half the line's width, and what smoothing adds
    const QPointF from(x1 / TwipsPerPixelX(), y1 / TwipsPerPixelY());
    const QPointF way = QPointF(x2 / TwipsPerPixelX(), y2 / TwipsPerPixelY()) - from;
    const int pieces = static_cast<int>(std::max(std::abs(way.x()), std::abs(way.y())) / kPiece) + 1;
    QRegion region;
    for (int i = 0; i < pieces; ++i) {
        const QRectF piece(from + way * i / pieces, from + way * (i + 1) / pieces);
        region += piece.normalized().toAlignedRect().adjusted(-kMargin, -kMargin, kMargin, kMargin);
    }
    return region;
}

QRegion PixelsOf(const DrawnItem& item) {
    if (item.Kind == DrawnItem::Shape::Box) {
        return PixelsAlong(item.X1, item.Y1, item.X2, item.Y1) +
               PixelsAlong(item.X2, item.Y1, item.X2, item.Y2) +
               PixelsAlong(item.X2, item.Y2, item.X1, item.Y2) +
               PixelsAlong(item.X1, item.Y2, item.X1, item.Y1);
    }
    return PixelsAlong(item.X1, item.Y1, item.X2, item.Y2);
}

} // namespace

AboutCanvas::AboutCanvas(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void AboutCanvas::resizeEvent(QResizeEvent*) {
    m_surface.SetSize(width() * TwipsPerPixelX(), height() * TwipsPerPixelY());
    m_picture = QImage((QSizeF(size()) * devicePixelRatio()).toSize(), QImage::Format_RGB32);
    m_picture.setDevicePixelRatio(devicePixelRatio());
    m_picture.fill(Qt::black);
}

void AboutCanvas::Refresh() {
    QRegion fresh;
    {
        QPainter painter(&m_picture);
        SurfacePainter surface(painter, m_picture.devicePixelRatio(), font());
        for (; m_painted < m_surface.Items().size(); ++m_painted) {
            const DrawnItem& item = m_surface.Items()[m_painted];
            surface.Paint(item);
            fresh += PixelsOf(item);
        }
    }
    repaint(fresh);
}

void AboutCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawImage(0, 0, m_picture);
}

} // namespace plenair
