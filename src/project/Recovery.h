#pragma once

#include "project/ProjectWindows.h"

namespace plenair {

// The solver has opened, with an empty project. Where a program that is gone left its project behind, asks
// whether to restore that: Yes makes it the project, unsolved or solved as it was; No discards it, and asks
// about the one before it. What can't be read is discarded with a message.
void OfferRecovery(const ProjectWindows& windows);

} // namespace plenair
