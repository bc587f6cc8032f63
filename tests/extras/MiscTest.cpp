#include "extras/Misc.h"

#include "core/modRegistry.h"
#include "platform/Sound.h"
#include "platform/TextFiles.h"
#include "support/Scripted.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace plenair {
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
        SetSoundProvider({});
    }

    static std::string Noted() {
        const RegistryValue value = RegReadValue(HKEY_CURRENT_USER, ReminderSubKey, ReminderValueName);
        const auto* text = std::get_if<std::string>(&value);
        return text != nullptr ? *text : "nothing";
    }

    static void Note(const RegistryValue& value, std::uint32_t type = REG_SZ) {
        RegCreateKey(HKEY_CURRENT_USER, ReminderSubKey);
        RegWriteValue(HKEY_CURRENT_USER, ReminderSubKey, ReminderValueName, value, type);
    }

    ProgramEnvironment m_environment;
    ScriptedMessages m_messages;
    std::string m_events;
};

TEST_F(Misc, TheReminderComesOnceAMonth) {
    Note("112026");
    MonthlyReminder();
    EXPECT_TRUE(m_messages.Asked().empty());

    m_environment.SetToday(2026, 12, 1);
    m_messages.Expect(MessageAnswer::Yes);
    MonthlyReminder();
    ASSERT_EQ(m_messages.Asked().size(), 1U) << "Yes needs no second box";
    const MessageRequest& asked = m_messages.Asked()[0];
    EXPECT_EQ(asked.title, "Plenair's harmless self advertising");
    EXPECT_EQ(asked.buttons, MessageButtons::YesNo);
    EXPECT_EQ(asked.icon, MessageIcon::Question);
    EXPECT_EQ(m_events, "about after 122026, focus, ");
    MonthlyReminder();
    EXPECT_EQ(m_messages.Asked().size(), 1U);
}

TEST_F(Misc, NoHasAnAnswer) {
    m_messages.Expect(MessageAnswer::No);
    m_messages.Expect(MessageAnswer::Ok);
    MonthlyReminder();
    const MessageRequest& second = m_messages.Asked().back();
    EXPECT_EQ(second.text, "Liar!");
    EXPECT_EQ(second.title, "Plenair");
    EXPECT_EQ(second.buttons, MessageButtons::Ok);
    EXPECT_EQ(second.icon, MessageIcon::None);
    EXPECT_EQ(m_events, "about after 112026, focus, ");
}

TEST_F(Misc, TheMonthIsComparedForDifference) {
    const struct {
        const char* name;
        RegistryValue noted;
        bool due;
    } rows[] = {
        {"this month", "112026", false},
        {"this month, terminated", std::string("112026\0", 7), false},
        {"this month of last year", "112025", true},
        {"a month to come", "122026", true},
        {"empty", "", true},
        {"cut off", "11202", true},
        {"a number", std::int32_t{112026}, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Note(row.noted, row.noted.index() == 2 ? REG_DWORD : REG_SZ);
        const std::size_t before = m_messages.Asked().size();
        if (row.due) {
            m_messages.Expect(MessageAnswer::Yes);
        }
        MonthlyReminder();
        EXPECT_EQ(m_messages.Asked().size() - before, row.due ? 1U : 0U);
        EXPECT_EQ(Noted().substr(0, 6), "112026");
    }
}

TEST_F(Misc, AStoreThatCannotBeWrittenMakesItComeAgain) {
    for (const std::string& store : {std::string(), m_environment.Folder().Path()}) {
        SetRegistryFile(store);
        for (int calculation = 0; calculation < 2; ++calculation) {
            m_events.clear();
            m_messages.Expect(MessageAnswer::Yes);
            MonthlyReminder();
            EXPECT_EQ(m_events, "about after nothing, focus, ");
        }
    }
}

TEST_F(Misc, EachQuestionHasTheSameChance) {
    std::map<std::string, int> asked;
    SetMessageBoxProvider([&](const MessageRequest& request) {
        ++asked[request.text];
        return MessageAnswer::Yes;
    });
    SetRegistryFile(""); // where nothing can be noted, it is always due
    constexpr int Times = 3000;
    for (int second = 0; second < Times; ++second) {
        SetClock([=] { return LocalTime{2026, 11, 24, 8, second / 60, second % 60, 0}; });
        MonthlyReminder();
    }
    const std::string questions[] = {
        "Enjoying Plenair?",
        "Lying awake at night, just wondering how much better Plenair could be?",
        "Been thinking about how good your company's name would look on Plenair?",
        "Think Plenair could be improved?",
        "Been searching for the ultimate duct sizing software?",
        "Been searching for the ultimate pipe sizing software?",
    };
    EXPECT_EQ(asked.size(), std::size(questions));
    for (const std::string& question : questions) {
        // 500 each on average, with a spread of 20.
        EXPECT_NEAR(asked[question], Times / 6, 100) << question;
    }
}

TEST_F(Misc, TheSeedDecidesTheQuestion) {
    for (int i = 0; i < 2; ++i) {
        Note("");
        m_messages.Expect(MessageAnswer::Yes);
        MonthlyReminder();
    }
    EXPECT_EQ(m_messages.Asked()[0].text, m_messages.Asked()[1].text);
}

TEST_F(Misc, TheCallIsTheSoundOfTheProgramsFolder) {
    PlayCall(); // nobody listens, no file
    std::string played;
    SetSoundProvider([&](const std::string& path) { played = path; });
    PlayCall();
    EXPECT_EQ(std::filesystem::path(played), std::filesystem::path(ProgramFolder()) / "Gus.psg");
}

} // namespace
} // namespace plenair
