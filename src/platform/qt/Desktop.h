#pragma once

namespace plenair {

// Puts the desktop behind the program's platform interfaces: program's folder, registry file, number locale,
// message boxes, sound, focus. Call once, after the application object is made and before anything else.
void ConnectDesktop();

} // namespace plenair
