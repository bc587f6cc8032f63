#include "platform/files/Descriptor.h"

#include "platform/files/FileFailure.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <system_error>

#include <fcntl.h>

namespace plenair {

namespace {

constexpr std::size_t kPiece = 262'144; // bytes

void WritePiece(const Descriptor& file, const std::string& path, std::string_view piece) {
    while (!piece.empty()) {
        const ssize_t count = ::write(file.Number(), piece.data(), piece.size());
        if (count > 0) {
            piece.remove_prefix(static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            Fail(path, count == 0 ? EIO : errno);
        }
    }
}

} // namespace

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

void WriteAll(const Descriptor& file, const std::string& path, std::string_view content,
              const FileProgress& progress) {
    const auto tell = [&](std::size_t done) {
        if (progress) {
            progress(done, content.size());
        }
    };
    tell(0);
    for (std::size_t done = 0; done < content.size();) {
        const std::size_t piece = std::min(content.size() - done, kPiece);
        WritePiece(file, path, content.substr(done, piece));
        done += piece;
        if (piece == kPiece) {
            // Waits for the piece before and sends this one; no more than a hint, which may fail.
            ::sync_file_range(file.Number(), 0, static_cast<off64_t>(done - piece),
                              SYNC_FILE_RANGE_WAIT_BEFORE);
            ::sync_file_range(file.Number(), 0, static_cast<off64_t>(done), SYNC_FILE_RANGE_WRITE);
        }
        tell(done);
    }
}

} // namespace plenair
