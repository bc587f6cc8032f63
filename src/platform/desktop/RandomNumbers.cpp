#include "platform/desktop/RandomNumbers.h"

#include "platform/desktop/Clock.h"
#include "platform/text/LocalTime.h"

#include <bit>
#include <cstdint>
#include <random>

namespace plenair {

namespace {

std::mt19937_64& Generator() {
    static std::mt19937_64 s_generator;
    return s_generator;
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
    return ((now.Hour * 60.0 + now.Minute) * 60.0 + now.Second) + now.Millisecond / 1000.0;
}

} // namespace plenair
