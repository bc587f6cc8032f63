#include "platform/files/Folders.h"

#include "platform/files/FileFailure.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace plenair {

namespace fs = std::filesystem;

namespace {

std::string& ProgramFolderText() {
    static std::string folder;
    return folder;
}

} // namespace

std::string CurrentFolder() {
    std::error_code gone;
    return std::filesystem::current_path(gone).string();
}

void EnterFolder(const std::string& folder) {
    std::error_code refused;
    std::filesystem::current_path(folder, refused);
}

std::string InCurrentFolder(const std::string& name) {
    return (std::filesystem::path(CurrentFolder()) / name).string();
}

void SetProgramFolder(std::string folder) {
    ProgramFolderText() = std::move(folder);
}

const std::string& ProgramFolder() {
    return ProgramFolderText();
}

std::optional<std::string> FirstFileWithExtension(const std::string& folder, std::string_view extension) {
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        std::error_code unknown; // a link that leads nowhere is no file
        if (name.ends_with(extension) && entry->is_regular_file(unknown)) {
            return name;
        }
    }
    if (error) {
        throw FileFailure(folder + ": " + error.message());
    }
    return std::nullopt;
}

} // namespace plenair
