#pragma once

#include <exception>

namespace plenair {

// The one failure of all calculations: a division by zero, an overflow, a root, logarithm or power out of
// range, text that is no number, a search that does not settle. It abandons the running calculation up to the
// nearest catcher, and no catcher asks which it was.
struct CalcFailure : std::exception {};

} // namespace plenair
