#include "platform/desktop/CommonDialog.h"

#include "platform/desktop/Desktop.h"
#include "platform/files/Folders.h"

#include <filesystem>

namespace plenair {

namespace {

bool Show(DialogKind kind, CommonDialog& dialog) {
    // A copy, since another may be put in its place while the dialog is open.
    const auto show = Desktop().ShowDialog;
    if (show && show(kind, dialog)) {
        return true;
    }
    dialog.FileName.clear();
    if (dialog.CancelError) {
        throw DialogCancelled();
    }
    return false;
}

void TakeFile(CommonDialog& dialog, std::filesystem::path file) {
    dialog.FileName = file.string();
    dialog.FileTitle = file.filename().string();
    if (file.has_parent_path()) {
        EnterFolder(file.parent_path().string());
    }
}

} // namespace

std::string WithDefaultExt(const CommonDialog& dialog) {
    const bool isMissing =
        !std::filesystem::path(dialog.FileName).has_extension() && !dialog.DefaultExt.empty();
    return isMissing ? dialog.FileName + "." + dialog.DefaultExt : dialog.FileName;
}

void CommonDialog::ShowSave() {
    if (Show(DialogKind::Save, *this)) {
        TakeFile(*this, WithDefaultExt(*this));
    }
}

void CommonDialog::ShowOpen() {
    if (Show(DialogKind::Open, *this)) {
        std::error_code unknown;
        const bool isThere = std::filesystem::exists(FileName, unknown);
        TakeFile(*this, isThere ? FileName : WithDefaultExt(*this));
    }
}

void CommonDialog::ShowPrinter() {
    Show(DialogKind::Printer, *this);
}

} // namespace plenair
