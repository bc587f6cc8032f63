#pragma once

#include <stdexcept>

namespace plenair {

// A file that can't be opened, read or written: what() names the file and the system's reason.
struct FileFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// A file that could be read, but holds something else than what belongs in it; what() may tell only that.
struct ContentFailure : FileFailure {
    using FileFailure::FileFailure;
};

} // namespace plenair
