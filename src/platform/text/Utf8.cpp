#include "platform/text/Utf8.h"

#include <cstddef>

namespace plenair {

std::string Shortened(std::string_view text) {
    constexpr std::size_t kLongest = 24;
    constexpr std::size_t kMostContinuations = 3; // of one character
    if (text.size() <= kLongest) {
        return std::string(text);
    }
    std::size_t end = kLongest;
    while (end > kLongest - kMostContinuations && IsContinuation(text[end])) {
        --end;
    }
    return std::string(text.substr(0, end)) + "...";
}

} // namespace plenair
