#include "project/PressureCalcs.h"

#include "core/Settings.h"
#include "flow/Arithmetic.h"
#include "flow/CalcFailure.h"
#include "flow/FluidProperties.h"
#include "flow/Units.h"
#include "platform/desktop/InputBox.h"
#include "platform/desktop/MessageBox.h"
#include "platform/text/NumberText.h"
#include "project/PlotDrawing.h"
#include "project/model/DuctPath.h"
#include "project/model/DuctRecord.h"
#include "project/model/PlotGeometry.h"
#include "project/model/ProjectModel.h"

#include <cstddef>
#include <vector>

namespace plenair {

namespace {

const std::string kTitle = "Total Pressure Drop";

void Tell(const std::string& text) {
    ShowMessage({text, kTitle, MessageButtons::Ok, MessageIcon::Exclamation});
}

double PressureDropOf(const PathElement& element) {
    switch (TypeOf(element.Colour)) {
    case ElementType::Rigid:
    case ElementType::Flexible:
        return Checked(ToMetres(element.Length) * element.LossPerMetre);
    case ElementType::Connection:
        return Checked(static_cast<double>(element.ConnCoefficient) * VelocityPressure(element.Velocity));
    case ElementType::None:
        break;
    }
    return 0;
}

// Fills in the drop of each element, and gives their sum.
double WorkOutDrops() {
    for (PathElement& element : PathElements) {
        element.PressureDrop = PressureDropOf(element);
    }
    double total = 0;
    for (const PathElement& element : PathElements) {
        total = Checked(total + element.PressureDrop);
    }
    return total;
}

bool WantsPlot(double total) {
    const MessageRequest question{"Total Pressure is " + Format(total, "0") + " Pa.\n\nProceed with plot?",
                                  kTitle, MessageButtons::YesNo};
    return ShowMessage(question) == MessageAnswer::Yes;
}

} // namespace

double VelocityPressure(double velocity) {
    return Checked(0.5 * (velocity * velocity) * Density(Settings.FluidTemp));
}

void AskForPath(const ProjectWindows& windows) {
    const std::string answer = AskForText({"Please list duct path separated by commas.", "Pressure Drop"});
    if (!answer.empty()) {
        PathPressure(windows, answer);
    }
}

void PathPressure(const ProjectWindows& windows, std::string path) {
    if (path.find_first_not_of(" \t") == std::string::npos) {
        return;
    }
    if (path.back() >= '0' && path.back() <= '9') {
        path += ',';
    }
    const std::vector<PathElement> before = PathElements;
    std::string problem;
    bool wanted = true;
    try {
        ParseDuctPath(path);
        wanted = WantsPlot(WorkOutDrops());
        problem = WhyNoPlot();
        if (problem.empty()) {
            ScalesOfPlot(windows.Solver.PicGrid().Size(), kGridPlot);
            if (wanted) {
                PlotPath(windows);
            }
        }
    } catch (const PathFailure& failure) {
        problem = failure.what();
    } catch (const CalcFailure&) {
        problem = "The pressure of this path can't be worked out or plotted: its ducts hold values too large "
                  "or too small for that.";
    }
    if (!problem.empty() && (wanted || PlotShowing != kFlagClear)) {
        SetPath(before); // which a plot on the grid belongs to
    }
    if (wanted && !problem.empty()) {
        Tell(problem);
    }
}

} // namespace plenair
