#include "platform/files.h"

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

std::string folderOfProgram() { return std::filesystem::canonical("/proc/self/exe").parent_path().string(); }

}  // namespace files
