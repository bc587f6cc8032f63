#include "platform/desktop/RandomNumbers.h"

#include "platform/desktop/Clock.h"

#include <bit>
#include <cstdint>
#include <random>

namespace plenair {

namespace {

std::mt19937_64& Generator() {
    static std::mt19937_64 generator;
    return generator;
}

} // namespace

void SeedRandom(double seed) {
    Generator().seed(std::bit_cast<std::uint64_t>(seed));
}

double NextRandom() {
    // 53 bits, so that the largest is below 1.
    return static_cast<double>(Generator()() >> 11) * 0x1.0p-53;
}

double SecondsSinceMidnight() {
    const LocalTime now = Now();
    return ((now.hour * 60.0 + now.minute) * 60.0 + now.second) + now.millisecond / 1000.0;
}

} // namespace plenair
