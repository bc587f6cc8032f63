#include "project/CalculateMajorStuff.h"

#include "core/Settings.h"
#include "extras/Misc.h"
#include "flow/BoxNumbers.h"
#include "flow/CalcFailure.h"
#include "flow/DuctSearch.h"
#include "flow/Units.h"
#include "platform/desktop/Desktop.h"
#include "platform/desktop/MessageBox.h"
#include "platform/text/NumberText.h"
#include "platform/text/Utf8.h"
#include "project/DuctSheet.h"
#include "project/ProjectFiles.h"
#include "project/ProjectGrid.h"
#include "project/ProjectKeeper.h"
#include "project/model/DuctRecord.h"
#include "project/model/ProjectModel.h"
#include "project/model/SheetBoxes.h"

#include <cstdint>
#include <string>

namespace plenair {

namespace {

const std::string kOutOfReach = "its values, or those of the options, lie outside of what can be calculated.";

// What a duct is solved from, as its boxes say.
struct DuctInput {
    double Flow = 0;   // m³/s
    double Height = 0; // m
    float LossCap = 0;
    float VelocityCap = 0;
};

bool HasZero(const DuctInput& input) {
    return input.Flow == 0.0 || input.Height == 0.0 || input.LossCap == 0.0F || input.VelocityCap == 0.0F;
}

DuctInput ReadInput(const SheetWindow& sheet) {
    DuctInput input;
    input.Flow = ToCubicMetres(NumberOf(sheet.BoxText(SheetBox::Flow)));
    input.Height = ToMetres(NumberOf(sheet.BoxText(SheetBox::Height)));
    input.LossCap = SingleOf(sheet.BoxText(SheetBox::LossPerMetre));
    input.VelocityCap = SingleOf(sheet.BoxText(SheetBox::Velocity));
    return input;
}

double RoughnessOf(float colour) {
    return TypeOf(colour) == ElementType::Rigid ? Settings.SurfaceRoughness1 : Settings.SurfaceRoughness2;
}

// Why the search found no duct, in the user's words.
std::string ReasonText(const DuctNotFound& failure, const SheetWindow& sheet) {
    const auto typed = [&](SheetBox box) { return Shortened(sheet.BoxText(box)); };
    switch (failure.Reason) {
    case NoDuct::NegativeFlow:
        return "its flow is negative.";
    case NoDuct::NegativeHeight:
        return "its height is negative.";
    case NoDuct::NoVelocity:
        return "its velocity cap of " + typed(SheetBox::Velocity) +
               " m/s leaves no velocity to try. It has to be above 0.01 m/s.";
    case NoDuct::NoWidth:
        return "at a velocity of " + Format(failure.Velocity, "0.00") + " m/s and a height of " +
               typed(SheetBox::Height) +
               " mm no width is left. It needs more flow, a lower height or a lower velocity cap.";
    case NoDuct::LossTooHigh:
        return "no velocity down to 0.01 m/s keeps the loss within " + typed(SheetBox::LossPerMetre) +
               " Pa/m at a height of " + typed(SheetBox::Height) + " mm.";
    case NoDuct::OutOfReach:
        break;
    }
    return kOutOfReach;
}

std::string NotSolved(std::int16_t duct, const std::string& reason) {
    return "Duct " + DuctLabel(duct) + " can't be solved: " + reason + "  Solution incomplete.";
}

// Sizes the duct that the sheet shows and writes the result back. Gives the message for the user where there
// is no result.
std::string SolveDuct(const ProjectWindows& windows, std::int16_t duct, float colour) {
    const SheetWindow& sheet = windows.Sheet;
    try {
        const DuctInput input = ReadInput(sheet);
        Settings.MaxVelocity = static_cast<double>(input.VelocityCap);
        if (HasZero(input)) {
            return "Unexpected zero value encountered.  Solution incomplete.";
        }
        const SizedDuct sized = SizeWithinCaps(input.Flow, input.Height, input.LossCap, input.VelocityCap,
                                               RoughnessOf(colour), Settings.MaxVelocity);
        ShowSolvedValues(windows, {.Width = ToMillimetres(sized.Width),
                                   .Height = ToMillimetres(input.Height),
                                   .Velocity = sized.Velocity,
                                   .Loss = sized.Loss,
                                   .EquivDiameter = ToMillimetres(sized.Equivalent)});
        ReadDuctSheet(windows, duct);
        return "";
    } catch (const DuctNotFound& failure) {
        return NotSolved(duct, ReasonText(failure, sheet));
    } catch (const CalcFailure&) { // a text that is no number, or a result that can't be shown
        return NotSolved(duct, kOutOfReach);
    }
}

void EndFailedRun(const ProjectWindows& windows, const std::string& message) {
    NoteStep(windows); // the ducts before this one hold results
    ShowMessage({message, "Error", MessageButtons::Ok, MessageIcon::Critical});
    RunFailed = kFlagSet;
    RedrawProject(windows);
}

} // namespace

void SolveDucts(const ProjectWindows& windows) {
    const Hourglass hourglass;
    SheetWindow& sheet = windows.Sheet;
    for (int number = 1; number <= DuctCount; ++number) {
        const auto duct = static_cast<std::int16_t>(number);
        const float colour = Duct(number).Colour;
        sheet.SetScrollValue(number);
        ShowDuctSheet(windows, duct);
        sheet.Repaint();
        windows.Solver.Repaint();
        if (TypeOf(colour) == ElementType::Connection) {
            continue;
        }
        const std::string failure = SolveDuct(windows, duct, colour);
        if (!failure.empty()) {
            EndFailedRun(windows, failure);
            return;
        }
    }
    sheet.SetScrollValue(1);
}

bool SolveProject(const ProjectWindows& windows) {
    if (DuctCount < 1 || BeepIfSolved()) {
        return false;
    }
    RunFailed = kFlagSet;
    const MessageAnswer answer =
        ShowMessage({"Gus will begin by saving your project.", "Solve", MessageButtons::OkCancel});
    if (answer == MessageAnswer::Cancel) {
        return false;
    }
    SaveProject(windows);
    if (RunFailed != kFlagClear) {
        return false;
    }
    SolveDucts(windows);
    if (RunFailed != kFlagClear) {
        NoteStep(windows);
        return false;
    }
    WriteSolutionReport();
    Solved = kFlagSet;
    ShowDuctSheet(windows, 1);
    windows.Solver.SetPressureVisible(true);
    NoteStep(windows);
    PlayCall();
    ShowMessage({"Plenair Solution Complete", "Plenair", MessageButtons::Ok, MessageIcon::Exclamation});
    return true;
}

} // namespace plenair
