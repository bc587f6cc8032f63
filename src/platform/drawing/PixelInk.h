#pragma once

#include "platform/drawing/Strokes.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace plenair {

// Pixels of 0xAARRGGBB, colours multiplied by their alpha, row after row. They belong to someone else.
struct PixelBuffer {
    std::uint32_t* Pixels = nullptr;
    int Width = 0;
    int Height = 0;
    std::ptrdiff_t RowLength = 0; // pixels from a row to the next
};

// A shape as the part of each pixel that it covers, 0 to 255.
struct CoverageMask {
    int Left = 0; // from the place where it is stamped
    int Top = 0;
    int Width = 0;
    int Height = 0;
    std::vector<std::uint8_t> Coverage;
};

// Ink on pixels. Slanting lines are smoothed: what of a pixel a line covers is found column by column along
// it, or row by row where it is steep, so that a pixel's ink doesn't depend on how far off the line's ends
// are.
class PixelInk : public Ink {
  public:
    explicit PixelInk(PixelBuffer buffer) : m_buffer(buffer) {}

    void Fill(const PixelRect& pixels, ColourNumber colour) override;
    void Slant(Point start, Point end, double width, ColourNumber colour) override;
    void Stamp(const CoverageMask& mask, int x, int y, ColourNumber colour);

  private:
    PixelBuffer m_buffer;
};

} // namespace plenair
