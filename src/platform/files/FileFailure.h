#pragma once

#include <stdexcept>

namespace plenair {

// A file that can't be opened, read or written: what() names the file and the system's reason. Also an item
// that is not what belongs in its place: what() tells only that.
struct FileFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace plenair
