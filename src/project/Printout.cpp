#include "project/Printout.h"

#include "flow/CalcFailure.h"
#include "platform/desktop/MessageBox.h"
#include "platform/drawing/DrawingSurface.h"
#include "project/PlotDrawing.h"
#include "project/ProjectDrawing.h"
#include "project/ProjectGrid.h"
#include "project/model/DuctRecord.h"
#include "project/model/PlotGeometry.h"
#include "project/model/ProjectModel.h"
#include "project/model/SheetBoxes.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace plenair {

namespace {

constexpr int kNetworkLineWidth = 3;
constexpr int kDuctsPerPage = 4;
const std::string kFontName = "Arial";

// Asks for the printer and prints as many documents as the user wants.
void PrintCopies(CommonDialog& dialog, Printer& printer, const std::function<void()>& printCopy) {
    try {
        dialog.Flags = kPrinterNoSelection | kPrinterNoPageNumbers;
        dialog.PrinterDefault = true;
        dialog.ShowPrinter();
    } catch (const DialogCancelled&) {
        return;
    }
    try {
        printer.SetColourMode(ColourMode::Colour);
        for (int copy = 1; copy <= dialog.Copies; ++copy) {
            printCopy();
            printer.EndDoc();
        }
    } catch (const PrinterFailure&) {
        printer.KillDoc();
    } catch (const CalcFailure&) { // of a plot without a scale
        printer.KillDoc();
    }
}

void SetUpPicturePage(Printer& printer) {
    printer.SetOrientation(PageOrientation::Landscape);
    printer.SetFont(kFontName, 9, false);
}

void PrintNetwork(Printer& printer) {
    SetUpPicturePage(printer);
    printer.SetLineStyle(LineStyle::Solid);
    printer.SetLineWidth(kNetworkLineWidth);
    DrawDucts(printer);
    PrintLabels(printer);
}

void PrintDuct(Printer& printer, std::int16_t number) {
    const DuctRecord& duct = Duct(number);
    printer.SetFont(kFontName, 12, true);
    printer.Print("---");
    printer.Print("Duct Number " + DuctLabel(number));
    printer.Print("---");
    printer.SetFont(kFontName, 9, false);
    printer.Print("");
    printer.Print(TypeOf(duct.Colour) == ElementType::Rigid ? "Duct Type: Rigid" : "Duct Type: Flexible");
    for (const SheetRow& row : kSheetRows) {
        printer.Print(std::string(row.PrintedHeading) + TextOf(duct, row.Box));
    }
    printer.Print("");
}

void PrintDuctData(Printer& printer) {
    printer.NewPage();
    printer.SetOrientation(PageOrientation::Portrait);
    for (int number = 1; number <= DuctCount; ++number) {
        PrintDuct(printer, static_cast<std::int16_t>(number));
        if (number % kDuctsPerPage == 0) {
            printer.NewPage();
        }
    }
}

} // namespace

void PrintShown(const ProjectWindows& windows, Printer& printer) {
    CommonDialog& dialog = windows.Solver.Dialog();
    if (PlotShowing != kFlagClear) {
        PrintPathPlot(dialog, printer);
        return;
    }
    RedrawProject(windows);
    PrintProject(dialog, printer);
}

void PrintProject(CommonDialog& dialog, Printer& printer) {
    const bool withData = ShowMessage({"Do you wish to include duct data with the printout?", "Print Project",
                                       MessageButtons::YesNo}) == MessageAnswer::Yes;
    PrintCopies(dialog, printer, [&] {
        PrintNetwork(printer);
        if (withData) {
            PrintDuctData(printer);
        }
    });
}

void PrintPathPlot(CommonDialog& dialog, Printer& printer) {
    PrintCopies(dialog, printer, [&] {
        SetUpPicturePage(printer);
        DrawPlot(printer, kPaperPlot);
    });
}

} // namespace plenair
