#include "platform/qt/PrintDialog.h"

#include "platform/desktop/CommonDialog.h"
#include "platform/desktop/MessageBox.h"
#include "platform/files/FileFailure.h"
#include "platform/files/ReplacementFile.h"
#include "platform/qt/FocusEvents.h"
#include "platform/qt/QtText.h"

#include <QAbstractPrintDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPrinter>
#include <QWidget>

#include <string>

namespace plenair {

PrintDialog::PrintDialog(QPrinter* printer, int flags) : QPrintDialog(printer, WindowInUse()) {
    setOption(QAbstractPrintDialog::PrintSelection, (flags & kPrinterNoSelection) == 0);
    setOption(QAbstractPrintDialog::PrintPageRange, (flags & kPrinterNoPageNumbers) == 0);
    // A dialog of Qt's own offers ranges whatever its options say.
    auto* const ranges = findChild<QWidget*>("gbPrintRange");
    if (ranges != nullptr && !testOption(QAbstractPrintDialog::PrintPageRange)) {
        ranges->setEnabled(false);
    }
}

void PrintDialog::accept() {
    auto* const file = findChild<QLineEdit*>("filename");
    if (file != nullptr && file->isEnabled()) { // not on a real printer
        try {
            const ReplacementFile trial(FromQt(file->text()));
            if (!QFileInfo::exists(file->text())) {
                file->setText(ToQt(trial.Target().string()));
            }
        } catch (const FileFailure& failure) {
            ShowMessage({failure.what(), "Print", MessageButtons::Ok, MessageIcon::Exclamation});
            return;
        }
    }
    QPrintDialog::accept();
}

} // namespace plenair
