#pragma once

#include "project/model/DuctRecord.h"

#include <array>
#include <cstddef>
#include <cstdint>

// The exact bits of an element: what compares, undoes and restores values without any rounding.
namespace plenair {

// One 64-bit word for each 64-bit field, in the order of the record; the first holds Colour, the sixth
// ConnCoefficient and Spare.
using DuctBits = std::array<std::uint64_t, 13>;
constexpr std::size_t kWordsOfPlace = 5; // the first ones: colour and ends, all that the drawing shows

DuctBits BitsOf(const DuctRecord& duct);
DuctRecord DuctOf(const DuctBits& bits);

} // namespace plenair
