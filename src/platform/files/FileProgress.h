#pragma once

#include <cstdint>
#include <functional>

namespace plenair {

// Told before, between and after the pieces of a file that is read or written, with the bytes done and those
// of the whole file: a slow disk takes its time. What it throws ends the work there, as a failure would.
using FileProgress = std::function<void(std::uint64_t done, std::uint64_t all)>;

} // namespace plenair
