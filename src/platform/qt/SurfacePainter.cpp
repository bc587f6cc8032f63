#include "platform/qt/SurfacePainter.h"

#include "platform/plane/Point.h"
#include "platform/qt/QtText.h"
#include "platform/qt/TextMasks.h"
#include "platform/qt/Twips.h"

#include <QFontMetrics>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>

#include <algorithm>
#include <cmath>

namespace plenair {

namespace {

// A line of width 1 is a pixel of a screen of 96 pixels to the inch, and its dashes are six of them with four
// between.
constexpr double kLineWidth = 15;
constexpr double kDash = 6 * kLineWidth;
constexpr double kGap = 4 * kLineWidth;

PixelBuffer BufferOf(QImage& image) {
    return {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
            image.bytesPerLine() / static_cast<std::ptrdiff_t>(sizeof(std::uint32_t))};
}

QRegion PixelsAlong(Point start, Point end, int margin, QSize window) {
    constexpr double kPiece = 32;
    start = {start.X / TwipsPerPixelX(), start.Y / TwipsPerPixelY()};
    end = {end.X / TwipsPerPixelX(), end.Y / TwipsPerPixelY()};
    if (!ClipLine(start, end, {window.width() * 1.0, window.height() * 1.0}, margin)) {
        return {};
    }
    const QPointF from(start.X, start.Y);
    const QPointF way(end.X - start.X, end.Y - start.Y);
    const bool slants = way.x() != 0.0 && way.y() != 0.0;
    const int pieces =
        slants ? static_cast<int>(std::max(std::abs(way.x()), std::abs(way.y())) / kPiece) + 1 : 1;
    QRegion region;
    for (int i = 0; i < pieces; ++i) {
        const QRectF piece(from + way * i / pieces, from + way * (i + 1) / pieces);
        region += piece.normalized().toAlignedRect().adjusted(-margin, -margin, margin, margin);
    }
    return region;
}

} // namespace

QColor ToColour(ColourNumber colour) {
    return {static_cast<int>(colour & 255), static_cast<int>(colour >> 8 & 255),
            static_cast<int>(colour >> 16 & 255)};
}

ColourNumber ToColourNumber(const QColor& colour) {
    return static_cast<ColourNumber>(colour.red()) | static_cast<ColourNumber>(colour.green()) << 8 |
           static_cast<ColourNumber>(colour.blue()) << 16;
}

PixelScale ScreenScale(double pixelRatio, QSize pixels) {
    const double across = pixelRatio / TwipsPerPixelX();
    const double down = pixelRatio / TwipsPerPixelY();
    return {across,       down,        kLineWidth * down,
            kDash * down, kGap * down, {pixels.width() * 1.0, pixels.height() * 1.0}};
}

SurfacePainter::SurfacePainter(QImage& image, double pixelRatio, const QFont& font)
    : m_scale(ScreenScale(pixelRatio, image.size())), m_ink(BufferOf(image)),
      m_letters(TextMasks::Of(font, pixelRatio)) {}

void SurfacePainter::Paint(const DrawnItem& item) {
    if (item.Kind == DrawnItem::Shape::Text) {
        m_letters.Print(m_ink, item.Text, item.Start.X * m_scale.PixelsPerTwipX,
                        item.Start.Y * m_scale.PixelsPerTwipY);
    } else {
        PaintStroke(item, m_scale, m_ink);
    }
}

QRegion PixelsTouched(const DrawnItem& item, const QFont& font, QSize window) {
    constexpr int kMargin = 2; // what rounding and smoothing add
    if (item.Kind == DrawnItem::Shape::Text) {
        const QFontMetrics metrics(font);
        const QPointF place(item.Start.X / TwipsPerPixelX(), item.Start.Y / TwipsPerPixelY());
        const QRect text(QPoint(0, 0), QSize(metrics.horizontalAdvance(ToQt(item.Text)), metrics.height()));
        const QRectF around = QRectF(text).translated(place).adjusted(-kMargin, -kMargin, kMargin, kMargin);
        return around.intersects(QRectF(QPointF(), window)) ? around.toAlignedRect() : QRegion();
    }
    const int margin = kMargin + item.LineWidth;
    if (item.Kind == DrawnItem::Shape::Line) {
        return PixelsAlong(item.Start, item.End, margin, window);
    }
    const Point right{item.End.X, item.Start.Y};
    const Point below{item.Start.X, item.End.Y};
    return PixelsAlong(item.Start, right, margin, window) + PixelsAlong(right, item.End, margin, window) +
           PixelsAlong(item.End, below, margin, window) + PixelsAlong(below, item.Start, margin, window);
}

} // namespace plenair
