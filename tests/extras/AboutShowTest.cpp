#include "extras/AboutShow.h"
#include "platform/drawing/QBColor.h"
#include "platform/drawing/RecordedSurface.h"
#include "support/Test.h"

namespace {

TEST(AboutShow, ScribblesAndWipes) {
    const ScopedDesktop desktop;
    Point first;
    for (const int second : {1, 2}) {
        Desktop().Clock = [=] { return LocalTime{2026, 11, 24, 10, 20, second, 0}; };
        RecordedSurface surface;
        surface.SetSize({5370, 4890});
        std::size_t refreshed = 0;
        PlayShow(surface, [&] { EXPECT_EQ(++refreshed, surface.Items().size()) << "each stroke is seen"; });
        ASSERT_EQ(surface.Items().size(), 2000U + 512U);
        std::set<ColourNumber> colours;
        Point from;
        for (std::size_t line = 0; line < 2000; ++line) {
            const DrawnItem& item = surface.Items()[line];
            ASSERT_EQ(item.Kind, DrawnItem::Shape::Line);
            EXPECT_EQ(item.Start, from) << "from the end of the last";
            EXPECT_TRUE(item.End.X >= 0 && item.End.X < 5370 && item.End.Y >= 0 && item.End.Y < 4890);
            colours.insert(item.Colour);
            from = item.End;
        }
        EXPECT_EQ(colours.size(), 16U);
        EXPECT_NE(surface.Items()[0].End, first) << "other lines at each opening";
        first = surface.Items()[0].End;
        for (int box = 0; box < 512; ++box) {
            const DrawnItem& item = surface.Items()[2000 + static_cast<std::size_t>(box)];
            ASSERT_EQ(item.Kind, DrawnItem::Shape::Box);
            EXPECT_EQ(item.Colour, QBColor(0));
            EXPECT_EQ(item.Start.X, 2685 - 5 * box) << "grows from the centre";
            EXPECT_NEAR(item.Start.Y, 2445 - 5 * 4890.0 / 5370 * box, 1E-6) << "in the surface's proportions";
            EXPECT_EQ(item.Start.X + item.End.X, 5370);
            EXPECT_NEAR(item.Start.Y + item.End.Y, 4890, 1E-9);
        }
    }
}

} // namespace
