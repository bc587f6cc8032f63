#include "core/start/Main.h"

#include "core/SettingsFile.h"
#include "core/windows/frmInputs.h"
#include "extras/Misc.h"
#include "extras/windows/AboutBox.h"
#include "lite/windows/frmMinorCalc.h"
#include "platform/qt/Application.h"
#include "project/windows/ProjectSolver.h"

#include <functional>
#include <utility>

// All that leads from one window to another is tied here.
namespace plenair {

namespace {

// Taken down by Unload alone: where the X server goes, the process ends at once, and nothing can be taken
// down after the application.
frmMinorCalc* s_lite = nullptr;

void ShowOptions() {
    frmInputs options;
    options.Stored = [] {
        if (s_lite->isVisible()) {
            s_lite->TakeSettings();
        }
    };
    options.ShowModal();
}

void OpenProjectSolver() {
    ProjectSolverLinks links;
    links.ShowOptions = ShowOptions;
    links.Closed = [] { s_lite->show(); };
    ShowProjectSolver(links);
}

} // namespace

void Main() {
    ShowAboutAfterReminder = ShowAboutPlainly;
    LoadSettings();
    s_lite = new frmMinorCalc;
    s_lite->OpenProjectSolver = OpenProjectSolver;
    s_lite->ShowOptions = ShowOptions;
    s_lite->ShowAbout = ShowAbout;
    s_lite->EndProgram = EndProgram;
    FocusLiteWindow = [] { s_lite->activateWindow(); };
    EndWithSession(*s_lite);
    s_lite->show();
}

void Unload() {
    UnloadProjectSolver();
    UnloadAbout();
    ShowAboutAfterReminder = {};
    FocusLiteWindow = {};
    delete std::exchange(s_lite, nullptr);
}

} // namespace plenair
