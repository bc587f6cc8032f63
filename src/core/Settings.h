#pragma once

#include <cstdint>
#include <string>

// The one record of settings that every part of the program reads. Filled by LoadSettings before the first
// window; several fields also serve calculations as working values, so memory and file may differ.
namespace plenair {

struct SettingsRecord {
    double FluidTemp = 26;               // deg C, of the air
    double SurfaceRoughness1 = 0.00015;  // m, rigid duct
    double SurfaceRoughness2 = 0.002;    // m, flexible duct
    double MaxLPM = 0.8;                 // Pa/m; stepped by the basis of a loss per metre
    double MaxVelocity = 5;              // m/s; stepped by the bases of a velocity and by the solve run
    double Analysis = 500;               // as typed; the Lite window's flow to analyse
    std::string ConfigFile = "User.cfg"; // name, without folder, of the settings file in use
    std::string DefPath;                 // folder in which file dialogs open
    std::int16_t RoundOff = 25;          // mm, size step
    std::int16_t CalcBasis = 0;          // 0 to 4
};

extern SettingsRecord Settings;

} // namespace plenair
