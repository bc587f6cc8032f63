#include "platform/files/WholeFiles.h"

#include "platform/files/Descriptor.h"
#include "platform/files/ReplacementFile.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plenair {

void WriteWholeFile(const std::string& path, std::string_view content, const FileProgress& progress) {
    ReplacementFile file(path);
    file.Write(content, progress);
    file.TakeName();
}

void RewriteFile(const std::string& path, std::string_view content, const FileProgress& progress) {
    // Without O_NONBLOCK the opening of a pipe that nobody reads would never return.
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0666));
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0) {
        Fail(path, errno);
    }
    RequireRegularFile(path, status);
    WriteAll(file, path, content, progress);
    if (::fsync(file.Number()) != 0 || !file.Close()) {
        Fail(path, errno);
    }
}

} // namespace plenair
