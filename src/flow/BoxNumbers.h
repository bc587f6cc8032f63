#pragma once

#include <string>

namespace plenair {

// The number that a box or cell holds, by the machine's locale. Throws CalcFailure if it holds none.
double NumberOf(const std::string& text);

// The same, converted straight to 32 bits.
float SingleOf(const std::string& text);

} // namespace plenair
