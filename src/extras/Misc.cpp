#include "extras/Misc.h"

#include "core/modRegistry.h"
#include "platform/desktop/MessageBox.h"
#include "platform/desktop/RandomNumbers.h"
#include "platform/desktop/Sound.h"
#include "platform/files/ProgramFolder.h"
#include "platform/files/RegistryStore.h"

#include <array>
#include <cstddef>
#include <string>
#include <variant>

namespace plenair {

std::function<void()> ShowAboutAfterReminder;
std::function<void()> FocusLiteWindow;

namespace {

const std::array<std::string, 6> kQuestions = {
    "Enjoying Plenair?",
    "Lying awake at night, just wondering how much better Plenair could be?",
    "Been thinking about how good your company's name would look on Plenair?",
    "Think Plenair could be improved?",
    "Been searching for the ultimate duct sizing software?",
    "Been searching for the ultimate pipe sizing software?",
};

// A month that was seen to be noted: each calculation asks, and the store is a file. Another program may take
// the note back unseen.
std::string s_doneMonth;

// The month noted last; the stored text may have a terminator behind its six characters.
std::string NotedMonth() {
    const RegistryValue value = RegReadValue(HKEY_CURRENT_USER, kReminderSubKey, kReminderValueName);
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr ? text->substr(0, 6) : std::string();
}

} // namespace

void ForgetReminder() {
    s_doneMonth.clear();
}

void PlayCall() {
    PlaySoundA(DeliveredPath("Gus.psg"), SND_ASYNC | SND_NOWAIT);
}

void MonthlyReminder() {
    const std::string month = ReminderMonth();
    if (s_doneMonth == month) {
        return;
    }
    s_doneMonth.clear();
    if (NotedMonth() == month) {
        s_doneMonth = month;
        return;
    }
    SeedRandom(SecondsSinceMidnight());
    const auto number = static_cast<std::size_t>(NextRandom() * 6 + 1);
    const MessageAnswer answer = ShowMessage({kQuestions[number - 1], "Plenair's harmless self advertising",
                                              MessageButtons::YesNo, MessageIcon::Question});
    if (answer == MessageAnswer::No) {
        ShowMessage({"Liar!", "Plenair", MessageButtons::Ok, MessageIcon::None});
    }
    NoteReminder();
    if (ShowAboutAfterReminder) {
        ShowAboutAfterReminder();
    }
    if (FocusLiteWindow) {
        FocusLiteWindow();
    }
}

} // namespace plenair
