#include "platform/files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/fault.h"

namespace files {

std::optional<std::string> tryRead(const std::string& path) {
    std::error_code failed;
    if (!std::filesystem::is_regular_file(path, failed)) return std::nullopt;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) return std::nullopt;
    std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (stream.bad()) return std::nullopt;
    return bytes;
}

std::string read(const std::string& path) {
    std::optional<std::string> bytes = tryRead(path);
    if (!bytes) raiseFault(FaultNumber::FileNotFound, path);
    return *std::move(bytes);
}

std::error_code copyOwnership(const std::string& from, const std::string& to) {
    struct stat model {};
    struct stat file {};
    bool good = ::stat(from.c_str(), &model) == 0 && ::stat(to.c_str(), &file) == 0;
    // Asked only for what differs: a file system without owners refuses every change. The owner first, since
    // with it permissions can go.
    const bool sameOwner = model.st_uid == file.st_uid && model.st_gid == file.st_gid;
    if (good && !sameOwner) good = ::chown(to.c_str(), model.st_uid, model.st_gid) == 0;
    if (good && !(sameOwner && model.st_mode == file.st_mode))
        good = ::chmod(to.c_str(), model.st_mode & ALLPERMS) == 0;
    return good ? std::error_code() : std::error_code(errno, std::generic_category());
}

namespace {

/// A file, or the names in a folder.
std::error_code synchronize(const std::string& path) {
    const int handle = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    std::error_code failed;
    if (handle < 0 || ::fsync(handle) != 0) failed.assign(errno, std::generic_category());
    if (handle >= 0) ::close(handle);
    return failed;
}

}  // namespace

void moveIntoPlace(const std::string& from, const std::string& to) {
    const std::string folder = std::filesystem::absolute(to).parent_path().string();
    if (const std::error_code failed = synchronize(from))
        throw std::filesystem::filesystem_error("cannot be written", from, failed);
    // Some file systems cannot do it for a folder. The first time is for a journal that stood beside the old
    // file: it must not come back, when the power has gone, beside one that it does not belong to.
    static_cast<void>(synchronize(folder));
    std::filesystem::rename(from, to);
    static_cast<void>(synchronize(folder));
}

OnLeave lockFolder(const std::string& folder) {
    const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle >= 0) static_cast<void>(::flock(handle, LOCK_EX));
    return OnLeave([handle] {
        if (handle >= 0) ::close(handle);
    });
}

std::string freshFolder(const std::string& beginning) {
    std::string place = (std::filesystem::temp_directory_path() / (beginning + "-XXXXXX")).string();
    if (::mkdtemp(place.data()) == nullptr) throw std::system_error(errno, std::generic_category(), place);
    return place;
}

std::string folderOfProgram() {
    // Once, at the first need: a program that is replaced while it runs has no place any more.
    static const std::string folder = std::filesystem::canonical("/proc/self/exe").parent_path().string();
    return folder;
}

}  // namespace files
