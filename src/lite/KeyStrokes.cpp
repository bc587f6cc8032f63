#include "lite/KeyStrokes.h"

#include "core/Settings.h"
#include "flow/BoxNumbers.h"
#include "flow/CalcFailure.h"
#include "lite/Bases.h"
#include "lite/CalculateMinorStuff.h"
#include "platform/desktop/KeyCodes.h"

namespace plenair {

void HandleKeyStroke(LiteWindow& window, std::int16_t key, const std::string& controlName) {
    if (IsAnalysis(Settings.CalcBasis) || (key != kKeyUpArrow && key != kKeyDownArrow)) {
        return;
    }
    const int row = key == kKeyUpArrow ? kMiddleRow - 1 : kMiddleRow + 1;
    window.SetInputB(window.MinorCell(row, kHeightColumn));
    if (!window.InputA().empty() && !window.InputB().empty()) {
        CalculateTexts(window, window.InputA(), window.InputB(), "1");
    }
    if (controlName == "txtInputA") {
        window.FocusInputB();
    }
}

void CalculateTexts(LiteWindow& window, const std::string& inputA, const std::string& inputB,
                    const std::string& value) {
    try {
        const double a = NumberOf(inputA);
        const double b = NumberOf(inputB);
        const double c = NumberOf(value);
        CalculateBasis(window, a, b, c, Settings.CalcBasis);
    } catch (const CalcFailure&) {
        // Nothing is said: the grids stay blank.
    }
}

} // namespace plenair
