#include "project/windows/ProjectSolver.h"

#include "project/model/ProjectModel.h"
#include "project/windows/frmMajorCalc.h"
#include "project/windows/frmMajorParam.h"

#include <QPointer>

namespace plenair {

namespace {

// Each window exists at most once. They end while a handler of theirs may still be on its way out.
QPointer<frmMajorCalc> SSolver;
QPointer<frmMajorParam> SSheet;

} // namespace

void ShowProjectSolver(const ProjectSolverLinks& links) {
    UnloadProjectSolver();
    StartProject();
    SSheet = new frmMajorParam;
    SSolver = new frmMajorCalc(*SSheet);
    SSolver->ShowOptions = links.ShowOptions;
    SSolver->CloseSolver = [closed = links.Closed] {
        SSolver->hide();
        closed();
        UnloadProjectSolver();
    };
    QObject::connect(SSheet, &Form::CloseRequested, SSolver, [] { SSolver->UntickSheet(); });
    SSolver->Form_Load([] { SSheet->Form_Load(*SSolver, SSolver->GridWidth(), SSolver->GridTop()); });
    SSolver->show();
}

void UnloadProjectSolver() {
    for (Form* window : {static_cast<Form*>(SSolver), static_cast<Form*>(SSheet)}) {
        if (window != nullptr) {
            window->hide();
            window->deleteLater();
        }
    }
    SSolver = nullptr;
    SSheet = nullptr;
}

} // namespace plenair
