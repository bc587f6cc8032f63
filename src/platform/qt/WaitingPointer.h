#pragma once

#include <functional>

namespace plenair {

// Begins work that the pointer tells of, and gives the function that asks on: see Waiting.
std::function<bool()> StartWaitingPointer();

} // namespace plenair
