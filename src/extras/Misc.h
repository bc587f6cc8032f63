#pragma once

#include <functional>

// The program's call and its monthly question.
namespace plenair {

// Plays the call, Gus.psg of the program's folder. Returns at once and never reports anything.
void PlayCall();

// Once in each calendar month: asks one of six questions, notes the month in the registry, and shows the
// about box beside the Lite window, which keeps the focus. The month is compared for difference, so a clock
// set back asks again. Nothing happens in a month that is noted; once seen to be, it isn't looked up again.
void MonthlyReminder();

// Has the next reminder look it up, as a new start of the program does.
void ForgetReminder();

// What the reminder does to the windows; the start routine, which knows them, sets both.
extern std::function<void()> ShowAboutAfterReminder;
extern std::function<void()> FocusLiteWindow;

} // namespace plenair
