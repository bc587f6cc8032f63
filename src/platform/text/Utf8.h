#pragma once

namespace plenair {

// Whether a byte of UTF-8 text goes on with the character before it.
constexpr bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

} // namespace plenair
