#pragma once

#include "project/ProjectWindows.h"

#include <string>

namespace plenair {

class Form;

// The keys that both windows of the solver have: undo and redo, and F1 for the manual from `page` on.
void AddSolverKeys(Form& form, const ProjectWindows& windows, const std::string& page);

} // namespace plenair
