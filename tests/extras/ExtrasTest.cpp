#include "core/modRegistry.h"
#include "extras/AboutShow.h"
#include "extras/Misc.h"
#include "platform/drawing/QBColor.h"
#include "platform/drawing/RecordedSurface.h"
#include "support/Test.h"

namespace {

class Misc : public testing::Test {
  protected:
    Misc() {
        Desktop().AskByMessageBox = [this](const MessageRequest& request) {
            ++m_asked[InWords(request)];
            return MessageAnswer::Yes;
        };
        ShowAboutAfterReminder = [this] { m_events += "about after " + Noted() + ", "; };
        FocusLiteWindow = [this] { m_events += "focus, "; };
    }
    ~Misc() override {
        ShowAboutAfterReminder = {};
        FocusLiteWindow = {};
    }

    static std::string Noted() {
        const RegistryValue noted = RegReadValue(HKEY_CURRENT_USER, kReminderSubKey, kReminderValueName);
        return std::holds_alternative<std::string>(noted) ? std::get<std::string>(noted) : "none";
    }
    // What happens at the next calculation.
    std::string Events() {
        m_events.clear();
        MonthlyReminder();
        return m_events;
    }

    const ScopedDesktop m_desktop;
    ProgramEnvironment m_environment;
    std::map<std::string, int> m_asked;
    std::string m_events;
};

TEST_F(Misc, TheReminderComesOnceAMonth) {
    const std::pair<RegistryValue, bool> rows[] = {{"112026", false}, {std::string("112026\0", 7), false},
                                                   {"112025", true},  {"122026", true},
                                                   {"11202", true},   {std::int32_t{112026}, true}};
    RegCreateKey(HKEY_CURRENT_USER, kReminderSubKey);
    for (const auto& [noted, due] : rows) {
        RegWriteValue(HKEY_CURRENT_USER, kReminderSubKey, kReminderValueName, noted,
                      std::holds_alternative<std::int32_t>(noted) ? REG_DWORD : REG_SZ);
        ForgetReminder();
        EXPECT_EQ(Events(), due ? "about after 112026, focus, " : "");
        EXPECT_EQ(Events(), "");
    }
    SetRegistryFile(""); // where nothing is noted: a month seen to be done is not looked up again
    EXPECT_EQ(Events(), "");
    for (const int month : {12, 11}) { // and back again
        m_environment.SetToday(2026, month, 1);
        EXPECT_EQ(Events(), "about after none, focus, ");
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
