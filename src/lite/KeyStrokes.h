#pragma once

#include "lite/LiteWindow.h"

#include <cstdint>
#include <string>

namespace plenair {

// A key released in "txtInputA" or "txtInputB" (`controlName`). In the sizing bases Up (38) and Down (40)
// move the height to the next row of the table, one size step, and calculate anew over the old results. Any
// other key, and any key in an analysis, does nothing. Texts that are no numbers calculate nothing.
void HandleKeyStroke(LiteWindow& window, std::int16_t key, const std::string& controlName);

// Calculates by Settings.CalcBasis with the numbers of these texts, in this order. A text that is no number
// abandons the calculation without a word.
void CalculateTexts(LiteWindow& window, const std::string& inputA, const std::string& inputB,
                    const std::string& value);

} // namespace plenair
