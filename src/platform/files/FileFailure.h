#pragma once

#include <stdexcept>

namespace plenair {

// A file that can't be opened, read or written: what() names the file and the system's reason.
struct FileFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// A file that could be read, but holds something else than what belongs in it. what() says only that, and
// whoever shows it names the file.
struct ContentFailure : FileFailure {
    ContentFailure() : FileFailure("Damaged") {}
};

} // namespace plenair
