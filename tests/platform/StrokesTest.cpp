#include "platform/drawing/PixelInk.h"
#include "support/Test.h"

#include <numeric>

namespace {

struct NotedInk : Ink {
    void Fill(const PixelRect& pixels, ColourNumber) override { Fills.push_back(pixels); }
    void Slant(Point, Point, double, ColourNumber) override { ++Slants; }

    std::vector<PixelRect> Fills;
    int Slants = 0;
};

// A screen of 96 pixels to the inch at a scale factor.
PixelScale ScaleOf(double factor, Extent pixels) {
    return {factor / 15, factor / 15, factor, 6 * factor, 4 * factor, pixels};
}

std::vector<std::uint32_t> Painted(const std::vector<DrawnItem>& items, double factor, int width,
                                   int height) {
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    PixelInk ink({pixels.data(), width, height, width});
    for (const DrawnItem& item : items) {
        PaintStroke(item, ScaleOf(factor, {width * 1.0, height * 1.0}), ink);
    }
    return pixels;
}

TEST(Strokes, WholePixelsAtEveryScale) {
    const struct {
        double factor;
        int width;
        int thickness;
    } rows[] = {{1, 1, 1},    {1, 2, 2},    {1, 4, 4}, {1.25, 1, 1}, {1.25, 2, 3}, {1.5, 1, 2}, {1.5, 2, 3},
                {1.75, 1, 2}, {1.75, 2, 4}, {2, 1, 2}, {2, 2, 4},    {3, 1, 3},    {3, 2, 6}};
    for (const auto& [factor, width, thickness] : rows) {
        const PixelScale scale = ScaleOf(factor, {4000, 4000});
        for (double place = 300; place < 400; place += 7.3) { // as good as along an axis
            NotedInk ink;
            PaintStroke({.LineWidth = width, .Start = {300, place}, .End = {900, place + 1}}, scale, ink);
            PaintStroke({.LineWidth = width, .Start = {place + 1, 900}, .End = {place, 300}}, scale, ink);
            const PixelRect& across = ink.Fills.at(0);
            const PixelRect& down = ink.Fills.at(1);
            EXPECT_EQ(across.Bottom - across.Top, thickness);
            EXPECT_EQ(down.Right - down.Left, thickness);
            EXPECT_EQ(across.Top, down.Left);
            EXPECT_EQ(across.Right, down.Bottom);
        }
        // The last guide of a plot comes by a sum of lengths to where the frame stands by a product.
        for (double size = 14000; size < 16000; size += 37.5) {
            double x = size * 0.05;
            for (int guide = 0; guide < 7; ++guide) {
                x += size * 0.9 / 7;
            }
            NotedInk ink;
            PaintStroke({.Start = {x, 10}, .End = {x, 500}}, scale, ink);
            PaintStroke({.Start = {size * 0.95, 10}, .End = {size * 0.95, 500}}, scale, ink);
            EXPECT_EQ(ink.Fills.at(0), ink.Fills.at(1)) << factor << " " << size;
        }
    }
}

TEST(Strokes, LinesDashesBoxesAndNothing) {
    using enum LineStyle;
    const struct {
        double Factor; // 1.25: dashes of 8 pixels, gaps of 5
        DrawnItem Item;
        std::vector<PixelRect> Fills;
    } rows[] = {
        // clang-format off
        {1.25, {.LineWidth = 5, .Start = {70, 80}, .End = {70, 80}}, {}}, // no extent, no dot
        {1.25, {.Kind = DrawnItem::Shape::Box, .LineWidth = 5, .Start = {70, 80}, .End = {70, 80}}, {}},
        {1.25, {.Kind = DrawnItem::Shape::Box, .Start = {120, 120}, .End = {240, 360}},
         {{10, 10, 21, 11}, {10, 30, 21, 31}, {10, 10, 11, 31}, {20, 10, 21, 31}}},
        {1.25, {.Style = Dashed, .Start = {120, 120}, .End = {480, 120}}, {{10, 10, 18, 11}, {23, 10, 31, 11}, {36, 10, 41, 11}}},
        // A thick line begins before its start and ends behind its end, and its dashes come from the start.
        {1, {.LineWidth = 4, .Start = {150, 300}, .End = {450, 300}}, {{8, 18, 32, 22}}},
        {1, {.LineWidth = 4, .Start = {3000, 15}, .End = {4000, 15}}, {}},
        {1, {.LineWidth = 4, .Start = {150, 15}, .End = {450, 15}}, {{8, 0, 32, 3}}}, // at an edge
        {1, {.LineWidth = 4, .Start = {15, 450}, .End = {15, 150}}, {{0, 8, 3, 32}}},
        {1, {.Style = Dashed, .LineWidth = 4, .Start = {300, 150}, .End = {300, 450}}, {{18, 8, 22, 14}, {18, 18, 22, 24}, {18, 28, 22, 32}}},
        {1, {.Style = Dashed, .LineWidth = 4, .Start = {450, 300}, .End = {150, 300}}, {{26, 18, 32, 22}, {16, 18, 22, 22}, {8, 18, 12, 22}}},
        // clang-format on
    };
    for (const auto& [factor, item, fills] : rows) {
        NotedInk ink;
        PaintStroke(item, ScaleOf(factor, {100, 100}), ink);
        EXPECT_EQ(ink.Fills, fills);
        EXPECT_EQ(ink.Slants, 0);
    }
}

// A small surface shows what a large one shows there, however far off the ends of a line lie, and takes no
// more ink than what it shows.
TEST(Strokes, FarOffLinesAreCutOffToTheSamePixels) {
    constexpr int kSmall = 60;
    constexpr int kLarge = 1000;
    std::mt19937 random(7);
    const auto place = [&](double reach) {
        return (static_cast<double>(random() % 20001) / 10000 - 1) * reach;
    };
    for (int trial = 0; trial < 400; ++trial) {
        const double reach = trial % 2 == 0 ? 2000 : 1E7;
        DrawnItem item{.Kind = trial % 5 == 0 ? DrawnItem::Shape::Box : DrawnItem::Shape::Line,
                       .Style = trial % 3 == 0 ? LineStyle::Dashed : LineStyle::Solid,
                       .LineWidth = trial % 4 + 1,
                       .Colour = kGreenColour,
                       .Start = {place(reach), place(900)},
                       .End = {place(reach), place(reach)}};
        if (trial % 7 == 0) {
            item.End.Y = item.Start.Y + (trial % 2 == 0 ? 0 : 3); // so little that it is hardly slanting
        } else if (trial % 3 == 0) {
            item.End = {700 - item.Start.X, 500 - item.Start.Y}; // right through
        }
        const double factor = 1 + trial % 3 * 0.25;
        const std::vector<std::uint32_t> small = Painted({item}, factor, kSmall, kSmall);
        const std::vector<std::uint32_t> large = Painted({item}, factor, kLarge, kLarge);
        for (std::size_t at = 0; at < small.size(); ++at) {
            ASSERT_EQ(small[at], large[at / kSmall * kLarge + at % kSmall]) << trial;
        }
        NotedInk ink;
        PaintStroke(item, ScaleOf(factor, {kSmall, kSmall}), ink);
        EXPECT_LT(ink.Fills.size() + static_cast<std::size_t>(ink.Slants), 4U * kSmall);
    }
}

TEST(Strokes, SlantingLinesCoverTheirArea) {
    for (const double width : {1.0, 2.0, 4.0}) {
        for (const Point end : {Point{900, 450}, {450, 900}, {900, 900}, {250, 700}}) {
            DrawnItem item{.LineWidth = static_cast<int>(width), .Start = {150, 150}, .End = end};
            if (width == 2.0) {
                std::swap(item.Start, item.End);
            }
            const double length = std::hypot(end.X - 150, end.Y - 150) / 15 + width;
            const double rest = std::fmod(length, 10); // the last dash, unless it is shorter than thick
            const double dashes = std::floor(length / 10) * 6 + (rest > width ? std::min(rest, 6.0) : 0);
            for (const double drawn : {length, dashes}) {
                item.Style = drawn == length ? LineStyle::Solid : LineStyle::Dashed;
                double ink = 0, x = 0, y = 0;
                const std::vector<std::uint32_t> pixels = Painted({item}, 1, 100, 100);
                for (std::size_t at = 0; at < pixels.size(); ++at) {
                    const double part = (pixels[at] >> 24U) / 255.0;
                    ink += part;
                    x += part * (static_cast<double>(at % 100) + (width == 1.0 ? 0 : 0.5));
                    y += part * (static_cast<double>(at / 100) + (width == 1.0 ? 0 : 0.5));
                }
                EXPECT_NEAR(ink, drawn * width, 0.03 * length) << end.X << "," << end.Y;
                if (item.Style == LineStyle::Solid) {
                    EXPECT_NEAR(x / ink, (150 + end.X) / 30, 0.1);
                    EXPECT_NEAR(y / ink, (150 + end.Y) / 30, 0.1);
                }
            }
        }
    }
}

TEST(Strokes, ClippedLinesEndAtTheMargin) {
    Point ends[] = {{10, -50}, {70, 150}, {-3, 5}, {-3, 6}};
    EXPECT_TRUE(ClipLine(ends[0], ends[1], {50, 100}, 2));
    EXPECT_TRUE(ends[0] == (Point{24.4, -2}) && ends[1] == (Point{52, 90}));
    EXPECT_FALSE(ClipLine(ends[2], ends[3], {50, 100}, 2));
}

TEST(PixelInk, MixesEachByteOfAPixelOnItsOwn) {
    std::vector<std::uint32_t> pixels(256, 0xFFC08001);
    CoverageMask mask{0, 0, 256, 1, std::vector<std::uint8_t>(256)};
    std::iota(mask.Coverage.begin(), mask.Coverage.end(), std::uint8_t{0});
    PixelInk({pixels.data(), 256, 1, 256}).Stamp(mask, 0, 0, 0x30FF60);
    for (unsigned part = 0; part < 256; ++part) {
        const unsigned bytes[][2] = {{0x30, 0x01}, {0xFF, 0x80}, {0x60, 0xC0}, {0xFF, 0xFF}}; // ink on paper
        for (unsigned byte = 0; byte < 4; ++byte) {
            const double mixed = (bytes[byte][0] * part + bytes[byte][1] * (255 - part)) / 255.0;
            EXPECT_NEAR(pixels[part] >> 8 * byte & 255U, mixed, part % 255 == 0 ? 0 : 1);
        }
    }
}

} // namespace
