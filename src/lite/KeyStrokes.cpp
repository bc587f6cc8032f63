#include "lite/KeyStrokes.h"

#include "core/Settings.h"
#include "flow/BoxNumbers.h"
#include "flow/CalcFailure.h"
#include "lite/CalculateMinorStuff.h"
#include "platform/desktop/KeyCodes.h"

namespace plenair {

void HandleKeyStroke(LiteWindow& window, std::int16_t key, const std::string& controlName) {
    if (Settings.CalcBasis == 3 || Settings.CalcBasis == 4 || (key != kKeyUpArrow && key != kKeyDownArrow)) {
        return;
    }
    const int row = key == kKeyUpArrow ? 1 : 3;
    window.SetInputB(window.MinorCell(row, 1));
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
