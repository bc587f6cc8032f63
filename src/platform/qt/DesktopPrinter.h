#pragma once

#include "platform/desktop/CommonDialog.h"
#include "platform/drawing/Printer.h"

#include <memory>
#include <string>

namespace plenair {

// The desktop's print system behind Printer: the printer and the settings that the print dialog chose last.
// Printed to a PDF file, a document takes the file's name only when it is complete; a second document doesn't
// overwrite the first but takes a number before the extension.
std::unique_ptr<Printer> MakeDesktopPrinter();

// Makes the printer print to a PDF file, as the dialog does when the user chooses that.
void PrintToFile(const std::string& path);

// The print dialog. Gives whether it was accepted, with the number of copies in `dialog`.
bool ShowPrintDialog(CommonDialog& dialog);

} // namespace plenair
