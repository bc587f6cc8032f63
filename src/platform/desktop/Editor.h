#pragma once

#include <string>

namespace plenair {

// Shows the text file `path` in the user's own text editor and returns at once. False if no editor could be
// started.
bool OpenInEditor(const std::string& path);

} // namespace plenair
