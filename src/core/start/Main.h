#pragma once

namespace plenair {

// The start routine: loads the settings, shows the Lite window, returns. From then on everything happens in
// event handlers. It knows all windows and ties them together.
void Main();

// Ends the windows. For tests, which start the program more than once.
void Unload();

} // namespace plenair
