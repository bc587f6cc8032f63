#pragma once

#include "platform/desktop/CommonDialog.h"
#include "platform/drawing/Printer.h"
#include "project/ProjectWindows.h"

// The project on paper. Cancel and every error end a printout at once, silently, and leave nothing of the
// document that was being printed.
namespace plenair {

// cmdPrintGus_Click: prints what stands on the grid.
void PrintShown(const ProjectWindows& windows, Printer& printer);

// Asks whether to include the data of the ducts, and prints the network on a landscape page, and the data,
// four ducts to a portrait page. Each copy is a document of its own.
void PrintProject(CommonDialog& dialog, Printer& printer);

// Prints the plot of PathElements on a landscape page.
void PrintPathPlot(CommonDialog& dialog, Printer& printer);

} // namespace plenair
