#include "project/Printout.h"

#include "flow/CalcFailure.h"
#include "platform/desktop/MessageBox.h"
#include "platform/desktop/Progress.h"
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
#include <optional>
#include <string>

namespace plenair {

namespace {

constexpr int kPaperNetworkLineWidth = 3;
constexpr int kDuctsPerPage = 4;
constexpr int kQuickly = 800; // ducts that are printed before anyone would wait: 200 pages
const std::string kFontName = "Arial";

struct PrintCancelled {};

// How far a printout is, with a dialog where it is a long one.
struct PrintProgress {
    std::optional<Progress> Shown;
    int Done = 0;
};

void StartProgress(PrintProgress& progress, int ducts) {
    if (ducts > kQuickly) {
        progress.Shown.emplace(ProgressRequest{"Printing...", "Print Project", ducts});
    }
}

// Throws PrintCancelled once the user wants no more.
void NoteDuct(PrintProgress& progress) {
    ++progress.Done;
    if (progress.Shown && !progress.Shown->GoOn(progress.Done)) {
        throw PrintCancelled();
    }
}

// Asks for the printer and prints as many documents as the user wants.
void PrintCopies(CommonDialog& dialog, Printer& printer,
                 const std::function<void(PrintProgress& progress)>& printCopy, int ductsPerCopy) {
    try {
        dialog.Flags = kPrinterNoSelection | kPrinterNoPageNumbers;
        dialog.PrinterDefault = true;
        dialog.ShowPrinter();
    } catch (const DialogCancelled&) {
        return;
    }
    try {
        PrintProgress progress;
        StartProgress(progress, dialog.Copies * ductsPerCopy);
        printer.SetColourMode(ColourMode::Colour);
        for (int copy = 1; copy <= dialog.Copies; ++copy) {
            printCopy(progress);
            printer.EndDoc();
        }
    } catch (const PrintCancelled&) {
        printer.KillDoc();
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

void PrintNetwork(Printer& printer, PrintProgress& progress) {
    SetUpPicturePage(printer);
    printer.SetLineStyle(LineStyle::Solid);
    printer.SetLineWidth(kPaperNetworkLineWidth);
    for (int number = 1; number <= DuctCount; ++number) {
        DrawDuct(printer, static_cast<std::int16_t>(number));
        NoteDuct(progress);
    }
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

void PrintDuctData(Printer& printer, PrintProgress& progress) {
    printer.NewPage();
    printer.SetOrientation(PageOrientation::Portrait);
    for (int number = 1; number <= DuctCount; ++number) {
        PrintDuct(printer, static_cast<std::int16_t>(number));
        if (number % kDuctsPerPage == 0) {
            printer.NewPage();
        }
        NoteDuct(progress);
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
    if (DuctCount <= 0) {
        ShowMessage({"There is nothing to print, since this project has no ducts.", "Print Project",
                     MessageButtons::Ok, MessageIcon::Exclamation});
        return;
    }
    const bool withData = ShowMessage({"Do you wish to include duct data with the printout?", "Print Project",
                                       MessageButtons::YesNo}) == MessageAnswer::Yes;
    const auto printCopy = [&](PrintProgress& progress) {
        PrintNetwork(printer, progress);
        if (withData) {
            PrintDuctData(printer, progress);
        }
    };
    PrintCopies(dialog, printer, printCopy, withData ? 2 * DuctCount : DuctCount);
}

void PrintPathPlot(CommonDialog& dialog, Printer& printer) {
    const auto printCopy = [&](PrintProgress&) {
        SetUpPicturePage(printer);
        DrawPlot(printer, kPaperPlot);
    };
    PrintCopies(dialog, printer, printCopy, 0);
}

} // namespace plenair
