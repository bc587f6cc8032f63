#pragma once

#include <stdexcept>

namespace plenair {

// The one failure of all calculations: a division by zero, an overflow, a root, logarithm or power out of
// range, text that is no number, a search that does not settle. It abandons the running calculation up to the
// nearest catcher; what() is for a maintainer, not for the user.
struct CalcFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace plenair
