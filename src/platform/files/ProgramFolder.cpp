#include "platform/files/ProgramFolder.h"

#include "platform/files/Folders.h"

#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace plenair {

namespace fs = std::filesystem;

namespace {

struct ProgramPlaces {
    std::string Program;
    std::string Delivery;
    std::string Documents;
};

ProgramPlaces& Places() {
    static ProgramPlaces s_places;
    return s_places;
}

std::string& StateFolderText() {
    static std::string s_folder;
    return s_folder;
}

bool IsThere(const fs::path& path) {
    std::error_code unknown;
    return fs::exists(path, unknown);
}

bool MayWriteInto(const std::string& folder) {
    return ::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

} // namespace

void ChooseProgramFolder(const std::string& executables, const std::string& users,
                         const std::string& documents) {
    if (MayWriteInto(executables)) {
        SetProgramFolder(executables);
    } else {
        Places() = {users, executables, documents};
    }
}

void SetProgramFolder(const std::string& folder) {
    Places() = {folder, folder, folder};
}

const std::string& ProgramFolder() {
    return Places().Program;
}

const std::string& DeliveryFolder() {
    return Places().Delivery;
}

const std::string& FirstFolderForFiles() {
    return Places().Documents;
}

std::string DeliveredPath(const std::string& name) {
    const std::string own = ProgramFolder() + "/" + name;
    return IsThere(own) ? own : DeliveryFolder() + "/" + name;
}

void SetStateFolder(const std::string& folder) {
    StateFolderText() = folder;
}

const std::string& StateFolder() {
    return StateFolderText();
}

void MakeProgramFolder() {
    MakePrivateFolder(ProgramFolder());
}

bool ProgramFolderTakesFiles() {
    std::error_code unknown;
    fs::path folder = ProgramFolder();
    // A link that leads nowhere is there: no folder can be made in its place.
    while (!folder.empty() && !fs::exists(fs::symlink_status(folder, unknown)) &&
           folder != folder.parent_path()) {
        folder = folder.parent_path();
    }
    return fs::is_directory(folder, unknown) && MayWriteInto(folder.string());
}

} // namespace plenair
