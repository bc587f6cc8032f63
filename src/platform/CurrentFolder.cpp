#include "platform/CurrentFolder.h"

#include <filesystem>
#include <system_error>

namespace plenair {

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

} // namespace plenair
