#include "flow/FluidProperties.h"

#include "flow/Arithmetic.h"

namespace plenair {

double Density(double temperature) {
    return Checked(temperature * -0.0041 + 1.2925);
}

double Viscosity(double temperature) {
    return Checked((temperature * 0.047 + 17.238) * 0.000001);
}

} // namespace plenair
