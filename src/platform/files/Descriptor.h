#pragma once

#include "platform/files/FileProgress.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>

#include <unistd.h>

// What reading and writing share; for the files of this folder alone.
namespace plenair {

// Throw a FileFailure that names the file and the reason.
[[noreturn]] void Fail(const std::string& path, const std::string& reason);
[[noreturn]] void Fail(const std::string& path, int error);

// Throws unless `status` is that of a regular file.
void RequireRegularFile(const std::string& path, const struct stat& status);

// An open file of the system, closed at the end of its scope.
class Descriptor {
  public:
    explicit Descriptor(int number = -1) : m_number(number) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }

    bool IsOpen() const { return m_number >= 0; }
    int Number() const { return m_number; }

    // False if the system reports only now that what was written couldn't be kept.
    bool Close() { return !IsOpen() || ::close(std::exchange(m_number, -1)) == 0; }

  private:
    int m_number;
};

// Reads what comes next, up to `size` bytes, and gives how many there were: none at the end. Throws a
// FileFailure that names `path`.
std::size_t ReadPiece(const Descriptor& file, const std::string& path, char* bytes, std::size_t size);

// Writes all of `content`. Where the first piece of a large one shows that the disk is slow, each is waited
// for: else that would only be felt at the end, all at once. Throws a FileFailure that names `path`.
void WriteAll(const Descriptor& file, const std::string& path, std::string_view content,
              const FileProgress& progress = {});

} // namespace plenair
