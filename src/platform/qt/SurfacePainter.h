#pragma once

#include "platform/drawing/DrawingSurface.h"
#include "platform/drawing/RecordedSurface.h"

#include <QColor>
#include <QFont>
#include <QPainter>

class QPainter;

namespace plenair {

QColor ToColour(ColourNumber colour);
ColourNumber ToColourNumber(const QColor& colour);

// Paints drawn items with a painter in logical pixels. Lines along the axes lie on whole device pixels, so
// that they are sharp; slanting ones are smoothed. Texts have a thin light rim, so that they can be read on a
// line.
class SurfacePainter {
  public:
    SurfacePainter(QPainter& painter, double pixelRatio, QFont font);

    void Paint(const DrawnItem& item);

  private:
    struct Ends {
        double X1, Y1, X2, Y2;
    };

    Ends EndsInPixels(const DrawnItem& item) const;
    void PaintLine(const DrawnItem& item);
    void PaintBox(const DrawnItem& item);
    void PaintText(const DrawnItem& item);
    void PaintAlongAxis(double x1, double y1, double x2, double y2, double width, const QColor& colour);

    QPainter& m_painter;
    double m_ratio;
    double m_pixelsPerTwipX;
    double m_pixelsPerTwipY;
};

} // namespace plenair
