#include "project/CalculateMajorStuff.h"

#include "core/Settings.h"
#include "extras/Misc.h"
#include "flow/Arithmetic.h"
#include "flow/BoxNumbers.h"
#include "flow/DuctSearch.h"
#include "flow/GeneralCalcs.h"
#include "platform/desktop/Desktop.h"
#include "platform/desktop/MessageBox.h"
#include "platform/text/NumberText.h"
#include "platform/text/Utf8.h"
#include "project/DuctSheet.h"
#include "project/ProjectFiles.h"
#include "project/ProjectGrid.h"

namespace plenair {

namespace {

constexpr float kVelocityStep = 0.01F;
constexpr double kLeastWidth = 0.0005; // m, what still rounds to 1 mm
constexpr double kMostWidth = 2E6;     // m, about what can be counted in mm
const std::string kOutOfReach = "its values, or those of the options, lie outside of what can be calculated.";

// The hourglass over all windows, until the end of a scope.
class Hourglass {
  public:
    Hourglass() { SetMousePointer(MousePointer::Hourglass); }
    ~Hourglass() { SetMousePointer(MousePointer::Default); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

// What a duct is solved from, as its boxes say.
struct DuctInput {
    double Flow = 0;   // m³/s
    double Height = 0; // m
    float LossCap = 0;
    float VelocityCap = 0;

    bool HasZero() const { return Flow == 0.0 || Height == 0.0 || LossCap == 0.0F || VelocityCap == 0.0F; }
};

DuctInput ReadInput(const SheetWindow& sheet) {
    DuctInput input;
    input.Flow = NumberOf(sheet.BoxText(SheetBox::Flow)) / 1000;
    input.Height = NumberOf(sheet.BoxText(SheetBox::Height)) / 1000;
    input.LossCap = SingleOf(sheet.BoxText(SheetBox::LossPerMetre));
    input.VelocityCap = SingleOf(sheet.BoxText(SheetBox::Velocity));
    return input;
}

double RoughnessOf(float colour) {
    return TypeOf(colour) == ElementType::Rigid ? Settings.SurfaceRoughness1 : Settings.SurfaceRoughness2;
}

// Width in m of the duct that `velocity` asks for, before it is rounded; nothing where it can't be
// calculated.
std::optional<double> WidthAt(const DuctInput& input, double velocity) {
    try {
        double width = 1E+50;
        double change = 1.0;
        return OtherSide(input.Height, DiameterForVelocity(velocity, input.Flow), width, change);
    } catch (const CalcFailure&) {
        return std::nullopt;
    }
}

// Why the search found no duct, in the user's words. It ended at the velocity in Settings.MaxVelocity.
std::string ReasonNotSolved(const SheetWindow& sheet, const DuctInput& input, bool capsNotMet) {
    const std::string height = Shortened(sheet.BoxText(SheetBox::Height)) + " mm";
    if (input.Flow < 0.0) {
        return "its flow is negative.";
    }
    if (input.Height < 0.0) {
        return "its height is negative.";
    }
    if (input.VelocityCap <= kVelocityStep) {
        return "its velocity cap of " + Shortened(sheet.BoxText(SheetBox::Velocity)) +
               " m/s leaves no velocity to try. It has to be above 0.01 m/s.";
    }
    const std::optional<double> width = WidthAt(input, Settings.MaxVelocity);
    if (width && *width < kLeastWidth) {
        return "at a velocity of " + Format(Settings.MaxVelocity, "0.00") + " m/s and a height of " + height +
               " no width is left. It needs more flow, a lower height or a lower velocity cap.";
    }
    // What is left of the velocity after many steps can be a hair above 0, and so the width beyond all
    // bounds.
    if (capsNotMet || Settings.MaxVelocity < kVelocityStep / 2 || (width && *width > kMostWidth)) {
        return "no velocity down to 0.01 m/s keeps the loss within " +
               Shortened(sheet.BoxText(SheetBox::LossPerMetre)) + " Pa/m at a height of " + height + ".";
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
    std::optional<DuctInput> input;
    try {
        input = ReadInput(sheet);
        Settings.MaxVelocity = static_cast<double>(input->VelocityCap);
        if (input->HasZero()) {
            return "Unexpected zero value encountered.  Solution incomplete.";
        }
        const SizedDuct sized = SizeWithinCaps(input->Flow, input->Height, input->LossCap, input->VelocityCap,
                                               RoughnessOf(colour), Settings.MaxVelocity);
        ShowSolvedValues(windows, sized.Width * 1000, input->Height * 1000, sized.Velocity, sized.Loss,
                         sized.Equivalent * 1000);
        ReadDuctSheet(windows, duct);
        return "";
    } catch (const CapsNotMet&) {
        return NotSolved(duct, ReasonNotSolved(sheet, *input, true));
    } catch (const CalcFailure&) {
        return NotSolved(duct, input ? ReasonNotSolved(sheet, *input, false) : kOutOfReach);
    }
}

void EndFailedRun(const ProjectWindows& windows, const std::string& message) {
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

void SolveProject(const ProjectWindows& windows) {
    if (DuctCount < 1 || BeepIfSolved()) {
        return;
    }
    RunFailed = kFlagSet;
    const MessageAnswer answer =
        ShowMessage({"Gus will begin by saving your project.", "Solve", MessageButtons::OkCancel});
    if (answer == MessageAnswer::Cancel) {
        return;
    }
    SaveProject(windows);
    if (RunFailed != kFlagClear) {
        return;
    }
    SolveDucts(windows);
    if (RunFailed != kFlagClear) {
        return;
    }
    WriteSolutionReport();
    Solved = kFlagSet;
    ShowDuctSheet(windows, 1);
    windows.Solver.SetPressureVisible(true);
    PlayCall();
    ShowMessage({"Plenair Solution Complete", "Plenair", MessageButtons::Ok, MessageIcon::Exclamation});
}

} // namespace plenair
