#include "platform/CommonDialog.h"

#include "platform/Folders.h"

#include <filesystem>
#include <utility>

namespace plenair {

namespace {

CommonDialogProvider& Provider() {
    static CommonDialogProvider provider;
    return provider;
}

bool Show(DialogKind kind, CommonDialog& dialog) {
    // A copy, since the provider may put another in its place while its dialog is open.
    const CommonDialogProvider provider = Provider();
    if (provider && provider(kind, dialog)) {
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

void SetCommonDialogProvider(CommonDialogProvider provider) {
    Provider() = std::move(provider);
}

} // namespace plenair
