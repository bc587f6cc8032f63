#include "core/modRegistry.h"
#include "extras/AboutShow.h"
#include "extras/Misc.h"
#include "platform/drawing/QBColor.h"
#include "platform/drawing/RecordedSurface.h"
#include "support/Test.h"

namespace {

class Misc : public ProgramTest {
  protected:
    Misc() {
        Desktop().AskByMessageBox = [this](const MessageRequest& request) {
            ++m_asked[InWords(request)];
            return MessageAnswer::Yes;
        };
        ShowAboutAfterReminder = [this] {
            const auto noted = RegReadValue(HKEY_CURRENT_USER, kReminderSubKey, kReminderValueName);
            const auto* month = std::get_if<std::string>(&noted);
            m_events += "about after " + (month != nullptr ? *month : "none");
        };
        FocusLiteWindow = [this] { m_events += ", focus"; };
    }
    ~Misc() override { ShowAboutAfterReminder = FocusLiteWindow = {}; }

    // What happens at the next calculation.
    std::string Events() {
        m_events.clear();
        MonthlyReminder();
        return m_events;
    }

    std::map<std::string, int> m_asked;
    std::string m_events;
};

TEST_F(Misc, TheReminderComesOnceAMonth) {
    const std::pair<RegistryValue, bool> rows[] = {{"112026", false}, {std::string("112026\0", 7), false},
                                                   {"112025", true},  {"122026", true},
                                                   {"11202", true},   {std::int32_t{112026}, true}};
    EXPECT_EQ(Events(), "about after 112026, focus") << "there is no key yet";
    for (const auto& [noted, due] : rows) {
        RegWriteValue(HKEY_CURRENT_USER, kReminderSubKey, kReminderValueName, noted,
                      std::holds_alternative<std::int32_t>(noted) ? REG_DWORD : REG_SZ);
        ForgetReminder();
        EXPECT_EQ(Events(), due ? "about after 112026, focus" : "");
        EXPECT_EQ(Events(), "");
    }
    SetRegistryFile(""); // where nothing is noted: a month seen to be done is not looked up again
    EXPECT_EQ(Events(), "");
    for (const int month : {12, 11}) { // and back again
        environment.SetToday(2026, month, 1);
        EXPECT_EQ(Events(), "about after none, focus");
    }
}

TEST_F(Misc, EachQuestionHasTheSameChance) {
    SetRegistryFile(""); // where nothing can be noted, it is always due
    for (int second = 0; second < 600; ++second) {
        Desktop().Clock = [=] { return LocalTime{2026, 11, 24, 8, second / 60, second % 60, 0}; };
        MonthlyReminder();
    }
    for (const std::string question :
         {"Enjoying Plenair?", "Lying awake at night, just wondering how much better Plenair could be?",
          "Been thinking about how good your company's name would look on Plenair?",
          "Think Plenair could be improved?", "Been searching for the ultimate duct sizing software?",
          "Been searching for the ultimate pipe sizing software?"}) {
        EXPECT_NEAR(m_asked["Plenair's harmless self advertising: " + question + " [YesNo Question]"], 100,
                    45)
            << question; // a spread of 9
    }
}

TEST(AboutShow, ScribblesAndWipes) {
    const ScopedDesktop desktop;
    std::set<std::int64_t> firstEnds;
    for (const int second : {1, 2}) {
        Desktop().Clock = [=] { return LocalTime{2026, 11, 24, 10, 20, second, 0}; };
        RecordedSurface surface;
        surface.SetSize({5370, 4890});
        std::size_t refreshed = 0;
        std::size_t told = 0; // of changes, so that what shows it is painted
        surface.WhenChanged([&] { ++told; });
        PlayShow(surface, [&] { EXPECT_EQ(++refreshed, surface.Items().size()) << "each stroke is seen"; });
        ASSERT_EQ(refreshed, 2000U + 512U);
        std::set<ColourNumber> colours;
        Point from;
        for (std::size_t at = 0; at < refreshed; ++at) {
            const auto& [kind, style, width, colour, start, end, text] = surface.Items()[at];
            if (at < 2000) { // from the end of the last
                EXPECT_TRUE(kind == DrawnItem::Shape::Line && start == from);
                EXPECT_TRUE(end.X >= 0 && end.X < 5370 && end.Y >= 0 && end.Y < 4890);
                colours.insert(colour);
                from = end;
            } else { // growing from the centre, in the surface's proportions
                const double step = 5.0 * static_cast<double>(at - 2000);
                EXPECT_TRUE(kind == DrawnItem::Shape::Box && colour == QBColor(0));
                EXPECT_TRUE(start.X == 2685 - step && end.X == 2685 + step);
                EXPECT_NEAR(start.Y, 2445 - step * 4890 / 5370, 1E-6);
                EXPECT_NEAR(start.Y + end.Y, 4890, 1E-9);
            }
        }
        EXPECT_EQ(colours.size(), 16U);
        EXPECT_EQ(told, refreshed);
        firstEnds.insert(std::llround(surface.Items()[0].End.X));
    }
    EXPECT_EQ(firstEnds, (std::set<std::int64_t>{1290, 2478})) << "other lines at each opening";
}

} // namespace
