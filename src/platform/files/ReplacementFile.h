#pragma once

#include "platform/files/Descriptor.h"
#include "platform/files/FileFailure.h"
#include "platform/files/FileProgress.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace plenair {

// A new file beside the file `path`, whose name it takes only when it is complete; until then, and after any
// failure, an older file of that name is as it was. It has a name that nobody can have foreseen and is opened
// exclusively. Permissions and group of an older file are kept, a link goes on pointing to its file, and a
// new file has the rights that the user's mask gives. Failures name `path`.
class ReplacementFile {
  public:
    // Throws FileFailure also where the user may not write the older file, or where that is anything but a
    // regular file. Files that a killed program left behind in the folder are removed.
    explicit ReplacementFile(const std::string& path);

    // The file that it will be: the one behind a link.
    const std::filesystem::path& Target() const { return m_target; }

    // Throws FileFailure.
    void Write(std::string_view content, const FileProgress& progress = {});

    // Puts everything on the disk, then takes the name. Throws FileFailure.
    void TakeName();

  private:
    // Removes the new file unless it has taken the name, also where the constructor fails.
    struct Passing {
        Passing() = default;
        ~Passing();
        Passing(const Passing&) = delete;
        Passing& operator=(const Passing&) = delete;

        std::filesystem::path Place; // empty where there is nothing to remove
    };

    void Require(bool succeeded) const;
    void OpenUnique(mode_t mode);
    void KeepRights(const struct stat& older);

    const std::string m_path; // as the user knows it
    const std::filesystem::path m_target;
    Passing m_passing;
    Descriptor m_file;
};

} // namespace plenair
