#include "platform/drawing/PixelInk.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace plenair {

namespace {

constexpr unsigned kWhole = 255; // the coverage of a whole pixel

std::uint32_t OpaquePixel(ColourNumber colour) {
    return 0xFF000000U | (colour & 0xFFU) << 16U | (colour & 0xFF00U) | (colour >> 16U & 0xFFU);
}

// Two of a pixel's four bytes at once, each times `part` of 255.
std::uint32_t Scaled(std::uint32_t bytes, unsigned part) {
    const std::uint32_t product = bytes * part + 0x800080U;
    return (product + (product >> 8U & 0xFF00FFU)) >> 8U & 0xFF00FFU;
}

void Cover(std::uint32_t& pixel, std::uint32_t ink, unsigned coverage) {
    if (coverage == kWhole) {
        pixel = ink;
        return;
    }
    const unsigned rest = kWhole - coverage;
    const std::uint32_t low = Scaled(ink & 0xFF00FFU, coverage) + Scaled(pixel & 0xFF00FFU, rest);
    const std::uint32_t high =
        Scaled(ink >> 8U & 0xFF00FFU, coverage) + Scaled(pixel >> 8U & 0xFF00FFU, rest);
    pixel = low | high << 8U;
}

// The pixels of a buffer along the main axis of a line and across it.
struct Lanes {
    std::uint32_t* Pixels;
    int Along;
    int Across;
    std::ptrdiff_t AlongStep;
    std::ptrdiff_t AcrossStep;
};

// A line that advances along the main axis at least as fast as across it, `start` being first.
void PaintSlant(const Lanes& lanes, Point start, Point end, double width, std::uint32_t ink) {
    const double slope = (end.Y - start.Y) / (end.X - start.X);
    if (!std::isfinite(slope)) {
        return; // a point has no direction
    }
    const double stretch = std::sqrt(1 + slope * slope);
    const double cap = width / 2 / stretch;
    const double half = width / 2 * stretch;
    const double begin = start.X - cap;
    const double finish = end.X + cap;
    const int first = static_cast<int>(std::clamp(std::floor(begin), 0.0, static_cast<double>(lanes.Along)));
    const int last = static_cast<int>(std::clamp(std::ceil(finish), 0.0, static_cast<double>(lanes.Along)));
    for (int along = first; along < last; ++along) {
        const double from = std::max<double>(along, begin);
        const double to = std::min<double>(along + 1, finish);
        const double middle = start.Y + slope * ((from + to) / 2 - start.X);
        const double low = std::max(middle - half, 0.0);
        const double high = std::min<double>(middle + half, lanes.Across);
        if (low >= high) {
            continue;
        }
        const double part = (to - from) * kWhole;
        const auto covered = [&](double length) { return static_cast<unsigned>(length * part + 0.5); };
        int across = static_cast<int>(low);
        std::uint32_t* pixel = lanes.Pixels + along * lanes.AlongStep + across * lanes.AcrossStep;
        Cover(*pixel, ink, covered(std::min<double>(across + 1, high) - low));
        for (++across, pixel += lanes.AcrossStep; across + 1 <= high; ++across, pixel += lanes.AcrossStep) {
            Cover(*pixel, ink, covered(1));
        }
        if (across < high) {
            Cover(*pixel, ink, covered(high - across));
        }
    }
}

} // namespace

void PixelInk::Fill(const PixelRect& pixels, ColourNumber colour) {
    const int left = std::max(pixels.Left, 0);
    const int right = std::min(pixels.Right, m_buffer.Width);
    const int bottom = std::min(pixels.Bottom, m_buffer.Height);
    if (left >= right) {
        return;
    }
    for (int y = std::max(pixels.Top, 0); y < bottom; ++y) {
        std::fill_n(m_buffer.Pixels + y * m_buffer.RowLength + left, right - left, OpaquePixel(colour));
    }
}

void PixelInk::Slant(Point start, Point end, double width, ColourNumber colour) {
    Lanes lanes{m_buffer.Pixels, m_buffer.Width, m_buffer.Height, 1, m_buffer.RowLength};
    if (std::abs(end.Y - start.Y) > std::abs(end.X - start.X)) {
        lanes = {m_buffer.Pixels, m_buffer.Height, m_buffer.Width, m_buffer.RowLength, 1};
        std::swap(start.X, start.Y);
        std::swap(end.X, end.Y);
    }
    if (start.X > end.X) {
        std::swap(start, end);
    }
    PaintSlant(lanes, start, end, width, OpaquePixel(colour));
}

void PixelInk::Stamp(const CoverageMask& mask, int x, int y, ColourNumber colour) {
    const std::uint32_t ink = OpaquePixel(colour);
    const int left = x + mask.Left;
    const int top = y + mask.Top;
    const int from = std::max(0, -left);
    const int to = std::min(mask.Width, m_buffer.Width - left);
    for (int row = std::max(0, -top); row < std::min(mask.Height, m_buffer.Height - top); ++row) {
        const std::uint8_t* coverage = mask.Coverage.data() + static_cast<std::ptrdiff_t>(row) * mask.Width;
        std::uint32_t* pixels = m_buffer.Pixels + (top + row) * m_buffer.RowLength + left;
        for (int column = from; column < to; ++column) {
            if (coverage[column] != 0) {
                Cover(pixels[column], ink, coverage[column]);
            }
        }
    }
}

} // namespace plenair
