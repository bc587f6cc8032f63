#include "core/Main.h"

#include "core/SettingsFile.h"
#include "extras/Misc.h"
#include "lite/frmMinorCalc.h"
#include "project/ProjectSolver.h"

#include <QApplication>

#include <memory>

// Who calls whom: the Lite window calculates by CalculateBasis, which reads its boxes and fills its grids
// through LiteView, with the searches and formulae of flow. All that leads out of a window is tied here.
namespace plenair {

namespace {

std::unique_ptr<frmMinorCalc>& LiteWindow() {
    static std::unique_ptr<frmMinorCalc> window;
    return window;
}

void OpenProjectSolver() {
    ProjectSolverLinks links;
    links.Closed = [] { LiteWindow()->show(); };
    ShowProjectSolver(links);
}

} // namespace

void Main() {
    LoadSettings();
    LiteWindow() = std::make_unique<frmMinorCalc>();
    LiteWindow()->OpenProjectSolver = OpenProjectSolver;
    LiteWindow()->EndProgram = [] { QApplication::exit(); };
    FocusLiteWindow = [] { LiteWindow()->activateWindow(); };
    LiteWindow()->show();
}

void Unload() {
    UnloadProjectSolver();
    FocusLiteWindow = {};
    LiteWindow().reset();
}

} // namespace plenair
