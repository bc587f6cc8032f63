#pragma once

#include "platform/drawing/DrawingSurface.h"
#include "platform/drawing/PixelInk.h"
#include "platform/drawing/RecordedSurface.h"
#include "platform/drawing/Strokes.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QRegion>
#include <QSize>

namespace plenair {

class TextMasks;

QColor ToColour(ColourNumber colour);
ColourNumber ToColourNumber(const QColor& colour);

// How twips become pixels on the screen, on an area of that many pixels. `pixelRatio`: its pixels to a pixel
// of the window.
PixelScale ScreenScale(double pixelRatio, QSize pixels);

// Paints drawn items on an image of 32 bits a pixel, which is shared with nobody.
class SurfacePainter {
  public:
    SurfacePainter(QImage& image, double pixelRatio, const QFont& font);

    void Paint(const DrawnItem& item);

  private:
    PixelScale m_scale;
    PixelInk m_ink;
    TextMasks& m_letters;
};

// Pixels of a window of that size that an item may touch. Along a slanting line they are a chain of small
// rectangles, since one around the whole of it is mostly empty.
QRegion PixelsTouched(const DrawnItem& item, const QFont& font, QSize window);

} // namespace plenair
