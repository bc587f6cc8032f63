#pragma once

#include <string>
#include <utility>

#include <sys/stat.h>
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
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool IsOpen() const { return m_number >= 0; }
    int Number() const { return m_number; }

    // False if the system reports only now that what was written couldn't be kept.
    bool Close() { return !IsOpen() || ::close(std::exchange(m_number, -1)) == 0; }

  private:
    int m_number;
};

} // namespace plenair
