#pragma once

#include <stdexcept>
#include <string>

// The file and print dialogs, as a record of properties that a caller sets before and reads after. The
// windows' side puts the real dialogs behind it; a test puts a script there.
namespace plenair {

// The user left a dialog by Cancel, and CancelError was on.
struct DialogCancelled : std::runtime_error {
    DialogCancelled() : std::runtime_error("cancelled") {}
};

// Values of CommonDialog::Flags. Those of the print dialog have numbers of their own.
constexpr int kOverwritePrompt = 2;      // ask before a file is replaced
constexpr int kPathMustExist = 2048;     // refuse a folder that doesn't exist
constexpr int kPrinterNoSelection = 4;   // offer no printing of a selection
constexpr int kPrinterNoPageNumbers = 8; // offer no range of pages

struct CommonDialog {
    int Flags = 0;
    bool CancelError = false;

    // File dialogs. Paths are UTF-8.
    std::string DefaultExt; // without a point; added to a name without an extension. One begins with a letter
    std::string InitDir;    // where the dialog opens
    std::string FileName;   // offered at first; afterwards the full path
    std::string Filter;     // names and patterns in turn, divided by '|'
    std::string FileTitle;  // afterwards: the name without its folder

    // Print dialog.
    bool PrinterDefault = false; // the printer chosen becomes the one that Printer prints on
    int Copies = 1;              // afterwards: how many the user wants

    // Show a dialog and wait. After Cancel they throw DialogCancelled if CancelError is on; otherwise
    // FileName is empty and the rest as it was. After an accepted file dialog the current folder of the
    // process is the folder of the file, where that can be entered.
    void ShowSave();
    void ShowOpen();
    void ShowPrinter();
};

// FileName, with DefaultExt where it has no extension.
std::string WithDefaultExt(const CommonDialog& dialog);

enum class DialogKind { Save, Open, Printer };

} // namespace plenair
