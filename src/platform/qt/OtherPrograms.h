#pragma once

#include <string>

// Programs of the desktop that do a thing for this one. They run on their own: nothing waits for them, and
// what they have to say is not heard. None is started through a shell.
namespace plenair {

// Plays a sound file by the first of the desktop's players that can, in silence where none can. Without the
// file it is the desktop's own alert sound.
void PlayByOtherProgram(const std::string& path);

// Shows a text file in the user's default application for plain text, else in one of the common editors, else
// in any application that takes plain text. False if there is none.
bool EditByOtherProgram(const std::string& path);

// Shows the file of the manual from the place on that `anchor` names, in the user's default browser, else in
// one of the common ones. False if there is neither.
bool OpenManualByOtherProgram(const std::string& path, const std::string& anchor);

} // namespace plenair
