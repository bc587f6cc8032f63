#include "extras/Misc.h"
#include "core/modRegistry.h"
#include "support/Test.h"

namespace {

class Misc : public testing::Test {
  protected:
    Misc() {
        ShowAboutAfterReminder = [this] { m_events += "about after " + Noted() + ", "; };
        FocusLiteWindow = [this] { m_events += "focus, "; };
    }
    ~Misc() override {
        ShowAboutAfterReminder = {};
        FocusLiteWindow = {};
    }

    static std::string Noted() {
        return std::get<std::string>(RegReadValue(HKEY_CURRENT_USER, kReminderSubKey, kReminderValueName));
    }

    ProgramEnvironment m_environment;
    ScriptedDesktop desktop;
    std::string m_events;
};

TEST_F(Misc, TheReminderComesOnceAMonth) {
    m_environment.NoteReminder();
    MonthlyReminder();
    EXPECT_TRUE(desktop.Messages().empty());

    m_environment.SetToday(2026, 12, 1);
    desktop.ExpectMessage(MessageAnswer::Yes);
    MonthlyReminder();
    MonthlyReminder();
    ASSERT_EQ(desktop.Messages().size(), 1U) << "Yes needs no second box";
    EXPECT_EQ(desktop.Messages()[0].Title, "Plenair's harmless self advertising");
    EXPECT_EQ(desktop.Messages()[0].Buttons, MessageButtons::YesNo);
    EXPECT_EQ(m_events, "about after 122026, focus, ");

    m_environment.SetToday(2027, 1, 31);
    desktop.ExpectMessage(MessageAnswer::No);
    desktop.ExpectMessage(MessageAnswer::Ok);
    MonthlyReminder();
    EXPECT_EQ(desktop.LastText(), "Liar!");
    EXPECT_EQ(m_events, "about after 122026, focus, about after 012027, focus, ");
}

TEST_F(Misc, TheMonthIsComparedForDifference) {
    const std::pair<RegistryValue, bool> rows[] = {{"112026", false}, {std::string("112026\0", 7), false},
                                                   {"112025", true},  {"122026", true},
                                                   {"11202", true},   {std::int32_t{112026}, true}};
    RegCreateKey(HKEY_CURRENT_USER, kReminderSubKey);
    for (const auto& [noted, due] : rows) {
        const bool isNumber = std::holds_alternative<std::int32_t>(noted);
        RegWriteValue(HKEY_CURRENT_USER, kReminderSubKey, kReminderValueName, noted,
                      isNumber ? REG_DWORD : REG_SZ);
        if (due) {
            desktop.ExpectMessage(MessageAnswer::Yes);
        }
        ForgetReminder();
        MonthlyReminder();
        EXPECT_EQ(Noted().substr(0, 6), "112026");
    }
}

TEST_F(Misc, AMonthSeenToBeDoneIsNotLookedUpAgain) {
    m_environment.NoteReminder();
    MonthlyReminder();
    SetRegistryFile(""); // where nothing is noted
    ShowAboutAfterReminder = {};
    MonthlyReminder();
    EXPECT_TRUE(desktop.Messages().empty());
    for (const int month : {12, 11}) { // and back again
        m_environment.SetToday(2026, month, 1);
        desktop.ExpectMessage(MessageAnswer::Yes);
        MonthlyReminder();
    }
}

TEST_F(Misc, EachQuestionHasTheSameChance) {
    ShowAboutAfterReminder = {};
    std::map<std::string, int> asked;
    Desktop().AskByMessageBox = [&](const MessageRequest& request) {
        ++asked[request.Text];
        return MessageAnswer::Yes;
    };
    SetRegistryFile(""); // where nothing can be noted, it is always due
    for (int second = 0; second < 600; ++second) {
        Desktop().Clock = [=] { return LocalTime{2026, 11, 24, 8, second / 60, second % 60, 0}; };
        MonthlyReminder();
    }
    EXPECT_EQ(asked.size(), 6U);
    for (const auto& [question, times] : asked) {
        EXPECT_NEAR(times, 100, 45) << question; // a spread of 9
    }
}

} // namespace
