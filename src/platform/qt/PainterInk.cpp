#include "platform/qt/PainterInk.h"

#include "platform/qt/SurfacePainter.h"

#include <QPainter>

namespace plenair {

void PainterInk::Fill(const PixelRect& pixels, ColourNumber colour) {
    m_painter.fillRect(pixels.Left, pixels.Top, pixels.Right - pixels.Left, pixels.Bottom - pixels.Top,
                       ToColour(colour));
}

void PainterInk::Slant(Point start, Point end, double width, ColourNumber colour) {
    if (ClipLine(start, end, m_surface, 2 * width)) {
        m_painter.setPen(QPen(ToColour(colour), width, Qt::SolidLine, Qt::SquareCap));
        m_painter.drawLine(QPointF(start.X, start.Y), QPointF(end.X, end.Y));
    }
}

} // namespace plenair
