#include "platform/files/WholeFiles.h"

#include "platform/files/Descriptor.h"

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <system_error>

#include <fcntl.h>

namespace plenair {

namespace fs = std::filesystem;

namespace {

// The file that a link, or a row of links, finally names, be it there or not.
fs::path FileBehind(const std::string& path) {
    fs::path file = path;
    for (int links = 0; links < 40; ++links) {
        std::error_code isNoLink;
        const fs::path next = fs::read_symlink(file, isNoLink);
        if (isNoLink) {
            return file;
        }
        file = file.parent_path() / next;
    }
    Fail(path, ELOOP);
}

fs::path FolderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

// The state of the file that is to be replaced, or nothing if it is a new one.
std::optional<struct stat> OlderFile(const std::string& path, const fs::path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0) {
        if (errno == ENOENT && !path.empty()) {
            return std::nullopt;
        }
        Fail(path, errno);
    }
    RequireRegularFile(path, status);
    // The folder's rights alone would let a write-protected file be replaced.
    if (::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) != 0) {
        Fail(path, errno);
    }
    return status;
}

// Writes everything, up to the disk, and closes the file.
void WriteToTheDisk(Descriptor& file, const std::string& shownPath, std::string_view content) {
    while (!content.empty()) {
        const ssize_t count = ::write(file.Number(), content.data(), content.size());
        if (count > 0) {
            content.remove_prefix(static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            Fail(shownPath, count == 0 ? EIO : errno);
        }
    }
    if (::fsync(file.Number()) != 0 || !file.Close()) {
        Fail(shownPath, errno);
    }
}

// A new file beside the one that is to be written, removed unless it takes that one's name.
class PassingFile {
  public:
    PassingFile(std::string shownPath, const fs::path& folder, mode_t mode);
    ~PassingFile();
    PassingFile(const PassingFile&) = delete;
    PassingFile& operator=(const PassingFile&) = delete;

    void KeepRights(const struct stat& older);
    void Write(std::string_view content);
    void TakeName(const fs::path& file);

  private:
    void Require(bool succeeded) const {
        if (!succeeded) {
            Fail(m_shownPath, errno);
        }
    }

    const std::string m_shownPath; // failures name the file that the user knows
    fs::path m_path;
    Descriptor m_file;
};

// Gives a file that nobody else has, and its name. None of these names ends like a file of the program.
int OpenUnique(const fs::path& folder, mode_t mode, fs::path& path) {
    static std::atomic<unsigned> s_counter = 0;
    int file = -1;
    for (int tries = 0; tries < 1000; ++tries) {
        path =
            folder / (".plenair-" + std::to_string(::getpid()) + "-" + std::to_string(s_counter++) + ".tmp");
        file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (file >= 0 || errno != EEXIST) {
            break;
        }
    }
    return file;
}

PassingFile::PassingFile(std::string shownPath, const fs::path& folder, mode_t mode)
    : m_shownPath(std::move(shownPath)), m_file(OpenUnique(folder, mode, m_path)) {
    Require(m_file.IsOpen());
}

PassingFile::~PassingFile() {
    if (!m_path.empty()) {
        ::unlink(m_path.c_str());
    }
}

void PassingFile::KeepRights(const struct stat& older) {
    // Only an administrator can give a file back to its owner; anyone else becomes the owner.
    [[maybe_unused]] const int owned = ::fchown(m_file.Number(), older.st_uid, older.st_gid);
    Require(::fchmod(m_file.Number(), older.st_mode & 0777) == 0);
}

void PassingFile::Write(std::string_view content) {
    WriteToTheDisk(m_file, m_shownPath, content);
}

void PassingFile::TakeName(const fs::path& file) {
    Require(::rename(m_path.c_str(), file.c_str()) == 0);
    m_path.clear();
}

// Puts a change of names on the disk, where the file system can; by now the new file stands in any case.
void SyncFolder(const fs::path& folder) {
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.IsOpen()) {
        ::fsync(opened.Number());
    }
}

} // namespace

void WriteWholeFile(const std::string& path, std::string_view content) {
    const fs::path file = FileBehind(path);
    const std::optional<struct stat> older = OlderFile(path, file);
    PassingFile passing(path, FolderOf(file), older ? 0600 : 0666);
    if (older) {
        passing.KeepRights(*older);
    }
    passing.Write(content);
    passing.TakeName(file);
    SyncFolder(FolderOf(file));
}

void RewriteFile(const std::string& path, std::string_view content) {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK;
    Descriptor file(::open(path.c_str(), kFlags, 0666));
    if (!file.IsOpen()) {
        Fail(path, errno);
    }
    WriteToTheDisk(file, path, content);
}

} // namespace plenair
