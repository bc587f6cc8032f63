#pragma once

#include <string>
#include <string_view>

namespace plenair {

// Whether a byte of UTF-8 text goes on with the character before it.
constexpr bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// A text that was typed or read, as a message quotes it: with "..." in place of what is beyond 24 bytes, no
// character cut in two.
std::string Shortened(std::string_view text);

} // namespace plenair
