#include "platform/qt/SurfacePainter.h"

#include "platform/plane/Point.h"
#include "platform/qt/QtText.h"
#include "platform/qt/Twips.h"

#include <QPainter>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QStaticText>

#include <algorithm>
#include <cmath>

namespace plenair {

QColor ToColour(ColourNumber colour) {
    return {static_cast<int>(colour & 255), static_cast<int>(colour >> 8 & 255),
            static_cast<int>(colour >> 16 & 255)};
}

ColourNumber ToColourNumber(const QColor& colour) {
    return static_cast<ColourNumber>(colour.red()) | static_cast<ColourNumber>(colour.green()) << 8 |
           static_cast<ColourNumber>(colour.blue()) << 16;
}

SurfacePainter::SurfacePainter(QPainter& painter, double pixelRatio, QFont font)
    : m_painter(painter), m_ratio(pixelRatio), m_pixelsPerTwipX(1 / TwipsPerPixelX()),
      m_pixelsPerTwipY(1 / TwipsPerPixelY()) {
    m_painter.setFont(font);
}

void SurfacePainter::Paint(const DrawnItem& item) {
    switch (item.Kind) {
    case DrawnItem::Shape::Line:
        return PaintLine(item);
    case DrawnItem::Shape::Box:
        return PaintBox(item);
    case DrawnItem::Shape::Text:
        return PaintText(item);
    }
}

void SurfacePainter::PaintAlongAxis(double x1, double y1, double x2, double y2, double width,
                                    const QColor& colour) {
    const auto device = [this](double logical) { return std::round(logical * m_ratio); };
    const double thick = std::max(1.0, std::round(width * m_ratio));
    const double half = std::floor(thick / 2);
    const double left = device(std::min(x1, x2)) - half;
    const double top = device(std::min(y1, y2)) - half;
    const double right = device(std::max(x1, x2)) - half + thick;
    const double bottom = device(std::max(y1, y2)) - half + thick;
    m_painter.fillRect(
        QRectF(left / m_ratio, top / m_ratio, (right - left) / m_ratio, (bottom - top) / m_ratio), colour);
}

SurfacePainter::Ends SurfacePainter::EndsInPixels(const DrawnItem& item) const {
    return {item.Start.X * m_pixelsPerTwipX, item.Start.Y * m_pixelsPerTwipY, item.End.X * m_pixelsPerTwipX,
            item.End.Y * m_pixelsPerTwipY};
}

void SurfacePainter::PaintLine(const DrawnItem& item) {
    const auto [x1, y1, x2, y2] = EndsInPixels(item);
    const QColor colour = ToColour(item.Colour);
    const bool solid = item.Style == LineStyle::Solid;
    if (solid && (x1 == x2 || y1 == y2)) {
        PaintAlongAxis(x1, y1, x2, y2, item.LineWidth, colour);
        return;
    }
    QPen pen(colour, item.LineWidth, solid ? Qt::SolidLine : Qt::CustomDashLine, Qt::RoundCap);
    if (!solid) {
        pen.setCapStyle(Qt::FlatCap);
        pen.setDashPattern({6, 4});
    }
    m_painter.setRenderHint(QPainter::Antialiasing, x1 != x2 && y1 != y2);
    m_painter.setPen(pen);
    m_painter.drawLine(QPointF(x1, y1), QPointF(x2, y2));
    m_painter.setRenderHint(QPainter::Antialiasing, false);
}

void SurfacePainter::PaintBox(const DrawnItem& item) {
    const auto [x1, y1, x2, y2] = EndsInPixels(item);
    const QColor colour = ToColour(item.Colour);
    PaintAlongAxis(x1, y1, x2, y1, item.LineWidth, colour);
    PaintAlongAxis(x1, y2, x2, y2, item.LineWidth, colour);
    PaintAlongAxis(x1, y1, x1, y2, item.LineWidth, colour);
    PaintAlongAxis(x2, y1, x2, y2, item.LineWidth, colour);
}

void SurfacePainter::PaintText(const DrawnItem& item) {
    const QPointF place(item.Start.X * m_pixelsPerTwipX, item.Start.Y * m_pixelsPerTwipY);
    QStaticText text(ToQt(item.Text)); // laid out once for all five
    text.setTextFormat(Qt::PlainText);
    m_painter.setPen(Qt::white);
    for (const QPointF rim : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)}) {
        m_painter.drawStaticText(place + rim, text);
    }
    m_painter.setPen(ToColour(item.Colour));
    m_painter.drawStaticText(place, text);
}

} // namespace plenair
