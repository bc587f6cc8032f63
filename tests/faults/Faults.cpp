#include "faults/Faults.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct File {
    bool isOurs = false;
    bool isDirty = false; // holds what is not on the disk
    bool isFolder = false;
};

const char* s_folder = nullptr;
long s_call = 0;
long s_seen = 0;
int s_fault = 0;
const char* s_struck = "";
std::array<File, 1024> s_files; // by descriptor

bool Concerns(const char* path) {
    return s_folder != nullptr && path != nullptr && std::strncmp(path, s_folder, std::strlen(s_folder)) == 0;
}

File* FileOf(int descriptor) {
    return descriptor >= 0 && descriptor < 1024 ? &s_files[static_cast<std::size_t>(descriptor)] : nullptr;
}

bool Concerns(int descriptor) {
    return s_folder != nullptr && FileOf(descriptor) != nullptr && FileOf(descriptor)->isOurs;
}

void End() {
    if (s_fault == kPowerCut) {
        LoseWhatIsNotOnTheDisk();
    }
    raise(SIGKILL);
}

// Whether the call that is being made is the one that fails.
template <typename What>
bool IsDue(What what, const char* name) {
    const bool isDue = Concerns(what) && ++s_seen == s_call;
    s_struck = isDue ? name : s_struck;
    return isDue;
}

template <typename What>
bool Fails(What what, const char* name = __builtin_FUNCTION()) {
    if (!IsDue(what, name) || s_fault == kShortCount) {
        return false;
    }
    if (s_fault < 0) {
        End();
    }
    errno = s_fault;
    return true;
}

// What the call does when nothing goes wrong.
template <typename Function>
Function* Next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

template <typename Buffer>
ssize_t Move(int file, Buffer* bytes, size_t count, const char* name = __builtin_FUNCTION()) {
    auto* const next = Next<ssize_t(int, Buffer*, size_t)>(name);
    if (!IsDue(file, name)) {
        return next(file, bytes, count);
    }
    if (s_fault > 0) {
        errno = s_fault;
        return -1;
    }
    const ssize_t moved = next(file, bytes, (count + 1) / 2);
    if (s_fault != kShortCount) {
        End();
    }
    return moved;
}

int Opened(int file, const char* path, bool isFolder = false) {
    if (File* const record = FileOf(file)) {
        *record = {Concerns(path), false, isFolder};
    }
    return file;
}

__attribute__((constructor)) void ArmFromEnvironment() {
    if (const char* const folder = std::getenv("FAULT_FOLDER")) {
        ArmFault(folder, std::atol(std::getenv("FAULT_CALL")), std::atoi(std::getenv("FAULT")));
    }
}

} // namespace

extern "C" {

void ArmFault(const char* folder, long call, int fault) {
    s_folder = folder;
    s_call = call;
    s_fault = fault;
    s_seen = 0;
    s_struck = "";
}

void LoseWhatIsNotOnTheDisk() {
    for (std::size_t i = 0; i < s_files.size(); ++i) {
        if (s_files[i].isDirty) {
            [[maybe_unused]] const int lost = ftruncate(static_cast<int>(i), 0);
        }
    }
}

long DisarmFault() {
    s_folder = nullptr;
    return s_seen;
}

const char* StruckCall() {
    return s_struck;
}

#define CALL(result, name, parameters, arguments, concerned, ...)                                            \
    result name parameters __VA_ARGS__ {                                                                     \
        return Fails(concerned) ? -1 : Next<result parameters>(#name) arguments;                             \
    }

CALL(int, stat, (const char* path, struct stat* status), (path, status), path, noexcept)
CALL(int, lstat, (const char* path, struct stat* status), (path, status), path, noexcept)
CALL(int, fstat, (int file, struct stat* status), (file, status), file, noexcept)
CALL(int, stat64, (const char* path, struct stat64* status), (path, status), path, noexcept)
CALL(int, lstat64, (const char* path, struct stat64* status), (path, status), path, noexcept)
CALL(int, fstat64, (int file, struct stat64* status), (file, status), file, noexcept)
CALL(int, faccessat, (int folder, const char* path, int mode, int flags), (folder, path, mode, flags), path,
     noexcept)
CALL(int, fchmod, (int file, mode_t mode), (file, mode), file, noexcept)
CALL(int, fchown, (int file, uid_t owner, gid_t group), (file, owner, group), file, noexcept)
CALL(int, flock, (int file, int operation), (file, operation), file, noexcept)
CALL(int, mkdir, (const char* path, mode_t mode), (path, mode), path, noexcept)
CALL(int, unlink, (const char* path), (path), path, noexcept)
CALL(int, rename, (const char* from, const char* to), (from, to), from, noexcept)
CALL(ssize_t, readlink, (const char* path, char* buffer, size_t size), (path, buffer, size), path, noexcept)

int fsync(int file) {
    if (Fails(file, Concerns(file) && FileOf(file)->isFolder ? "fsync of a folder" : "fsync")) {
        return -1;
    }
    if (Concerns(file)) {
        FileOf(file)->isDirty = false;
    }
    return Next<int(int)>("fsync")(file);
}

// The file is closed in any case, as Linux does it.
int close(int file) {
    const bool fails = Fails(file);
    const int error = errno;
    if (s_fault == kPowerCut && Concerns(file) && FileOf(file)->isDirty) {
        FileOf(fcntl(file, F_DUPFD_CLOEXEC, 512))->isDirty = true; // for the power cut
    }
    Opened(file, nullptr);
    const int result = Next<int(int)>("close")(file);
    if (fails) {
        errno = error;
    }
    return fails ? -1 : result;
}

int fcntl(int file, int command, ...) {
    va_list rest;
    va_start(rest, command);
    void* const argument = va_arg(rest, void*);
    va_end(rest);
    const bool isCopy = command == F_DUPFD_CLOEXEC && Concerns(file);
    const int result =
        isCopy && Fails(file) ? -1 : Next<int(int, int, ...)>("fcntl")(file, command, argument);
    if (isCopy && result >= 0) {
        *FileOf(result) = {true, false, false};
    }
    return result;
}

ssize_t read(int file, void* bytes, size_t count) {
    return Move(file, bytes, count);
}

ssize_t write(int file, const void* bytes, size_t count) {
    if (Concerns(file)) {
        FileOf(file)->isDirty = true;
    }
    return Move(file, bytes, count);
}

#define OPEN(name, parameters, arguments)                                                                    \
    int name parameters {                                                                                    \
        va_list rest;                                                                                        \
        va_start(rest, flags);                                                                               \
        const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;                 \
        va_end(rest);                                                                                        \
        return Fails(path)                                                                                   \
                   ? -1                                                                                      \
                   : Opened(Next<int parameters>(#name) arguments, path, (flags & O_DIRECTORY) != 0);        \
    }

OPEN(open, (const char* path, int flags, ...), (path, flags, mode))
OPEN(open64, (const char* path, int flags, ...), (path, flags, mode))
OPEN(openat, (int folder, const char* path, int flags, ...), (folder, path, flags, mode))
OPEN(openat64, (int folder, const char* path, int flags, ...), (folder, path, flags, mode))

} // extern "C"
