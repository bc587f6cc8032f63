#pragma once

#include "project/model/ProjectModel.h"

#include <string>
#include <string_view>
#include <vector>

// A project as a recovery file holds it: everything to the last bit, unlike a project file.
namespace plenair {

struct KeptProject {
    std::vector<DuctRecord> Elements; // from element 0 on
    bool IsSolved = false;
    bool PressureShown = false; // the button of the pressures
    std::string Name;           // ProjectName
    std::string Folder;         // of the file dialogs
};

// The content of a recovery file for the project as it is now.
std::string KeptContent(bool pressureShown, const std::string& folder);

// Reads it back. Throws ContentFailure where it isn't whole.
KeptProject ReadKept(std::string_view content);

// Makes it the project.
void TakeKept(KeptProject kept);

} // namespace plenair
