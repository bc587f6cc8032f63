#pragma once

#include <QPrintDialog>

class QPrinter;

namespace plenair {

// The toolkit's print dialog. The toolkit opens the file that is to be printed to, to see whether it can;
// that would wait for ever on a pipe, and remove a link whose file isn't there yet. So such a file is looked
// at before, as a save does, and one that can't be written is told of.
class PrintDialog : public QPrintDialog {
    Q_OBJECT

  public:
    // `flags`: of kPrinterNoSelection and kPrinterNoPageNumbers.
    PrintDialog(QPrinter* printer, int flags);

  private:
    // Whether the file can be written; tells the user if it can't. True for a real printer.
    bool CanPrintTo();
};

} // namespace plenair
