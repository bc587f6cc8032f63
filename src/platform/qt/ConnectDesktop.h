#pragma once

#include "platform/text/DateText.h"

#include <string>

class QLocale;

namespace plenair {

// Puts the desktop behind the program's platform interfaces: program's folder, registry file, number locale,
// message boxes, sound, focus. Call once, after the application object is made and before anything else.
void ConnectDesktop();

// The folder that an environment variable names, if that is an absolute path; else the one of that name below
// the user's home folder. No trailing separator.
std::string FolderOfUser(const char* variable, const char* belowHome);

// How a locale of the desktop writes dates.
DateLocale DatesOf(const QLocale& locale);

} // namespace plenair
