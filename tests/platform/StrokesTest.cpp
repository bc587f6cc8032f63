#include "platform/drawing/PixelInk.h"
#include "support/Test.h"

namespace {

struct NotedInk : Ink {
    void Fill(const PixelRect& pixels, ColourNumber) override { Fills.push_back(pixels); }
    void Slant(Point start, Point end, double width, ColourNumber) override {
        Slants.push_back({start.X, start.Y, end.X, end.Y, width});
    }
    std::size_t Count() const { return Fills.size() + Slants.size(); }

    std::vector<PixelRect> Fills;
    std::vector<std::array<double, 5>> Slants;
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

TEST(Strokes, DashesAndNothing) {
    NotedInk ink;
    const PixelScale scale = ScaleOf(1.25, {100, 100}); // dashes of 8 pixels, gaps of 5
    PaintStroke({.Style = LineStyle::Dashed, .Start = {120, 120}, .End = {480, 120}}, scale, ink);
    EXPECT_EQ(ink.Fills, (std::vector<PixelRect>{{10, 10, 18, 11}, {23, 10, 31, 11}, {36, 10, 41, 11}}));
    ink.Fills.clear();
    for (const auto kind : {DrawnItem::Shape::Line, DrawnItem::Shape::Box}) {
        PaintStroke({.Kind = kind, .LineWidth = 5, .Start = {70, 80}, .End = {70, 80}}, scale, ink);
    }
    EXPECT_EQ(ink.Count(), 0U) << "no extent, no dot";
    PaintStroke({.Kind = DrawnItem::Shape::Box, .Start = {120, 120}, .End = {240, 360}}, scale, ink);
    EXPECT_EQ(ink.Fills, (std::vector<PixelRect>{
                             {10, 10, 21, 11}, {10, 30, 21, 31}, {10, 10, 11, 31}, {20, 10, 21, 31}}));
    // A thick line begins before its start and ends behind its end, and its dashes come from the start.
    const auto thick = [](LineStyle style, Point start, Point end) {
        NotedInk noted;
        PaintStroke({.Style = style, .LineWidth = 4, .Start = start, .End = end}, ScaleOf(1, {100, 100}),
                    noted);
        return noted.Fills;
    };
    using Fills = std::vector<PixelRect>;
    EXPECT_EQ(thick(LineStyle::Solid, {150, 300}, {450, 300}), (Fills{{8, 18, 32, 22}}));
    EXPECT_EQ(thick(LineStyle::Dashed, {300, 150}, {300, 450}),
              (Fills{{18, 8, 22, 14}, {18, 18, 22, 24}, {18, 28, 22, 32}}));
    EXPECT_EQ(thick(LineStyle::Dashed, {450, 300}, {150, 300}),
              (Fills{{26, 18, 32, 22}, {16, 18, 22, 22}, {8, 18, 12, 22}}));
    PaintStroke({.Style = LineStyle::Dashed, .LineWidth = 2, .Start = {150, 150}, .End = {600, 750}},
                ScaleOf(1, {100, 100}), ink);
    ASSERT_EQ(ink.Slants.size(), 6U);
    for (std::size_t dash = 0; dash < 6;
         ++dash) { // with what the ink adds to its ends 6 long; the last is cut
        const double from = 10.0 * static_cast<double>(dash), to = dash == 5 ? 50 : from + 4;
        const double expected[] = {10 + 0.6 * from, 10 + 0.8 * from, 10 + 0.6 * to, 10 + 0.8 * to, 2};
        for (std::size_t part = 0; part < 5; ++part) {
            EXPECT_NEAR(ink.Slants[dash][part], expected[part], 1E-9);
        }
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
        EXPECT_LT(ink.Count(), 4U * kSmall);
    }
}

TEST(Strokes, SlantingLinesCoverTheirArea) {
    for (const double width : {1.0, 2.0, 4.0}) {
        for (const Point end : {Point{900, 450}, {450, 900}, {900, 900}, {250, 700}}) {
            const DrawnItem item{.LineWidth = static_cast<int>(width), .Start = {150, 150}, .End = end};
            double ink = 0;
            for (const std::uint32_t pixel : Painted({item}, 1, 100, 100)) {
                ink += (pixel >> 24U) / 255.0;
            }
            const double length = std::hypot(end.X - 150, end.Y - 150) / 15;
            EXPECT_NEAR(ink, (length + width) * width, 0.02 * length) << end.X << "," << end.Y;
        }
    }
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
        CoverageMask mask{below(9) - 4, below(9) - 4, below(30), below(20), {}};
        const bool fills = trial % 4 == 0;
        for (int at = 0; at < mask.Width * mask.Height; ++at) {
            mask.Coverage.push_back(static_cast<std::uint8_t>(fills || below(4) == 0 ? 255 : below(256)));
        }
        const int left = below(40) - 15, top = below(30) - 12;
        const int x = left + mask.Left, y = top + mask.Top;
        fills ? ink.Fill({x, y, x + mask.Width, y + mask.Height}, colour)
              : ink.Stamp(mask, left, top, colour);
        for (int at = 0; at < kRow * (kHeight + 2); ++at) {
            const int column = at % kRow - x, row = at / kRow - 1 - y;
            const bool isInside = at % kRow < kWidth && at / kRow >= 1 && at / kRow <= kHeight &&
                                  column >= 0 && column < mask.Width && row >= 0 && row < mask.Height;
            const int part =
                isInside ? mask.Coverage[static_cast<std::size_t>(row * mask.Width + column)] : 0;
            const int inks[] = {static_cast<int>(colour >> 16U), static_cast<int>(colour >> 8U & 255U),
                                static_cast<int>(colour & 255U), 255};
            for (unsigned byte = 0; byte < 4; ++byte) {
                const auto old = static_cast<int>(before[static_cast<std::size_t>(at)] >> 8 * byte & 255U);
                const auto mixed = static_cast<int>(pixels[static_cast<std::size_t>(at)] >> 8 * byte & 255U);
                ASSERT_NEAR(mixed, (inks[byte] * part + old * (255 - part)) / 255.0,
                            part % 255 == 0 ? 0 : 1.01);
            }
        }
    }
}

} // namespace
