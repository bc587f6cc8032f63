#pragma once

#include "platform/files/Descriptor.h"
#include "platform/files/FileFailure.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace plenair {

class ReplacementFile;

// A file that belongs to this process for as long as it lives: other processes see by a lock that it isn't
// theirs. The lock goes with the process, however that ends; the file stays.
class OwnedFile {
  public:
    // A file in `folder` whose name ends in `ending` and is nobody else's. It isn't there before the first
    // Write.
    OwnedFile(const std::string& folder, const std::string& ending);
    ~OwnedFile();
    OwnedFile(const OwnedFile&) = delete;
    OwnedFile& operator=(const OwnedFile&) = delete;

    // Replaces the file as a whole or not at all. Throws FileFailure; then the older content stands.
    void Write(std::string_view content);

    // Does nothing where there is no file.
    void Remove();

  private:
    const std::string m_path;
    std::unique_ptr<ReplacementFile> m_written; // holds the lock
};

// A file whose process is gone. As long as this lives, no other process takes it for left behind.
class LeftFile {
  public:
    LeftFile(std::string path, Descriptor file) : m_path(std::move(path)), m_file(std::move(file)) {}

    const std::string& Path() const { return m_path; }

    // All that it holds, up to `most` bytes. Throws FileFailure where there are more, or it can't be read.
    std::string Read(std::size_t most) const;

    void Remove();

  private:
    std::string m_path;
    Descriptor m_file; // not open where the user may not read it
};

// The files in `folder` whose names end so and whose processes are gone, the newest first.
std::vector<LeftFile> FilesLeftBehind(const std::string& folder, const std::string& ending);

// Throws FileFailure where `folder`, made if it isn't there, takes no files of the user.
void RequireWritableFolder(const std::string& folder);

} // namespace plenair
