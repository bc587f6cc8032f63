#include "platform/qt/Panels.h"
#include "platform/qt/Spot.h"
#include "platform/qt/WindowPos.h"
#include "support/Test.h"

namespace {

TEST(Placing, AFrameStandsOnItsSpotWithinTheScreen) {
    const QRect screen(1000, 50, 800, 600);
    const struct {
        Spot::Part Of;
        QPoint Place;
        QSize Frame;
        QPoint Corner;
    } rows[] = {{Spot::Part::TopLeft, {1100, 100}, {200, 100}, {1100, 100}},
                {Spot::Part::TopRight, {1700, 100}, {200, 100}, {1500, 100}},
                {Spot::Part::Centre, {1400, 350}, {201, 100}, {1300, 300}},
                {Spot::Part::TopLeft, {1700, 640}, {200, 100}, {1600, 550}}, // back from the far edges
                {Spot::Part::TopRight, {1100, 20}, {200, 100}, {1000, 50}},  // and from the near ones
                {Spot::Part::Centre, {1400, 350}, {900, 700}, {1000, 50}}};  // larger than the screen
    for (const auto& [of, place, frame, corner] : rows) {
        EXPECT_TRUE(FrameCorner({place, of}, frame, screen) == corner) << place.x() << ',' << place.y();
    }
}

// Two screens side by side, and one below the first.
TEST(Placing, APanelTakesOfTheScreenOnWhichItEnds) {
    const QRect screens[] = {{0, 0, 800, 600}, {800, 0, 480, 600}, {0, 600, 800, 424}};
    const struct {
        std::vector<std::uint32_t> Panel;
        QMargins Taken[3];
    } rows[] = {{{1, 0, 0, 0, 599, 599, 0, 0, 0, 0, 0, 0}, {{1, 0, 0, 0}, {}, {}}},
                {{40, 0, 0, 0, 500, 600, 0, 0, 0, 0, 0, 0}, {{40, 0, 0, 0}, {}, {40, 0, 0, 0}}},
                {{830, 0, 0, 0, 0, 599, 0, 0, 0, 0, 0, 0}, {{}, {30, 0, 0, 0}, {}}},
                {{0, 50, 0, 0, 0, 0, 0, 599, 0, 0, 0, 0}, {{}, {0, 0, 50, 0}, {}}},
                {{0, 500, 0, 0, 0, 0, 0, 599, 0, 0, 0, 0}, {{0, 0, 20, 0}, {}, {}}},
                {{0, 0, 30, 0, 0, 0, 0, 0, 0, 799, 0, 0}, {{0, 30, 0, 0}, {}, {}}},
                {{0, 0, 610, 0, 0, 0, 0, 0, 799, 900, 0, 0}, {{}, {}, {0, 10, 0, 0}}},
                {{0, 0, 0, 25, 0, 0, 0, 0, 0, 0, 800, 1279}, {{}, {}, {}}},
                {{0, 0, 0, 25, 0, 0, 0, 0, 0, 0, 0, 799}, {{}, {}, {0, 0, 0, 25}}},
                {{0, 0, 0, 450, 0, 0, 0, 0, 0, 0, 790, 1279}, {{0, 0, 0, 26}, {0, 0, 0, 26}, {}}},
                {{799, 0, 0, 0, 0, 599, 0, 0, 0, 0, 0, 0}, {{799, 0, 0, 0}, {}, {}}},
                {{800, 0, 0, 0, 0, 599, 0, 0, 0, 0, 0, 0}, {{}, {}, {}}}};
    for (const auto& [panel, taken] : rows) {
        for (int screen = 0; screen < 3; ++screen) {
            const QMargins got = TakenBy(panel, screens[screen], {1280, 1024});
            EXPECT_TRUE(got == taken[screen])
                << testing::PrintToString(panel) << " of " << screen << ": " << got.left() << ' ' << got.top()
                << ' ' << got.right() << ' ' << got.bottom();
        }
    }
}

TEST(Placing, PixelsAreWholeAndOf16Bits) {
    for (const auto& [twips, pixels] :
         std::map<double, int>{{22.4, 1}, {22.5, 2}, {37.5, 2}, {1e9, 32767}, {-1e9, -32768}}) {
        EXPECT_EQ(WholePixels(twips, 15), pixels) << twips;
    }
}

} // namespace
