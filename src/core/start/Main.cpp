#include "core/start/Main.h"

#include "core/Settings.h"
#include "core/SettingsFile.h"
#include "core/windows/frmInputs.h"
#include "extras/Misc.h"
#include "extras/windows/frmAbout.h"
#include "lite/windows/frmMinorCalc.h"
#include "platform/text/NumberText.h"
#include "project/windows/ProjectSolver.h"

#include <QApplication>
#include <QPointer>

#include <memory>

// Who calls whom. Main loads the settings and shows frmMinorCalc; from then on everything begins in a handler
// of a window. Enter there runs CalculateBasis, which reads the window's boxes and fills its grids through
// LiteWindow, with the searches of flow; the row buttons and the File menu lead to the log. ShowProjectSolver
// opens frmMajorCalc, the grid, and frmMajorParam, the sheet; their handlers call the functions of project,
// which reach both windows through ProjectWindows: ClickGrid adds ducts, StoreBox takes over what was typed,
// SolveProject saves, solves through the sheet and writes the report, AskForPath adds up a path and plots it,
// PrintShown prints. frmInputs loads the settings file, and its OK writes it and brings the Lite window up to
// date from here. All that leads from one window to another is tied in this file.
namespace plenair {

namespace {

std::unique_ptr<frmMinorCalc>& Lite() {
    static std::unique_ptr<frmMinorCalc> s_window;
    return s_window;
}

// There only while it is open.
QPointer<frmAbout> s_about;

// Brings the Lite window up to date with the settings, if it is on the screen.
void UpdateLiteWindow() {
    frmMinorCalc& lite = *Lite();
    if (!lite.isVisible()) {
        return;
    }
    if (Settings.CalcBasis >= 0 && Settings.CalcBasis <= 4) {
        lite.SelectBasis(Settings.CalcBasis);
    }
    lite.SetBasisText(0, ShortestText(Settings.MaxLPM));
    lite.SetBasisText(1, ShortestText(Settings.MaxVelocity));
    lite.SetBasisText(2, ShortestText(Settings.MaxLPM));
    lite.SetBasisText(9, ShortestText(Settings.MaxVelocity));
    lite.SetBasisText(3, ShortestText(Settings.Analysis));
    lite.FocusInputA();
}

void ShowOptions() {
    frmInputs options;
    options.Stored = UpdateLiteWindow;
    options.ShowModal();
}

frmAbout* NewAboutBox() {
    auto* box = new frmAbout;
    s_about = box;
    // The box may be on its way out of a handler when it is closed.
    QObject::connect(box, &Form::CloseRequested, box, [box] {
        box->hide();
        box->deleteLater();
        s_about = nullptr;
    });
    return box;
}

bool BringAboutBoxToFront() {
    if (s_about == nullptr) {
        return false;
    }
    s_about->raise();
    s_about->activateWindow();
    return true;
}

void ShowAbout() {
    if (!BringAboutBoxToFront()) {
        NewAboutBox()->ShowModal();
    }
}

void ShowAboutPlainly() {
    if (!BringAboutBoxToFront()) {
        NewAboutBox()->ShowPlain();
    }
}

void OpenProjectSolver() {
    ProjectSolverLinks links;
    links.ShowOptions = ShowOptions;
    links.Closed = [] { Lite()->show(); };
    ShowProjectSolver(links);
}

// The end of the desktop's session, or another's wish, and nobody there to answer: windows are neither asked
// nor do they ask, and what waits for an answer is taken as cancelled.
class QuitWatcher : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Quit) {
            return false;
        }
        QApplication::exit();
        return true;
    }
};

} // namespace

void Main() {
    ShowAboutAfterReminder = ShowAboutPlainly;
    LoadSettings();
    Lite() = std::make_unique<frmMinorCalc>();
    Lite()->OpenProjectSolver = OpenProjectSolver;
    Lite()->ShowOptions = ShowOptions;
    Lite()->ShowAbout = ShowAbout;
    Lite()->EndProgram = [] { QApplication::exit(); };
    FocusLiteWindow = [] { Lite()->activateWindow(); };
    qApp->installEventFilter(new QuitWatcher(Lite().get()));
    Lite()->show();
}

void Unload() {
    UnloadProjectSolver();
    delete s_about;
    ShowAboutAfterReminder = {};
    FocusLiteWindow = {};
    Lite().reset();
}

} // namespace plenair
