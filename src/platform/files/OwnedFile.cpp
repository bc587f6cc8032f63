#include "platform/files/OwnedFile.h"

#include "platform/files/Folders.h"
#include "platform/files/ReplacementFile.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plenair {

namespace fs = std::filesystem;

namespace {

// The number of a process is used again one day, so that it alone names no file.
std::string NewPath(const std::string& folder, const std::string& ending) {
    std::uint64_t number = 0;
    [[maybe_unused]] const int random = ::getentropy(&number, sizeof number);
    return folder + "/" + std::to_string(::getpid()) + "-" + std::to_string(number) + ending;
}

bool IsFileAt(const struct stat& file, const fs::path& path) {
    struct stat named {};
    return ::stat(path.c_str(), &named) == 0 && named.st_dev == file.st_dev && named.st_ino == file.st_ino;
}

// The file, locked, if its process is gone. The owner locks each new file before that takes the name, so what
// has lost the name by the time it is locked belongs to somebody who lives.
std::optional<LeftFile> TakeIfLeft(const fs::path& path) {
    Descriptor file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file.IsOpen()) {
        return errno == EACCES ? std::optional<LeftFile>(std::in_place, path.string(), std::move(file))
                               : std::nullopt;
    }
    struct stat status {};
    const bool isLeft = ::fstat(file.Number(), &status) == 0 && S_ISREG(status.st_mode) &&
                        ::flock(file.Number(), LOCK_EX | LOCK_NB) == 0 && IsFileAt(status, path);
    return isLeft ? std::optional<LeftFile>(std::in_place, path.string(), std::move(file)) : std::nullopt;
}

fs::file_time_type TimeOf(const LeftFile& file) {
    std::error_code unknown;
    return fs::last_write_time(file.Path(), unknown);
}

} // namespace

OwnedFile::OwnedFile(const std::string& folder, const std::string& ending)
    : m_path(NewPath(folder, ending)) {}

OwnedFile::~OwnedFile() = default;

void OwnedFile::Write(std::string_view content) {
    MakePrivateFolder(fs::path(m_path).parent_path().string());
    auto next = std::make_unique<ReplacementFile>(m_path);
    next->Write(content);
    next->TakeName();
    m_written = std::move(next);
}

void OwnedFile::Remove() {
    if (m_written != nullptr) {
        ::unlink(m_path.c_str());
        m_written.reset();
    }
}

std::string LeftFile::Read(std::size_t most) const {
    if (!m_file.IsOpen()) {
        Fail(m_path, EACCES);
    }
    std::string content(most + 1, '\0');
    std::size_t size = 0;
    for (std::size_t count = 1; count != 0 && size <= most; size += count) {
        count = ReadPiece(m_file, m_path, content.data() + size, content.size() - size);
    }
    if (size > most) {
        Fail(m_path, EFBIG);
    }
    content.resize(size);
    return content;
}

void LeftFile::Remove() {
    ::unlink(m_path.c_str());
    m_file.Close();
}

std::vector<LeftFile> FilesLeftBehind(const std::string& folder, const std::string& ending) {
    std::vector<LeftFile> left;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        if (entry->path().native().ends_with(ending)) {
            if (auto file = TakeIfLeft(entry->path())) {
                left.push_back(std::move(*file));
            }
        }
    }
    std::sort(left.begin(), left.end(),
              [](const LeftFile& a, const LeftFile& b) { return TimeOf(a) > TimeOf(b); });
    return left;
}

void RequireWritableFolder(const std::string& folder) {
    MakePrivateFolder(folder);
    const ReplacementFile trial(folder + "/trial");
}

} // namespace plenair
