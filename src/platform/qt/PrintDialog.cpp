#include "platform/qt/PrintDialog.h"

#include "platform/desktop/CommonDialog.h"
#include "platform/desktop/MessageBox.h"
#include "platform/files/FileFailure.h"
#include "platform/files/ReplacementFile.h"
#include "platform/qt/QtText.h"
#include "platform/qt/WindowInUse.h"

#include <QAbstractPrintDialog>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QMetaObject>
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
    // The toolkit's own answer to the button for printing: it looks at the file, and then accepts.
    auto* const buttons = findChild<QDialogButtonBox*>();
    if (buttons != nullptr && disconnect(buttons, SIGNAL(accepted()), this, SLOT(_q_checkFields()))) {
        connect(buttons, &QDialogButtonBox::accepted, this, [this] {
            if (CanPrintTo()) {
                QMetaObject::invokeMethod(this, "_q_checkFields");
            }
        });
    }
}

bool PrintDialog::CanPrintTo() {
    auto* const file = findChild<QLineEdit*>("filename");
    if (file == nullptr || !file->isEnabled()) {
        return true;
    }
    try {
        const ReplacementFile trial(FromQt(file->text()));
        if (!QFileInfo::exists(file->text())) {
            file->setText(ToQt(trial.Target().string()));
        }
        return true;
    } catch (const FileFailure& failure) {
        ShowMessage({failure.what(), "Print", MessageButtons::Ok, MessageIcon::Exclamation});
        return false;
    }
}

} // namespace plenair
