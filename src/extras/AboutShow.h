#pragma once

#include "platform/drawing/DrawingSurface.h"

#include <functional>

namespace plenair {

// The show of the about box: scribbles two thousand lines in random colours, then wipes all but a border of
// them with a black panel that grows from the centre. Each stroke is followed by `refresh`, and nothing else
// sets the pace.
void PlayShow(DrawingSurface& surface, const std::function<void()>& refresh);

} // namespace plenair
