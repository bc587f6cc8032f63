#pragma once

#include "project/model/DuctBits.h"

#include <string>
#include <string_view>
#include <vector>

namespace plenair {

// All that belongs to a project at one moment, to the last bit, unlike a project file.
struct ProjectState {
    std::vector<DuctBits> Elements; // from element 0 on
    bool IsSolved = false;
    bool PressureShown = false; // the button of the pressures
    std::string Name;           // ProjectName

    bool operator==(const ProjectState&) const = default;
};

// Makes it the project in memory.
void TakeState(const ProjectState& state);

// The content of a recovery file: a state, and the folder of the file dialogs.
struct KeptProject {
    ProjectState State;
    std::string Folder;
};

std::string KeptContent(const ProjectState& state, const std::string& folder);

// Reads it back. Throws ContentFailure where it isn't whole.
KeptProject ReadKept(std::string_view content);

} // namespace plenair
