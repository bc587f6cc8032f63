#pragma once

#include <functional>
#include <string>

namespace plenair {

// Shows the text file `path` in the user's own text editor and returns at once. False if no editor could be
// started; without a provider none can.
bool OpenInEditor(const std::string& path);
void SetEditorProvider(std::function<bool(const std::string&)> provider);

} // namespace plenair
