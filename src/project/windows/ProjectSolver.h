#pragma once

#include <functional>

namespace plenair {

// What the rest of the program does for the solver's windows; the start routine sets them.
struct ProjectSolverLinks {
    std::function<void()> ShowOptions = [] {};
    std::function<void()> Closed = [] {}; // both windows are gone from the screen
};

// Opens the Project Solver, with an empty project.
void ShowProjectSolver(const ProjectSolverLinks& links);

// Ends both windows, should they be open, without a question.
void UnloadProjectSolver();

} // namespace plenair
