#include "flow/BoxNumbers.h"

#include "flow/CalcFailure.h"
#include "platform/text/NumberText.h"

#include <optional>

namespace plenair {

double NumberOf(const std::string& text) {
    const auto number = NumberFromText(text);
    if (!number) {
        throw CalcFailure();
    }
    return *number;
}

float SingleOf(const std::string& text) {
    const auto number = SingleFromText(text);
    if (!number) {
        throw CalcFailure();
    }
    return *number;
}

} // namespace plenair
