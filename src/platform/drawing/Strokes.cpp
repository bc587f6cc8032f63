#include "platform/drawing/Strokes.h"

#include <algorithm>
#include <cmath>

namespace plenair {

namespace {

// Ends that differ by less than this across an axis, in twips, make a line along it: the two sides from which
// a click can snap to a grid line lie a twip apart.
constexpr double kStraight = 2;

// How far a sum of many terms may be off, in pixels.
constexpr double kErrorOfSums = 1E-6;

struct Span {
    double From = 0;
    double To = 0;
};

class StrokePainter {
  public:
    StrokePainter(const DrawnItem& item, const PixelScale& scale, Ink& ink)
        : m_item(item), m_scale(scale), m_ink(ink), m_thickness(WholeThickness(item.LineWidth, scale)),
          m_half(std::floor(m_thickness / 2)) {}

    void PaintLine(Point start, Point end);
    void PaintBox();

  private:
    void PaintAlongX(double x1, double x2, double y);
    void PaintAlongY(double y1, double y2, double x);
    void PaintSlant(Point start, Point end);
    template <typename Paint>
    void ForEachDash(double first, double last, Span visible, const Paint& paint) const;
    void Fill(Span across, Span down);

    // The pixels that a line's ends are in, thickness included, in the direction from its start.
    Span AlongAxis(double start, double end) const;

    Point InPixels(Point place) const {
        return {place.X * m_scale.PixelsPerTwipX, place.Y * m_scale.PixelsPerTwipY};
    }

    const DrawnItem& m_item;
    const PixelScale& m_scale;
    Ink& m_ink;
    const double m_thickness;
    const double m_half; // of it lies before the coordinate
};

void StrokePainter::PaintLine(Point start, Point end) {
    if (start == end) {
        return;
    }
    const Point from = InPixels(start);
    const Point to = InPixels(end);
    if (std::abs(start.Y - end.Y) < kStraight) {
        PaintAlongX(from.X, to.X, (from.Y + to.Y) / 2);
    } else if (std::abs(start.X - end.X) < kStraight) {
        PaintAlongY(from.Y, to.Y, (from.X + to.X) / 2);
    } else {
        PaintSlant(from, to);
    }
}

void StrokePainter::PaintBox() {
    const Point right{m_item.End.X, m_item.Start.Y};
    const Point below{m_item.Start.X, m_item.End.Y};
    PaintLine(m_item.Start, right);
    PaintLine(below, m_item.End);
    PaintLine(m_item.Start, below);
    PaintLine(right, m_item.End);
}

void StrokePainter::PaintAlongX(double x1, double x2, double y) {
    const double top = WholePixel(y) - m_half;
    const Span ends = AlongAxis(x1, x2);
    ForEachDash(ends.From, ends.To, {0, m_scale.Surface.Width}, [&](double from, double to) {
        Fill({from, to}, {top, top + m_thickness});
    });
}

void StrokePainter::PaintAlongY(double y1, double y2, double x) {
    const double left = WholePixel(x) - m_half;
    const Span ends = AlongAxis(y1, y2);
    ForEachDash(ends.From, ends.To, {0, m_scale.Surface.Height}, [&](double from, double to) {
        Fill({left, left + m_thickness}, {from, to});
    });
}

void StrokePainter::PaintSlant(Point start, Point end) {
    // Where the middle of a straight line of this thickness lies.
    const double shift = m_thickness / 2 - m_half;
    const Point from{start.X + shift, start.Y + shift};
    const Point to{end.X + shift, end.Y + shift};
    Point seenFrom = from;
    Point seenTo = to;
    if (!ClipLine(seenFrom, seenTo, m_scale.Surface, m_thickness)) {
        return;
    }
    if (m_item.Style == LineStyle::Solid) {
        m_ink.Slant(from, to, m_thickness, m_item.Colour);
        return;
    }
    const double length = std::hypot(to.X - from.X, to.Y - from.Y);
    const Point step{(to.X - from.X) / length, (to.Y - from.Y) / length};
    const Span seen{std::hypot(seenFrom.X - from.X, seenFrom.Y - from.Y),
                    std::hypot(seenTo.X - from.X, seenTo.Y - from.Y)};
    const double cap = m_thickness / 2; // that the ink adds at each end
    ForEachDash(-cap, length + cap, seen, [&](double dash, double gap) {
        const double first = dash + cap;
        const double last = std::max(gap - cap, first);
        m_ink.Slant({from.X + step.X * first, from.Y + step.Y * first},
                    {from.X + step.X * last, from.Y + step.Y * last}, m_thickness, m_item.Colour);
    });
}

// The line from `first` to `last`, or those of its dashes of which something is visible.
template <typename Paint>
void StrokePainter::ForEachDash(double first, double last, Span visible, const Paint& paint) const {
    const double low = std::min(first, last);
    const double high = std::max(first, last);
    if (m_item.Style == LineStyle::Solid) {
        paint(low, high);
        return;
    }
    const double dash = std::max(1.0, std::round(m_scale.Dash));
    const double period = dash + std::max(1.0, std::round(m_scale.Gap));
    const double way = first < last ? 1 : -1;
    const double seenFrom = std::max(way > 0 ? visible.From - first : first - visible.To, 0.0);
    const double seenTo = std::min(way > 0 ? visible.To - first : first - visible.From, high - low);
    for (double begin = std::floor(seenFrom / period) * period; begin < seenTo; begin += period) {
        const double from = first + way * begin;
        const double to = from + way * dash;
        paint(std::max(std::min(from, to), low), std::min(std::max(from, to), high));
    }
}

void StrokePainter::Fill(Span across, Span down) {
    const auto inside = [](double pixel, double size) {
        return static_cast<int>(std::clamp(pixel, 0.0, std::ceil(size)));
    };
    const PixelRect pixels{inside(across.From, m_scale.Surface.Width),
                           inside(down.From, m_scale.Surface.Height),
                           inside(across.To, m_scale.Surface.Width), inside(down.To, m_scale.Surface.Height)};
    if (pixels.Left < pixels.Right && pixels.Top < pixels.Bottom) {
        m_ink.Fill(pixels, m_item.Colour);
    }
}

Span StrokePainter::AlongAxis(double start, double end) const {
    const double before = -m_half;
    const double behind = m_thickness - m_half;
    return start <= end ? Span{WholePixel(start) + before, WholePixel(end) + behind}
                        : Span{WholePixel(start) + behind, WholePixel(end) + before};
}

// One edge of the surface: the part of the line on which `along` times its parameter stays below `room`.
bool ClipEdge(double along, double room, double& first, double& last) {
    if (along == 0.0) {
        return room >= 0.0;
    }
    const double at = room / along;
    (along < 0.0 ? first : last) = along < 0.0 ? std::max(first, at) : std::min(last, at);
    return first <= last;
}

} // namespace

double WholePixel(double coordinate) {
    return std::floor(coordinate + 0.5 + kErrorOfSums);
}

double WholeThickness(double width, const PixelScale& scale) {
    return std::max(1.0, WholePixel(width * scale.LineWidth));
}

void PaintStroke(const DrawnItem& item, const PixelScale& scale, Ink& ink) {
    StrokePainter painter(item, scale, ink);
    if (item.Kind == DrawnItem::Shape::Line) {
        painter.PaintLine(item.Start, item.End);
    } else if (item.Kind == DrawnItem::Shape::Box) {
        painter.PaintBox();
    }
}

bool ClipLine(Point& start, Point& end, Extent surface, double margin) {
    const Point from = start;
    const Point way{end.X - start.X, end.Y - start.Y};
    double first = 0;
    double last = 1;
    if (!ClipEdge(-way.X, from.X + margin, first, last) ||
        !ClipEdge(way.X, surface.Width + margin - from.X, first, last) ||
        !ClipEdge(-way.Y, from.Y + margin, first, last) ||
        !ClipEdge(way.Y, surface.Height + margin - from.Y, first, last)) {
        return false;
    }
    if (last < 1) {
        end = {from.X + way.X * last, from.Y + way.Y * last};
    }
    if (first > 0) {
        start = {from.X + way.X * first, from.Y + way.Y * first};
    }
    return true;
}

} // namespace plenair
