#pragma once

#include <string>

namespace plenair {

// Shows the manual in the user's browser, from the place on that `anchor` names ("solver"), and returns at
// once. Where there is no manual, or nothing to show it, a message names the places looked at, or the file.
void ShowManual(const std::string& anchor);

} // namespace plenair
