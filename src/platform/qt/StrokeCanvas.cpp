#include "platform/qt/StrokeCanvas.h"

#include "platform/plane/Point.h"
#include "platform/qt/SurfacePainter.h"
#include "platform/qt/Twips.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QRegion>
#include <QSizeF>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace plenair {

namespace {

// Pixels that the line between two points in twips may touch: a chain of small rectangles, since one around
// the whole of a slanting line is mostly empty.
QRegion PixelsAlong(Point start, Point end) {
    constexpr double kPiece = 32;
    constexpr int kMargin = 2; // half the line's width, and what smoothing adds
    const QPointF from(start.X / TwipsPerPixelX(), start.Y / TwipsPerPixelY());
    const QPointF way = QPointF(end.X / TwipsPerPixelX(), end.Y / TwipsPerPixelY()) - from;
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
        const Point right{item.End.X, item.Start.Y};
        const Point below{item.Start.X, item.End.Y};
        return PixelsAlong(item.Start, right) + PixelsAlong(right, item.End) + PixelsAlong(item.End, below) +
               PixelsAlong(below, item.Start);
    }
    return PixelsAlong(item.Start, item.End);
}

} // namespace

StrokeCanvas::StrokeCanvas(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void StrokeCanvas::resizeEvent(QResizeEvent*) {
    m_surface.SetSize({width() * TwipsPerPixelX(), height() * TwipsPerPixelY()});
    m_picture = QImage((QSizeF(size()) * devicePixelRatio()).toSize(), QImage::Format_RGB32);
    m_picture.setDevicePixelRatio(devicePixelRatio());
    m_picture.fill(Qt::black);
}

void StrokeCanvas::Refresh() {
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

void StrokeCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawImage(0, 0, m_picture);
}

} // namespace plenair
