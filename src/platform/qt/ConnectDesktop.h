#pragma once

#include "platform/text/DateText.h"

class QLocale;

namespace plenair {

// Puts the desktop behind the program's platform interfaces: program's folder, registry file, number locale,
// message boxes, sound, focus. Call once, after the application object is made and before anything else.
void ConnectDesktop();

// How a locale of the desktop writes dates.
DateLocale DatesOf(const QLocale& locale);

} // namespace plenair
