#include "project/windows/ProjectSolver.h"

#include "platform/qt/Form.h"
#include "project/ProjectKeeper.h"
#include "project/Recovery.h"
#include "project/model/History.h"
#include "project/model/ProjectModel.h"
#include "project/windows/frmMajorCalc.h"
#include "project/windows/frmMajorParam.h"

#include <QObject>
#include <QPointer>

namespace plenair {

namespace {

// Each window exists at most once. They end while a handler of theirs may still be on its way out.
QPointer<frmMajorCalc> s_solver;
QPointer<frmMajorParam> s_sheet;

} // namespace

void ShowProjectSolver(const ProjectSolverLinks& links) {
    UnloadProjectSolver();
    StartProject();
    StartHistory();
    s_sheet = new frmMajorParam;
    s_solver = new frmMajorCalc(*s_sheet);
    s_solver->ShowOptions = links.ShowOptions;
    s_solver->CloseSolver = [closed = links.Closed] {
        s_solver->hide();
        closed();
        EndKeeping();
        UnloadProjectSolver();
    };
    QObject::connect(s_sheet, &Form::CloseRequested, s_solver, [] { s_solver->UntickSheet(); });
    s_solver->Form_Load([] { s_sheet->Form_Load(*s_solver, s_solver->GridWidth(), s_solver->GridTop()); });
    s_solver->show();
    StartKeeping();
    OfferRecovery({*s_solver, *s_sheet});
}

void UnloadProjectSolver() {
    for (Form* window : {static_cast<Form*>(s_solver), static_cast<Form*>(s_sheet)}) {
        if (window != nullptr) {
            window->hide();
            window->deleteLater();
        }
    }
    s_solver = nullptr;
    s_sheet = nullptr;
    KeepAtOnce(); // where the program ends with the solver open
    LeaveKept();
    EndHistory();
}

} // namespace plenair
