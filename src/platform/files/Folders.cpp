#include "platform/files/Folders.h"

#include "platform/files/Descriptor.h"
#include "platform/files/FileFailure.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <sys/stat.h>

namespace plenair {

namespace fs = std::filesystem;

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

void MakePrivateFolder(const std::string& folder) {
    std::error_code unknown;
    if (folder.empty() || fs::exists(folder, unknown)) {
        return;
    }
    const std::string above = fs::path(folder).parent_path().string();
    if (above != folder) {
        MakePrivateFolder(above);
    }
    if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) {
        Fail(folder, errno);
    }
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
    if (error && error != std::errc::no_such_file_or_directory) {
        throw FileFailure(folder + ": " + error.message());
    }
    return std::nullopt;
}

} // namespace plenair
