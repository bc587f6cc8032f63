#include "core/Settings.h"
#include "platform/desktop/CommonDialog.h"
#include "platform/desktop/Desktop.h"
#include "platform/files/Folders.h"
#include "platform/qt/DesktopPrinter.h"
#include "platform/qt/QtText.h"
#include "project/ProjectGrid.h"
#include "project/model/NetworkChange.h"
#include "project/model/ProjectGeometry.h"
#include "project/model/ProjectModel.h"
#include "project/windows/ProjectSolver.h"
#include "project/windows/frmMajorCalc.h"
#include "project/windows/frmMajorParam.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTemporaryDir>

#include <algorithm>

// The Project Solver as a user has it, a project of 1,000 ducts in it: each time is that of a click, from the
// button going down to the painted windows.
namespace plenair {
namespace {

constexpr int kDucts = 1000;

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(kDucts)->Arg(8000)->Arg(kMostDucts)->Unit(benchmark::kMillisecond)->UseRealTime();
}

class OpenSolver {
  public:
    OpenSolver() : m_before(CurrentFolder()) {
        Settings = SettingsRecord();
        Desktop().AskByMessageBox = [](const MessageRequest& request) {
            return request.Buttons == MessageButtons::YesNo ? MessageAnswer::Yes : MessageAnswer::Ok;
        };
        Desktop().ShowDialog = [this](DialogKind kind, CommonDialog& dialog) {
            if (kind == DialogKind::Printer) {
                PrintToFile(File("plant.pdf"));
            } else {
                dialog.FileName = File("plant.gsp");
            }
            return true;
        };
        Desktop().PlaySound = [](const std::string&, unsigned) {};
        ShowProjectSolver({});
        for (QWidget* window : QApplication::topLevelWidgets()) {
            m_solver = m_solver != nullptr ? m_solver : qobject_cast<frmMajorCalc*>(window);
            m_sheet = m_sheet != nullptr ? m_sheet : qobject_cast<frmMajorParam*>(window);
        }
        m_solver->WaitUntilOnScreen();
    }
    ~OpenSolver() {
        UnloadProjectSolver();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Desktop().AskByMessageBox = {};
        Desktop().ShowDialog = {};
        Desktop().AskByInputBox = {};
        Desktop().PlaySound = {};
        EnterFolder(m_before);
    }
    OpenSolver(const OpenSolver&) = delete;
    OpenSolver& operator=(const OpenSolver&) = delete;

    // A network that fills the grid, drawn and painted.
    void FillGrid(int ducts) {
        StartProject();
        DuctCount = static_cast<std::int16_t>(ducts);
        FitDucts();
        for (int number = 1; number <= ducts; ++number) {
            const float colours[] = {kRigidColour, kFlexibleColour, kConnectionColour};
            const double column = number % kCellsAcross;
            const double row = number / kCellsAcross % kCellsDown;
            Ducts[static_cast<std::size_t>(number)] = {.Colour = colours[number % 3],
                                                       .StartX = column / kCellsAcross,
                                                       .StartY = row / kCellsDown,
                                                       .EndX = (column + 1) / kCellsAcross,
                                                       .EndY = (row + number % 2) / kCellsDown,
                                                       .ConnCoefficient = 0.5F,
                                                       .Length = 2000.0 + number,
                                                       .Height = 300,
                                                       .Velocity = 8,
                                                       .LossPerMetre = 0.8,
                                                       .Flow = 500.0 + number % 100};
        }
        m_sheet->SetScrollMaximum(std::max(ducts, 1));
        RedrawProject(Windows());
        Paint();
    }

    void ShowSheet() {
        Click("chkParam");
        m_sheet->WaitUntilOnScreen();
        Paint();
    }

    void Click(const char* name) { ClickAt(Get<QWidget>(name), Get<QWidget>(name)->rect().center()); }
    void ClickGrid(int x, int y) { ClickAt(Get<QWidget>("picGrid"), QPointF(x, y)); }

    template <typename Control>
    Control* Get(const char* name) {
        return m_solver->findChild<Control*>(name);
    }

    template <typename Control>
    Control* GetOfSheet(const char* name) {
        return m_sheet->findChild<Control*>(name);
    }

    // Everything that is to be painted.
    void Paint() { QCoreApplication::processEvents(); }

    ProjectWindows Windows() { return {*m_solver, *m_sheet}; }
    std::string File(const char* name) const { return m_folder.filePath(name).toStdString(); }

  private:
    static void ClickAt(QWidget* control, QPointF place) {
        const QPointF global = control->mapToGlobal(place);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const auto pressed = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
            QMouseEvent event(type, place, global, Qt::LeftButton, pressed, {});
            QApplication::sendEvent(control, &event);
        }
    }

    QTemporaryDir m_folder;
    std::string m_before;
    frmMajorCalc* m_solver = nullptr;
    frmMajorParam* m_sheet = nullptr;
};

// Argument: the number of ducts.
void Solve(benchmark::State& state, bool sheetShown) {
    const int ducts = static_cast<int>(state.range(0));
    OpenSolver solver;
    solver.FillGrid(ducts);
    if (sheetShown) {
        solver.ShowSheet();
    }
    for (auto _ : state) {
        state.PauseTiming();
        solver.FillGrid(ducts);
        state.ResumeTiming();
        solver.Click("cmdGus");
        solver.Paint();
        if (Solved == kFlagClear) {
            state.SkipWithError("not solved");
            break;
        }
    }
}
BENCHMARK_CAPTURE(Solve, without the sheet, false)
    ->Arg(kDucts)
    ->Arg(kMostDucts)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(Solve, with the sheet shown, true)
    ->Arg(kDucts)
    ->Arg(kMostDucts)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// A change of the whole network, to the painted window.
void RedrawAll(benchmark::State& state) {
    OpenSolver solver;
    solver.FillGrid(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        NoteNetworkChange();
        RedrawProject(solver.Windows());
        solver.Paint();
    }
}
BENCHMARK(RedrawAll)->Apply(Sizes);

void RemoveLast(benchmark::State& state) {
    OpenSolver solver;
    solver.FillGrid(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        solver.Click("cmdLessDuct(2)");
        solver.Paint();
    }
}
BENCHMARK(RemoveLast)->Apply(Sizes)->Iterations(20);

// A click that adds a duct to a network of that many less some.
void ClickThatAddsADuct(benchmark::State& state) {
    constexpr int kClicks = 300;
    OpenSolver solver;
    solver.FillGrid(static_cast<int>(state.range(0)) - kClicks);
    solver.ClickGrid(100, 100);
    int place = 0;
    for (auto _ : state) {
        solver.ClickGrid(20 * (place % 30), 25 * (place % 23));
        solver.Paint();
        ++place;
    }
}
BENCHMARK(ClickThatAddsADuct)->Apply(Sizes)->Iterations(250);

// The sheet moves from duct to duct, and with it the green line.
void HighlightNextDuct(benchmark::State& state) {
    OpenSolver solver;
    solver.FillGrid(static_cast<int>(state.range(0)));
    solver.ShowSheet();
    int duct = 1;
    for (auto _ : state) {
        duct = duct % DuctCount + 1;
        solver.Windows().Sheet.SetScrollValue(duct);
        solver.Paint();
    }
}
BENCHMARK(HighlightNextDuct)->Apply(Sizes);

// Enter in the first box of the first duct, whose flow goes on to all others. Argument: the number of ducts.
void FollowOnFromTheFirst(benchmark::State& state) {
    OpenSolver solver;
    solver.FillGrid(static_cast<int>(state.range(0)));
    solver.ShowSheet();
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
    TextBox* const box = solver.GetOfSheet<TextBox>("txtParam(1)");
    int flow = 500;
    for (auto _ : state) {
        box->SetText(std::to_string(++flow));
        QApplication::sendEvent(box, &enter);
        solver.Paint();
    }
    if (Ducts.back().Flow != flow && Ducts[Ducts.size() - 2].Flow != flow) {
        state.SkipWithError("not all ducts have it");
    }
}
BENCHMARK(FollowOnFromTheFirst)->Arg(kDucts)->Arg(kMostDucts)->Unit(benchmark::kMillisecond)->UseRealTime();

void PlotThousandElements(benchmark::State& state) {
    OpenSolver solver;
    solver.FillGrid(kDucts);
    std::string path;
    for (int number = 1; number <= kDucts; ++number) {
        path += std::to_string(number) + ",";
    }
    Desktop().AskByInputBox = [&](const InputRequest&) { return path; };
    solver.Get<QWidget>("cmdCalcPressure")->show();
    for (auto _ : state) {
        solver.Click("cmdCalcPressure");
        solver.Paint();
        if (PlotShowing == kFlagClear) {
            state.SkipWithError("no plot");
            break;
        }
    }
}
BENCHMARK(PlotThousandElements)->Unit(benchmark::kMillisecond)->UseRealTime();

// The network and the data of every duct, to a PDF file.
void PrintAll(benchmark::State& state) {
    OpenSolver solver;
    solver.FillGrid(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        solver.Click("cmdPrintGus");
    }
    if (!QFile::exists(ToQt(solver.File("plant.pdf")))) {
        state.SkipWithError("nothing printed");
    }
}
BENCHMARK(PrintAll)->Apply(Sizes);

} // namespace
} // namespace plenair
