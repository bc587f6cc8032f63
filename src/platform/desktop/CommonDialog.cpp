#include "platform/desktop/CommonDialog.h"

#include <filesystem>

namespace plenair {

namespace {

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

} // namespace plenair
