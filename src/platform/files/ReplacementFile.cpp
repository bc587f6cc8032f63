#include "platform/files/ReplacementFile.h"

#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace plenair {

namespace fs = std::filesystem;

namespace {

// None of these names ends like a file of the program.
constexpr std::string_view kNameStart = ".plenair-";
constexpr std::string_view kNameEnd = ".tmp";
constexpr char kAccessList[] = "system.posix_acl_access";

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

// A name that no other program can foresee and take first: the process and a random number.
fs::path NewPlace(const fs::path& folder) {
    std::uint64_t number = 0;
    [[maybe_unused]] const int random = ::getentropy(&number, sizeof number);
    return folder / std::string(kNameStart)
                        .append(std::to_string(::getpid()))
                        .append("-")
                        .append(std::to_string(number))
                        .append(kNameEnd);
}

// The process that a file of such a name is of; 0 for any other name.
pid_t ProcessOf(std::string_view name) {
    if (!name.starts_with(kNameStart) || !name.ends_with(kNameEnd)) {
        return 0;
    }
    name.remove_prefix(kNameStart.size());
    pid_t process = 0;
    const auto parsed = std::from_chars(name.data(), name.data() + name.size(), process);
    return parsed.ec == std::errc() && *parsed.ptr == '-' && process > 0 ? process : 0;
}

// True for this process too: then the lock decides.
bool IsGone(pid_t process) {
    return process == ::getpid() || (::kill(process, 0) != 0 && errno == ESRCH);
}

// Whoever writes such a file holds a lock on it. A process of that number may be another one by now, or live
// where its number means nothing here, as in a container: only a file whose process is gone and that nobody
// holds is left over.
void RemoveLeftOver(const fs::path& place) {
    const Descriptor file(::open(place.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (file.IsOpen() && ::fstat(file.Number(), &status) == 0 && S_ISREG(status.st_mode) &&
        ::flock(file.Number(), LOCK_EX | LOCK_NB) == 0) {
        ::unlink(place.c_str());
    }
}

void RemoveLeftOvers(const fs::path& folder) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        const pid_t process = ProcessOf(entry->path().filename().native());
        if (process != 0 && IsGone(process)) {
            RemoveLeftOver(entry->path());
        }
    }
}

// Whether the file is there still, and locked against RemoveLeftOver. Where the file system knows no locks,
// the process alone tells whose it is.
bool Hold(const Descriptor& file) {
    struct stat status {};
    const bool taken = ::flock(file.Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    return !taken && (::fstat(file.Number(), &status) != 0 || status.st_nlink > 0);
}

// Puts a change of names on the disk, where the file system can; by now the new file stands in any case.
void SyncFolder(const fs::path& folder) {
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.IsOpen()) {
        ::fsync(opened.Number());
    }
}

} // namespace

ReplacementFile::ReplacementFile(const std::string& path) : m_path(path), m_target(FileBehind(path)) {
    const std::optional<struct stat> older = OlderFile(path, m_target);
    RemoveLeftOvers(FolderOf(m_target));
    OpenUnique(older ? 0600 : 0666);
    if (older) {
        KeepRights(*older);
    }
}

ReplacementFile::Passing::~Passing() {
    if (!Place.empty()) {
        ::unlink(Place.c_str());
    }
}

void ReplacementFile::Require(bool succeeded) const {
    if (!succeeded) {
        Fail(m_path, errno);
    }
}

void ReplacementFile::OpenUnique(mode_t mode) {
    for (int tries = 0; tries < 100; ++tries) {
        const fs::path place = NewPlace(FolderOf(m_target));
        m_file = Descriptor(::open(place.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (m_file.IsOpen() && Hold(m_file)) {
            m_passing.Place = place;
            return;
        }
        Require(m_file.IsOpen() || errno == EEXIST);
    }
    Fail(m_path, EEXIST);
}

void ReplacementFile::KeepRights(const struct stat& older) {
    mode_t mode = older.st_mode & 0777;
    // Only an administrator can give a file back to its owner, but each member of a group can give it to
    // that.
    if (::fchown(m_file.Number(), older.st_uid, older.st_gid) != 0 &&
        ::fchown(m_file.Number(), static_cast<uid_t>(-1), older.st_gid) != 0) {
        // The members of the new group keep what all others may, if the older group might as much.
        mode &= ~static_cast<mode_t>(S_IRWXG) | (mode << 3U);
    }
    std::string list(::getxattr(m_target.c_str(), kAccessList, nullptr, 0) > 0 ? 65'536 : 0, '\0');
    const ssize_t size = ::getxattr(m_target.c_str(), kAccessList, list.data(), list.size());
    if (!list.empty() && size > 0) {
        Require(::fsetxattr(m_file.Number(), kAccessList, list.data(), static_cast<std::size_t>(size), 0) ==
                0);
    } else {
        ::fremovexattr(m_file.Number(), kAccessList); // one that a new file has from its folder
        Require(::fchmod(m_file.Number(), mode) == 0);
    }
}

void ReplacementFile::Write(std::string_view content, const FileProgress& progress) {
    WriteAll(m_file, m_path, content, progress);
}

void ReplacementFile::TakeName() {
    Require(::fsync(m_file.Number()) == 0);
    // Some systems tell only at a close that something couldn't be kept. The file itself stays open, and with
    // it the lock.
    Descriptor second(::fcntl(m_file.Number(), F_DUPFD_CLOEXEC, 0));
    Require(second.IsOpen() && second.Close());
    Require(::rename(m_passing.Place.c_str(), m_target.c_str()) == 0);
    m_passing.Place.clear();
    SyncFolder(FolderOf(m_target));
}

} // namespace plenair
