#pragma once

#include <string>

// Programs of the desktop that do a thing for this one. They run on their own: nothing waits for them, and
// what they have to say is not heard.
namespace plenair {

// Plays a sound file through the desktop's sound system, in silence where there is none.
void PlayByOtherProgram(const std::string& path);

// Shows a text file in the user's default application for plain text, else in one of the common editors.
// False if there is neither.
bool EditByOtherProgram(const std::string& path);

} // namespace plenair
