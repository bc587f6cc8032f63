#pragma once

#include "platform/drawing/DrawingSurface.h"

#include <array>
#include <cstddef>

namespace plenair {

// The sixteen classic screen colours, 0 to 15: black, blue, green, cyan, red, magenta, brown and light grey,
// then the bright ones from dark grey to white.
inline ColourNumber QBColor(int colour) {
    constexpr std::array<ColourNumber, 16> kColours = {
        0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
        0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
    };
    return kColours.at(static_cast<std::size_t>(colour));
}

} // namespace plenair
