#pragma once

// Air, as straight lines in the temperature.
namespace plenair {

// Density in kg/m³ at `temperature` in deg C. Throws CalcFailure on overflow.
double Density(double temperature);

// Dynamic viscosity in Pa s at `temperature` in deg C. Throws CalcFailure on overflow.
double Viscosity(double temperature);

} // namespace plenair
