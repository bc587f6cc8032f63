#pragma once

#include "platform/CommonDialog.h"
#include "platform/Printer.h"

#include <memory>

namespace plenair {

// The desktop's print system behind Printer: the printer and the settings that the print dialog chose last.
// Printed to a PDF file, a document takes the file's name only when it is complete; a second document doesn't
// overwrite the first but takes a number before the extension.
std::unique_ptr<Printer> MakeDesktopPrinter();

// The print dialog. Gives whether it was accepted, with the number of copies in `dialog`.
bool ShowPrintDialog(CommonDialog& dialog);

} // namespace plenair
