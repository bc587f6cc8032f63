#pragma once

namespace plenair {

// Starts the sequence of random numbers anew: the same seed gives the same numbers.
void SeedRandom(double seed);

// The next random number, from 0 up to but not including 1, every part of the range with the same chance.
double NextRandom();

// Seconds since midnight, fractions included: the timer that seeds the random numbers.
double SecondsSinceMidnight();

} // namespace plenair
