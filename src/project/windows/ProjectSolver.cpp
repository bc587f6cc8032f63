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
    auto* solver = new frmMajorCalc(*s_sheet);
    s_solver = solver;
    solver->ShowOptions = links.ShowOptions;
    solver->CloseSolver = [solver, closed = links.Closed] {
        solver->hide();
        closed();
        EndKeeping();
        UnloadProjectSolver();
    };
    QObject::connect(s_sheet, &Form::CloseRequested, solver, [solver] { solver->UntickSheet(); });
    solver->Form_Load([solver] { s_sheet->Form_Load(*solver, solver->Grid()); });
    solver->show();
    StartKeeping();
    OfferRecovery({*solver, *s_sheet});
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
