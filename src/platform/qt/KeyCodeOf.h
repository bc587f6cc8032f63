#pragma once

class QKeyEvent;

namespace plenair {

// The code of a key as handlers get it; 0 for one that they have no code for.
int KeyCodeOf(const QKeyEvent* event);

} // namespace plenair
