#include "platform/desktop/CommonDialog.h"

#include "platform/desktop/Desktop.h"
#include "platform/files/Folders.h"

#include <filesystem>
#include <functional>
#include <system_error>

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

// What follows the last point counts if it begins with a letter: plant.d has an extension, Level 1.5 has
// none.
bool HasExtension(const std::filesystem::path& file) {
    const std::string extension = file.extension().string();
    const auto first = extension.size() > 1 ? static_cast<unsigned char>(extension[1]) : 0U;
    return (first >= 'A' && first <= 'Z') || (first >= 'a' && first <= 'z') || first > 0x7F;
}

} // namespace

std::string WithDefaultExt(const CommonDialog& dialog) {
    if (dialog.DefaultExt.empty() || HasExtension(dialog.FileName)) {
        return dialog.FileName;
    }
    return dialog.FileName + (dialog.FileName.ends_with('.') ? "" : ".") + dialog.DefaultExt;
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
