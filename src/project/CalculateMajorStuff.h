#pragma once

#include "project/ProjectWindows.h"

// The solution of a project: each duct alone gets the width that keeps its loss within its caps.
namespace plenair {

// cmdGus_Click, the whole run: saves the project, solves its ducts, writes the report and closes the project
// to changes. It stops in order where the user cancels, the file can't be written or a duct can't be solved,
// and then gives false.
bool SolveProject(const ProjectWindows& windows);

// Solves the rigid and flexible ducts one after the other through the sheet, which shows each as it passes.
// Sets RunFailed at the first that can't be solved, after a message that names it; the ducts before keep
// their results, and the sheet stays on that duct. The working velocity is Settings.MaxVelocity.
void SolveDucts(const ProjectWindows& windows);

} // namespace plenair
