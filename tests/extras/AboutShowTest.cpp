#include "extras/AboutShow.h"

#include "platform/Clock.h"
#include "platform/QBColor.h"
#include "platform/RecordedSurface.h"

#include <gtest/gtest.h>

#include <set>

namespace plenair {
namespace {

constexpr std::size_t kLines = 2000;
constexpr std::size_t kOutlines = 512;

class AboutShow : public testing::Test {
  protected:
    AboutShow() {
        m_surface.SetSize(5370, 4890);
        Play();
    }
    ~AboutShow() override { SetClock({}); }

    void Play() {
        SetClock([this] { return LocalTime{2026, 11, 24, 10, 20, m_second, 0}; });
        m_surface.Clear();
        m_refreshes = 0;
        PlayShow(m_surface, [this] { ++m_refreshes; });
    }

    RecordedSurface m_surface;
    std::size_t m_refreshes = 0;
    int m_second = 0;
};

TEST_F(AboutShow, LinesAreOneScribbleInAllColours) {
    ASSERT_EQ(m_surface.Items().size(), kLines + kOutlines);
    EXPECT_EQ(m_refreshes, kLines + kOutlines) << "each is seen";
    std::set<ColourNumber> colours;
    double fromX = 0;
    double fromY = 0;
    for (std::size_t i = 0; i < kLines; ++i) {
        const DrawnItem& line = m_surface.Items()[i];
        ASSERT_EQ(line.kind, DrawnItem::Kind::Line);
        EXPECT_EQ(line.x1, fromX);
        EXPECT_EQ(line.y1, fromY);
        EXPECT_TRUE(line.x2 >= 0 && line.x2 < 5370 && line.y2 >= 0 && line.y2 < 4890);
        fromX = line.x2;
        fromY = line.y2;
        colours.insert(line.colour);
    }
    EXPECT_EQ(colours.size(), 16U);
    EXPECT_TRUE(colours.contains(QBColor(0)) && colours.contains(QBColor(15)));
}

TEST_F(AboutShow, BlackPanelGrowsFromTheCentreToTheBorder) {
    const DrawnItem& first = m_surface.Items()[kLines];
    EXPECT_EQ(first.x1, 2685);
    EXPECT_EQ(first.y1, 2445);
    EXPECT_EQ(first.x2, 2685);
    EXPECT_EQ(first.y2, 2445);
    const DrawnItem& last = m_surface.Items().back();
    EXPECT_EQ(last.x1, 130);
    EXPECT_NEAR(last.y1, 118.4, 0.05);
    EXPECT_EQ(last.x2, 5370 - 130);
    EXPECT_NEAR(last.y2, 4890 - 118.4, 0.05);
    for (std::size_t i = kLines; i < kLines + kOutlines; ++i) {
        EXPECT_EQ(m_surface.Items()[i].kind, DrawnItem::Kind::Box);
        EXPECT_EQ(m_surface.Items()[i].colour, BlackColour);
    }
}

TEST_F(AboutShow, EachTimeShowsOtherLines) {
    const double x = m_surface.Items()[0].x2;
    m_second = 1;
    Play();
    EXPECT_NE(m_surface.Items()[0].x2, x);
}

TEST(QBColor, IsRedPlusGreenPlusBlue) {
    EXPECT_EQ(QBColor(1), 8388608U); // dark blue
    EXPECT_EQ(QBColor(4), 128U);     // dark red
    EXPECT_EQ(QBColor(7), 12632256U);
    EXPECT_EQ(QBColor(14), 65535U); // yellow
    EXPECT_EQ(QBColor(15), 16777215U);
}

} // namespace
} // namespace plenair
