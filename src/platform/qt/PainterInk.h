#pragma once

#include "platform/drawing/Strokes.h"

class QPainter;

namespace plenair {

// Ink that a painter keeps as lines and areas, on paper and in pictures of that kind. The painter's units are
// the pixels.
class PainterInk : public Ink {
  public:
    // `surface`: its size in pixels; slanting lines are cut off there.
    PainterInk(QPainter& painter, Extent surface) : m_painter(painter), m_surface(surface) {}

    void Fill(const PixelRect& pixels, ColourNumber colour) override;
    void Slant(Point start, Point end, double width, ColourNumber colour) override;

  private:
    QPainter& m_painter;
    Extent m_surface;
};

} // namespace plenair
