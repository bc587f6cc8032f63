#pragma once

#include "platform/desktop/Progress.h"

namespace plenair {

// Begins the toolkit's own progress dialog over the window in use.
ProgressStep StartProgressDialog(const ProgressRequest& request);

} // namespace plenair
