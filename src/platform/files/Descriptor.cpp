#include "platform/files/Descriptor.h"

#include "platform/files/FileFailure.h"

#include <cerrno>
#include <system_error>

namespace plenair {

void Fail(const std::string& path, const std::string& reason) {
    throw FileFailure(path + ": " + reason);
}

void Fail(const std::string& path, int error) {
    Fail(path, std::generic_category().message(error));
}

void RequireRegularFile(const std::string& path, const struct stat& status) {
    if (S_ISDIR(status.st_mode)) {
        Fail(path, EISDIR);
    }
    if (!S_ISREG(status.st_mode)) {
        Fail(path, "Not a regular file");
    }
}

void WriteAll(const Descriptor& file, const std::string& path, std::string_view content) {
    while (!content.empty()) {
        const ssize_t count = ::write(file.Number(), content.data(), content.size());
        if (count > 0) {
            content.remove_prefix(static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            Fail(path, count == 0 ? EIO : errno);
        }
    }
}

} // namespace plenair
