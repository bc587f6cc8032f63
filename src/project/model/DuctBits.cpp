#include "project/model/DuctBits.h"

#include <bit>

namespace plenair {

namespace {

std::uint64_t Bits(double value) {
    return std::bit_cast<std::uint64_t>(value);
}

std::uint64_t Bits(float low, float high) {
    return std::uint64_t{std::bit_cast<std::uint32_t>(high)} << 32 | std::bit_cast<std::uint32_t>(low);
}

float Low(std::uint64_t bits) {
    return std::bit_cast<float>(static_cast<std::uint32_t>(bits));
}

float High(std::uint64_t bits) {
    return std::bit_cast<float>(static_cast<std::uint32_t>(bits >> 32));
}

double Double(std::uint64_t bits) {
    return std::bit_cast<double>(bits);
}

} // namespace

DuctBits BitsOf(const DuctRecord& duct) {
    return {Bits(duct.Colour, 0),  Bits(duct.StartX),   Bits(duct.StartY),
            Bits(duct.EndX),       Bits(duct.EndY),     Bits(duct.ConnCoefficient, duct.Spare),
            Bits(duct.Length),     Bits(duct.Width),    Bits(duct.Height),
            Bits(duct.EquivRound), Bits(duct.Velocity), Bits(duct.LossPerMetre),
            Bits(duct.Flow)};
}

DuctRecord DuctOf(const DuctBits& bits) {
    return {.Colour = Low(bits[0]),
            .StartX = Double(bits[1]),
            .StartY = Double(bits[2]),
            .EndX = Double(bits[3]),
            .EndY = Double(bits[4]),
            .ConnCoefficient = Low(bits[5]),
            .Spare = High(bits[5]),
            .Length = Double(bits[6]),
            .Width = Double(bits[7]),
            .Height = Double(bits[8]),
            .EquivRound = Double(bits[9]),
            .Velocity = Double(bits[10]),
            .LossPerMetre = Double(bits[11]),
            .Flow = Double(bits[12])};
}

} // namespace plenair
