#include "flow/Sizing.h"

#include "core/Settings.h"
#include "flow/Arithmetic.h"
#include "flow/CalcFailure.h"
#include "platform/text/NumberText.h"

#include <cstdint>
#include <optional>

namespace plenair {

std::string RoundUpSize(double size) {
    // 64 bits for the remainder: the most negative 32-bit number has none by -1.
    const std::int64_t thousandths = ToInt32(size * 1000);
    const std::int64_t step = Settings.RoundOff;
    if (step == 0) {
        throw CalcFailure();
    }
    const std::int64_t remainder = thousandths % step;
    if (remainder == 0) {
        return Format(size, "0.000", Mark::Point);
    }
    return Format(static_cast<double>(step - remainder) / 1000 + size, "0.000", Mark::Point);
}

double RoundedUpSize(double size) {
    const auto number = NumberFromText(RoundUpSize(size), Mark::Point);
    if (!number) {
        throw CalcFailure();
    }
    return *number;
}

} // namespace plenair
