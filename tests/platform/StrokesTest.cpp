#include "platform/drawing/PixelInk.h"
#include "support/Test.h"

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
    using Ends = std::array<Point, 2>;
    for (auto [line, clipped] : {std::pair<Ends, Ends>{{{{10, -50}, {70, 150}}}, {{{24.4, -2}, {52, 90}}}},
                                 {{{{60, 5}, {-40, 55}}}, {{{52, 9}, {-2, 36}}}},
                                 {{{{-2, 150}, {-2, 20}}}, {{{-2, 102}, {-2, 20}}}}}) {
        EXPECT_TRUE(ClipLine(line[0], line[1], {50, 100}, 2));
        EXPECT_EQ(line, clipped);
    }
    Ends outside{{{-3, 5}, {-3, 6}}};
    EXPECT_FALSE(ClipLine(outside[0], outside[1], {50, 100}, 2));
}

// A buffer is a window into a larger one, whose other pixels stay. Each byte of a pixel is mixed on its own.
TEST(PixelInk, MixesOnItsOwnPixelsAlone) {
    constexpr int kRow = 24, kWidth = 20, kHeight = 13;
    std::vector<std::uint32_t> pixels(kRow * (kHeight + 2), 0xFFFFFFFF);
    PixelInk ink({&pixels[kRow], kWidth, kHeight, kRow});
    std::mt19937 random(3);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int trial = 0; trial < 150; ++trial) {
        const std::vector<std::uint32_t> before = pixels;
        const ColourNumber colour = random() & 0xFFFFFF;
        const int x = below(40) - 15, y = below(30) - 12, shift = below(9) - 4;
        CoverageMask mask{-shift, shift, below(30), below(20), std::vector<std::uint8_t>(600, 255)};
        if (trial % 4 == 0) {
            ink.Fill({x, y, x + mask.Width, y + mask.Height}, colour);
        } else {
            std::generate(mask.Coverage.begin(), mask.Coverage.end(), [&] { return random() % 5 * 255 / 4; });
            ink.Stamp(mask, x + shift, y - shift, colour);
        }
        for (int at = 0; at < kRow * (kHeight + 2); ++at) {
            const int column = at % kRow, row = at / kRow - 1;
            const bool isOurs = column < kWidth && row >= 0 && row < kHeight && column >= x && row >= y &&
                                column < x + mask.Width && row < y + mask.Height;
            const double part = isOurs ? mask.Coverage.data()[(row - y) * mask.Width + column - x] : 0;
            for (const unsigned bits : {0U, 8U, 16U, 24U}) { // blue, green, red and opaque
                const double wanted = bits == 24 ? 255 : colour >> (16 - bits) & 255U;
                const double old = before.data()[at] >> bits & 255U;
                ASSERT_NEAR(pixels.data()[at] >> bits & 255U, (wanted * part + old * (255 - part)) / 255,
                            part == 0 || part == 255 ? 0 : 1.01);
            }
        }
    }
}

} // namespace
