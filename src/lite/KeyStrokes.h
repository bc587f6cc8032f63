#pragma once

#include "lite/LiteView.h"

#include <cstdint>
#include <string>

namespace plenair {

// What the Up and Down steps need beyond the results: the two inputs.
class LiteInputs : public LiteView {
  public:
    virtual std::string InputA() const = 0;
    virtual std::string InputB() const = 0;
    virtual void SetInputB(const std::string& text) = 0;
    virtual void FocusInputB() = 0; // selects its text
};

// A key released in "txtInputA" or "txtInputB" (`controlName`). In the sizing bases Up (38) and Down (40)
// move the height to the next row of the table, one size step, and calculate anew over the old results. Any
// other key, and any key in an analysis, does nothing. Texts that are no numbers calculate nothing.
void HandleKeyStroke(LiteInputs& window, std::int16_t key, const std::string& controlName);

// Calculates by Settings.CalcBasis with the numbers of these texts, in this order. A text that is no number
// abandons the calculation without a word.
void CalculateTexts(LiteView& view, const std::string& inputA, const std::string& inputB,
                    const std::string& value);

} // namespace plenair
