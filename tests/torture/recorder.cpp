// Preloaded into a program: whatever it does in one folder (RECORD_FOLDER, no links in it) that a cut of the
// power could undo is written down, in order, in the file RECORD_LOG. An entry is the line "KIND INODE SAID
// OFFSET LENGTH", with LENGTH bytes behind it: SAID is how much the program had printed by then, its output
// being a file. Kinds: create, write, cut (to a size), sync, unlink and move, whose bytes are a path, or two
// with a zero between. A folder is synchronised as a file is.
#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

std::string_view folder() {
    const char* named = std::getenv("RECORD_FOLDER");
    return named == nullptr ? "-" : named;
}

bool within(std::string_view path) { return path.starts_with(folder()); }

struct stat64 statusOf(int file) {
    struct stat64 status {};
    static_cast<void>(syscall(SYS_fstat, file, &status));
    return status;
}

std::string pathOf(int file) {
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const long size = syscall(SYS_readlink, link.c_str(), path.data(), path.size());
    return {path.data(), static_cast<std::size_t>(size < 0 ? 0 : size)};
}

void writeDown(const char* kind, ino64_t inode, off64_t offset, std::string_view bytes) {
    static const long log =
        syscall(SYS_open, std::getenv("RECORD_LOG"), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    std::string entry = kind;
    for (const auto number : {static_cast<long>(inode), static_cast<long>(statusOf(STDOUT_FILENO).st_size),
                              static_cast<long>(offset), static_cast<long>(bytes.size())})
        entry += " " + std::to_string(number);
    entry += "\n";
    entry += bytes;
    if (syscall(SYS_write, log, entry.data(), entry.size()) != static_cast<long>(entry.size())) std::abort();
}

/// What was done to an open file, if it stands in the folder.
void writeDown(const char* kind, int file, off64_t offset, std::string_view bytes = {}) {
    const std::string path = pathOf(file);
    if (!within(path)) return;
    writeDown(kind, statusOf(file).st_ino, offset, bytes);
    const bool killing = std::getenv("RECORD_KILL") != nullptr;
    if (killing && kind == std::string_view("write") && !path.ends_with("-journal")) std::raise(SIGKILL);
}

int opened(const char* path, int flags, mode_t mode) {
    const bool fresh = (flags & O_CREAT) != 0 && syscall(SYS_access, path, F_OK) != 0;
    const int file = static_cast<int>(syscall(SYS_open, path, flags, mode));
    if (file < 0 || (flags & O_ACCMODE) == O_RDONLY) return file;
    if (fresh) {
        writeDown("create", file, 0, pathOf(file));
    } else if ((flags & O_TRUNC) != 0) {
        writeDown("cut", file, 0);
    }
    return file;
}

int synchronised(long call, int file) {
    const int status = static_cast<int>(syscall(call, file));
    if (status == 0) writeDown("sync", file, 0);
    return status;
}

int unlinked(const char* path) {
    const int status = static_cast<int>(syscall(SYS_unlink, path));
    if (status == 0 && within(path)) writeDown("unlink", ino64_t{0}, 0, path);
    return status;
}

mode_t modeIn(std::va_list more) { return va_arg(more, mode_t); }

}  // namespace

// The names of the system's library. The calls that it makes itself do not come through here.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

int open64(const char* path, int flags, ...) {
    std::va_list more;
    va_start(more, flags);
    const int file = opened(path, flags, (flags & O_CREAT) != 0 ? modeIn(more) : 0);
    va_end(more);
    return file;
}

int open(const char* path, int flags, ...) {
    std::va_list more;
    va_start(more, flags);
    const int file = opened(path, flags, (flags & O_CREAT) != 0 ? modeIn(more) : 0);
    va_end(more);
    return file;
}

ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t offset) {
    const ssize_t written = syscall(SYS_pwrite64, file, bytes, size, offset);
    if (written > 0)
        writeDown("write", file, offset,
                  {static_cast<const char*>(bytes), static_cast<std::size_t>(written)});
    return written;
}

ssize_t write(int file, const void* bytes, size_t size) {
    const ssize_t written = syscall(SYS_write, file, bytes, size);
    if (written > 0)
        writeDown("write", file, syscall(SYS_lseek, file, 0, SEEK_CUR) - written,
                  {static_cast<const char*>(bytes), static_cast<std::size_t>(written)});
    return written;
}

ssize_t sendfile(int to, int from, off_t* start, size_t size) noexcept {
    const off_t source = start != nullptr ? *start : syscall(SYS_lseek, from, 0, SEEK_CUR);
    const ssize_t copied = syscall(SYS_sendfile, to, from, start, size);
    if (copied <= 0) return copied;
    std::string bytes(static_cast<std::size_t>(copied), '\0');
    if (syscall(SYS_pread64, from, bytes.data(), bytes.size(), source) != copied) std::abort();
    writeDown("write", to, syscall(SYS_lseek, to, 0, SEEK_CUR) - copied, bytes);
    return copied;
}

int ftruncate64(int file, off64_t size) noexcept {
    const int status = static_cast<int>(syscall(SYS_ftruncate, file, size));
    if (status == 0) writeDown("cut", file, size);
    return status;
}

int fsync(int file) { return synchronised(SYS_fsync, file); }
int fdatasync(int file) { return synchronised(SYS_fdatasync, file); }

int unlink(const char* path) noexcept { return unlinked(path); }
int remove(const char* path) noexcept { return unlinked(path); }  // no folders here

int rename(const char* from, const char* to) noexcept {
    const int status = static_cast<int>(syscall(SYS_rename, from, to));
    if (status == 0 && within(to)) {
        std::string both = from;
        both += '\0';
        writeDown("move", ino64_t{0}, 0, both + to);
    }
    return status;
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
