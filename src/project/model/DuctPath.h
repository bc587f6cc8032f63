#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

// The path that the user typed last: a list of elements of the project, copied when it was read. Nothing
// checks that they touch one another.
namespace plenair {

struct PathElement {
    std::int16_t Position = 0; // place in the path, from 1; not the duct's number
    float Colour = 0;
    float ConnCoefficient = 0;
    double Length = 0;       // mm
    double Velocity = 0;     // m/s
    double LossPerMetre = 0; // Pa/m
    double PressureDrop = 0; // Pa
};

// Elements 1 to PathCount; element 0 is never filled.
extern std::vector<PathElement> PathElements;
extern std::int16_t PathCount;

// Takes another path, element 0 included.
void SetPath(std::vector<PathElement> elements);

// A path text that names something other than elements of the project. what() is for the user.
struct PathFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Fills PathElements from a list of duct numbers, 0 included, each as digits or as the grid labels it: R1,
// C2, r3. Between two stand one separator, any character that is no digit, and any blanks around it, or
// blanks alone; the last one needs one behind it too. Consumes the text, which is empty afterwards. Throws
// PathFailure; then the last path stays.
void ParseDuctPath(std::string& path);

} // namespace plenair
