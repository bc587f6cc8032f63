#pragma once

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QTransform>

class QPainter;

namespace plenair {

// Lets a widget's painter work in the pixels of the screen, so that its lines are sharp and equally thick at
// any scale factor. From then on the painter's units are those pixels; the functions take the widget's own.
class DevicePixels {
  public:
    explicit DevicePixels(QPainter& painter);

    // Both edges are rounded, so that what adjoins goes on adjoining.
    QRect Whole(const QRectF& area) const;
    QPoint Whole(const QPointF& place) const;

    // At least one pixel.
    int Thickness(double width) const;

    // The outline of an area, inside of it, in lines of one unit.
    void DrawFrame(const QRectF& area, const QColor& colour) const;

  private:
    QPainter& m_painter;
    QTransform m_toDevice;
};

} // namespace plenair
