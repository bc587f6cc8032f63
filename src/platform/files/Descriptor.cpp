#include "platform/files/Descriptor.h"

#include "platform/files/FileFailure.h"

#include <cerrno>
#include <chrono>
#include <cstddef>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>

namespace plenair {

namespace {

constexpr std::size_t kPiece = 131'072; // bytes
constexpr double kLong = 0.25;          // s, of a whole file

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

// Gives how long it took, in s. No more than a hint to the system, which may do nothing.
double WaitForTheDisk(const Descriptor& file, std::size_t from, std::size_t size) {
    const auto start = std::chrono::steady_clock::now();
    ::sync_file_range(file.Number(), static_cast<off64_t>(from), static_cast<off64_t>(size),
                      SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
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

std::size_t ReadPiece(const Descriptor& file, const std::string& path, char* bytes, std::size_t size) {
    ssize_t count = -1;
    do {
        count = ::read(file.Number(), bytes, size);
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        Fail(path, errno);
    }
    return static_cast<std::size_t>(count);
}

void WriteAll(const Descriptor& file, const std::string& path, std::string_view content,
              const FileProgress& progress) {
    const auto tell = [&](std::size_t done) {
        if (progress) {
            progress(done, content.size());
        }
    };
    tell(0);
    bool isSlow = content.size() > kPiece; // until the first piece shows it
    for (std::size_t from = 0; from < content.size(); from += kPiece) {
        const std::string_view piece = content.substr(from, kPiece);
        WritePiece(file, path, piece);
        if (isSlow) {
            isSlow = WaitForTheDisk(file, from, piece.size()) * static_cast<double>(content.size()) >
                     kLong * static_cast<double>(piece.size());
        }
        tell(from + piece.size());
    }
}

} // namespace plenair
