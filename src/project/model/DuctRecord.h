#pragma once

#include <string>

// One element of a project.
namespace plenair {

// The colours that an element's type is made of, as they stand in its record and in files.
constexpr float kRigidColour = 255.0F;
constexpr float kFlexibleColour = 16711680.0F;
constexpr float kConnectionColour = 65535.0F;

// Ends are fractions of the drawing surface. Velocity and LossPerMetre of a duct are caps before the solution
// and results after it.
struct DuctRecord {
    float Colour = 0; // the colour it is drawn in, and its type
    double StartX = 0;
    double StartY = 0;
    double EndX = 0;
    double EndY = 0;
    float ConnCoefficient = 0;
    float Spare = 0;         // carried by the project file alone
    double Length = 0;       // mm
    double Width = 0;        // mm
    double Height = 0;       // mm
    double EquivRound = 0;   // mm
    double Velocity = 0;     // m/s
    double LossPerMetre = 0; // Pa/m
    double Flow = 0;         // L/s
};

// Element 0, and a record from a damaged file, may be of no type. Where ducts and connections are treated
// differently such a record goes with the ducts, but it adds nothing to the pressure drop of a path.
enum class ElementType { None, Rigid, Flexible, Connection };

ElementType TypeOf(float colour);

// "R", "F", "C", or empty.
std::string TypeLetter(float colour);

} // namespace plenair
